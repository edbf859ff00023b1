// Collections without a window: indexes PGN files and answers questions about them, for scripts and for files
// that are too large for a desktop. Exit status: 0 done, 1 the file or the disk, 2 the command line.

#include <csignal>
#include <iostream>
#include <memory>
#include <stdexcept>
#include <unistd.h>

#include "collection/collection_index.h"
#include "collection/filter_line.h"
#include "collection/game_query.h"
#include "tools/collection/arguments.h"
#include "tools/collection/piped_file.h"
#include "tools/collection/progress_line.h"
#include "tools/collection/reports.h"

namespace {

using namespace velmora;

ChessPosition position_of(const Arguments& arguments) {
    ChessPosition position;
    position.new_game();
    if (!arguments.fen) return position;
    try {
        position.fen(*arguments.fen);
    } catch (const std::logic_error&) {
        throw UsageError("--fen: no position: " + *arguments.fen);
    }
    return position;
}

/// Throws UsageError that points at the first mistake.
FilterLine filter_of(const Arguments& arguments) {
    auto filter = FilterLine::parse(arguments.filter);
    if (!filter.mistakes.empty()) {
        const auto& mistake = filter.mistakes.front();
        throw UsageError("filter, \"" + arguments.filter.substr(mistake.position, mistake.length) +
                         "\": " + mistake.hint);
    }
    return filter;
}

CollectionIndex open(const Arguments& arguments, const PipedFile* piped) {
    ProgressLine line;
    IndexOptions options;
    options.jobs = arguments.jobs;
    options.on_progress = [&line](const IndexProgress& progress) { line.show(progress); };
    if (piped != nullptr) return CollectionIndex::open(piped->path(), options, piped->index_directory());
    return CollectionIndex::open(arguments.file, options);
}

void find(const Arguments& arguments, const CollectionIndex& collection, const FilterLine& filter,
          const ChessPosition& position) {
    GameQuery query(collection);
    query.set_filter(filter);
    if (arguments.fen) query.set_position(position);
    if (arguments.pgn) {
        print_games(std::cout, collection, query.games());
    } else {
        print_rows(std::cout, collection, query.games());
    }
}

void run(const Arguments& arguments) {
    if (arguments.command == Arguments::Command::help) {
        std::cout << Arguments::help_text();
        return;
    }
    const auto position = position_of(arguments);
    const auto filter = filter_of(arguments);
    const auto piped = arguments.file == "-" ? std::make_unique<PipedFile>(STDIN_FILENO) : nullptr;
    const auto collection = open(arguments, piped.get());
    if (collection.size() == 0) std::cerr << "velmora-collection: " << arguments.file << ": no games in it\n";
    switch (arguments.command) {
        case Arguments::Command::help:
        case Arguments::Command::index:
        case Arguments::Command::stats:
            return print_summary(std::cout, collection);
        case Arguments::Command::explore:
            return arguments.json ? print_moves_as_json(std::cout, collection, position)
                                  : print_moves(std::cout, collection, position);
        case Arguments::Command::find:
            return find(arguments, collection, filter, position);
    }
}

}  // namespace

int main(int argc, char** argv) {
    std::signal(SIGXFSZ,
                SIG_IGN);  // a file that has grown to the system's limit is an error like a full disk
    std::ios::sync_with_stdio(false);
    try {
        run(Arguments::parse({argv + 1, argv + argc}));
        std::cout.flush();
        if (std::cout) return 0;
        std::cerr << "velmora-collection: standard output can't be written\n";
        return 1;
    } catch (const UsageError& error) {
        std::cerr << "velmora-collection: " << error.what() << "\nvelmora-collection --help tells more.\n";
        return 2;
    } catch (const std::exception& error) {
        std::cerr << "velmora-collection: " << error.what() << '\n';
        return 1;
    }
}
