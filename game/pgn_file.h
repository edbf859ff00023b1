#pragma once

#include <cstdint>
#include <fstream>
#include <stop_token>
#include <string>
#include <string_view>
#include <utility>

#include "game/block_reader.h"
#include "game/game_cutter.h"

namespace velmora {

/// A PGN file whose games are read one at a time, and a PGN file that games are appended to. Both may be open
/// at once. One game is in memory at a time, whatever the size of the file.
///
/// Not for two threads at once.
class PgnFile {
public:
    /// Once `leaving` is stopped, the input is at its end.
    explicit PgnFile(std::stop_token leaving = {}) : m_reader(std::move(leaving)), m_cutter(m_reader) {}
    PgnFile(const PgnFile&) = delete;  // the cutter points into the object
    PgnFile& operator=(const PgnFile&) = delete;

    /// Closes the open input and opens another one. False when it can't be opened; the file that
    /// first_game() reopens is then the one before.
    bool open(const std::string& path);
    void close();
    bool is_open() const { return m_reader.is_open(); }

    /// Reopens the file and gives its first readable game.
    std::string first_game();

    /// The text of the next readable game, empty at the end of the file. Damaged games are passed over.
    std::string next_game();

    /// The text of the next game, empty at the end of the file. Throws pgn_error for a damaged one; the next
    /// call goes on behind it.
    std::string read_game();

    /// Game number `index` of the file, from 1, when every game is readable: throws pgn_error at the first
    /// damaged one behind the first readable one. In a shorter file, its last game.
    ///
    /// It reads all games ahead of that one; with an offset at hand read_game_at() is the way.
    std::string game_at(std::int64_t index);

    /// The game that begins at or behind a byte offset, such as a header list tells it. Throws pgn_error.
    std::string read_game_at(std::uint64_t offset);

    /// The byte offset of the game that was read last.
    std::uint64_t game_offset() const { return m_cutter.game_offset(); }

    /// Closes the open output and opens another one at its end, made when it isn't there. False on failure.
    bool open_for_writing(const std::string& path);

    /// Appends to the output. False when that failed, now or earlier.
    ///
    /// The text may still lie in the stream's memory; only close_output() tells whether it has arrived.
    bool write(std::string_view text);

    /// False when not all that was written has reached the file.
    bool close_output();

private:
    BlockReader m_reader;
    GameCutter m_cutter;
    std::string m_path;
    std::ofstream m_output;
};

}  // namespace velmora
