#pragma once

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>
#include <vector>

#include "base/text.h"
#include "chess/moves/legal_moves.h"
#include "chess/notation/san_move.h"
#include "collection/collection_index.h"
#include "tests/support/scratch_directory.h"

namespace velmora::test {

inline ChessPosition after(std::string_view moves, std::string_view fen = "") {
    ChessPosition position;
    position.new_game();
    if (!fen.empty()) position.fen(fen);
    for (const auto word : text::words(moves)) {
        position.do_move(find_legal(position, SanMove(position, word)).value());
    }
    return position;
}

/// A PGN file and room for its index.
struct Collection {
    explicit Collection(std::string_view pgn) : path(scratch.write("games.pgn", pgn)) {}

    CollectionIndex open(const IndexOptions& options = {}) const {
        return CollectionIndex::open(path, options, cache);
    }
    void append(std::string_view pgn) const { std::ofstream(path, std::ios::app | std::ios::binary) << pgn; }
    /// The files of all indexes but locks, by name.
    std::vector<std::filesystem::path> files() const {
        std::vector<std::filesystem::path> found;
        for (const auto& entry : std::filesystem::recursive_directory_iterator(cache)) {
            if (entry.is_regular_file() && entry.path().extension() != ".lock") found.push_back(entry.path());
        }
        std::sort(found.begin(), found.end());
        return found;
    }

    ScratchDirectory scratch;
    const std::string path;
    const std::string cache = scratch.path("cache");
};

/// "e4 2 +1 =0 -1 (2400, 2020)", a line a move.
inline std::string explored(const CollectionIndex& collection, const ChessPosition& position) {
    std::string lines;
    for (const auto& sum : collection.statistics(position)) {
        const auto move = move_in(position, sum.move);
        lines += move ? SanMove(position, *move).san() : "end";
        lines += ' ' + std::to_string(sum.games) + " +" + std::to_string(sum.white_wins) + " =" +
                 std::to_string(sum.draws) + " -" + std::to_string(sum.black_wins) + " (" +
                 std::to_string(sum.mean_rating()) + ", " + std::to_string(sum.last_year) + ")\n";
    }
    return lines;
}

/// All that can be asked of a collection, in one text: rows, texts of games, statistics along all main lines.
inline std::string everything(const CollectionIndex& collection) {
    std::string all;
    for (std::uint32_t number = 0; number < collection.size(); ++number) {
        const auto row = collection.row(number);
        for (const auto& word : {row.white, row.black, row.event, row.site, row.date, row.round, row.result,
                                 row.eco, row.opening, row.start_fen, row.remark, collection.pgn(number)}) {
            all += word + '|';
        }
        all += std::to_string(row.white_elo) + '|' + std::to_string(row.black_elo) + '|' +
               std::to_string(row.plies) + '\n';
    }
    return all + explored(collection, after("")) + explored(collection, after("e4")) +
           explored(collection, after("e4 e5"));
}

}  // namespace velmora::test
