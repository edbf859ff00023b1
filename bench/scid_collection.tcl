# What scid takes for what bench/collection_figures.cpp measures, by its own commands and without its window:
#   xvfb-run -a tkscid bench/scid_collection.tcl <PGN file> <name of a new database>
lassign $argv pgn name
proc ms {what script} {
    set start [clock microseconds]
    uplevel 1 $script
    puts [format "scid: %-52s %10.1f ms" $what [expr {([clock microseconds] - $start) / 1000.0}]]
}
set base [sc_base create $name]
ms "import (no positions are indexed)" {sc_base import $base $pgn}
foreach round {1 2 3} {
    sc_game startBoard "rnbqkbnr/pppppppp/8/8/8/8/PPPPPPPP/RNBQKBNR w KQkq - 0 1"
    ms "tree of the start position, round $round" {sc_tree stats $base dbfilter}
    sc_game startBoard "rnbqkb1r/1p2pppp/p2p1n2/8/3NP3/2N5/PPP2PPP/R1BQKB1R w KQkq - 0 6"
    ms "tree of the Najdorf, round $round" {sc_tree stats $base dbfilter}
    ms "search of its board, round $round" {sc_search board 0 E 0 0}
}
exit
