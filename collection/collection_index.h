#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "chess/moves/position.h"
#include "collection/game_columns.h"
#include "collection/index_builder.h"
#include "collection/index_place.h"
#include "collection/move_statistics.h"
#include "collection/text_table.h"

namespace velmora {

class GameDatabase;

/// One game of a collection in words, as a list shows it.
struct GameRow {
    std::uint32_t number = 0;  ///< from 0, in the order of the file
    std::string white;
    std::string black;
    std::uint16_t white_elo = 0;  ///< 0 for unknown
    std::uint16_t black_elo = 0;
    std::string event;
    std::string site;
    std::string date;  ///< "2023.05.??"
    std::string round;
    std::string result;
    std::string eco;
    std::string opening;
    std::uint32_t plies = 0;
    GameStart start = GameStart::normal;
    std::string start_fen;  ///< empty for the usual start
    std::string remark;  ///< why the game is indexed only up to `plies`: reason, ply and word; mostly empty
};

/// A PGN file with the index beside it: its games as rows, and what was played from a position.
///
/// The file stays the truth and is only read. The index lies in the user's cache; it is found again, brought
/// up to date or made anew when a collection is opened, and whoever has it open keeps the state that he
/// opened, whatever becomes of file and index, until refresh().
///
/// Belongs to one thread at a time; another thread may open the same file.
class CollectionIndex {
public:
    /// Opens a PGN file, making its index where that is needed, which takes seconds a million games. Throws
    /// IndexStopped, and std::runtime_error with a text for the user.
    static CollectionIndex open(const std::string& pgn_path, const IndexOptions& options = {},
                                const std::string& directory = collections_directory());

    CollectionIndex(CollectionIndex&&) noexcept;
    CollectionIndex& operator=(CollectionIndex&&) noexcept;
    ~CollectionIndex();

    /// Follows the file: appended games are added. False when nothing had changed. Throws like open(), and
    /// then all is as it was.
    bool refresh(const IndexOptions& options = {});

    /// Absolute, links followed.
    const std::string& path() const;
    std::uint32_t size() const { return static_cast<std::uint32_t>(games().size()); }
    /// By number. Valid until refresh().
    std::span<const GameColumns> games() const;
    /// Positions in all games, the last one of each game counted.
    std::uint64_t position_count() const;
    /// How many games have which remark, by GameRemark.
    const std::array<std::uint32_t, remark_count>& remarks() const;
    /// Bytes of the index on disk.
    std::uint64_t index_size() const;

    /// REQUIRES of these: number < size(). Throw std::runtime_error when the file or the index can't be read;
    /// the index is then made anew when the collection is opened again.
    GameRow row(std::uint32_t number) const;
    /// The game's text as it stands in the file.
    std::string pgn(std::uint32_t number) const;

    /// What was played from a position, most games first; a game counts once for each move. Games that end
    /// there stand under move 0, behind all others. Moves that aren't legal there are left out: a key is
    /// shortened in the index, and once in tens of millions it is another position's.
    std::vector<MoveStatistics> statistics(const ChessPosition& position) const;

    /// The numbers of the games that came to a position, ascending; with `move`, of those that made it there.
    std::vector<std::uint32_t> games_through(const ChessPosition& position) const;
    std::vector<std::uint32_t> games_through(const ChessPosition& position, Move move) const;

    /// The last `count` of some games by their date.
    std::vector<std::uint32_t> newest(std::vector<std::uint32_t> numbers, std::size_t count) const;

    /// All texts, read at the first call: some hundred milliseconds for a million of them.
    const TextTable& texts() const;

private:
    struct State;
    explicit CollectionIndex(std::unique_ptr<State> state);

    static std::unique_ptr<State> load(const IndexPlace& place, std::unique_ptr<SourceFile> source,
                                       const IndexManifest& manifest);
    static std::unique_ptr<State> bring_up(const std::string& pgn_path, const IndexOptions& options,
                                           const std::string& directory);
    GameRow read_row(const GameDatabase& database, std::uint32_t number) const;
    static std::string remark_of(const GameDatabase& database, const GameColumns& game);
    template <class Read>
    auto from_database(Read read) const;

    std::unique_ptr<State> m_state;
};

/// The legal move that a code of the index names in its position; nothing for 0 and what isn't legal.
std::optional<Move> move_in(const ChessPosition& position, std::uint16_t code);

}  // namespace velmora
