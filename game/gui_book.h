#pragma once

#include <cstddef>
#include <cstdint>
#include <stop_token>
#include <string>
#include <utility>
#include <vector>

#include "chess/moves/position.h"

namespace velmora {

/// A file of openings for tournaments: a ".pgn" file whose games are played to the end of their main line, or
/// an ".epd" file with a position in each line.
///
/// Setting the file reads it once and notes where each entry begins; playing an entry reads that entry alone.
/// The file is open only meanwhile. Without a usable one every play_...() resets the position to the start
/// and does nothing else.
///
/// Offsets instead of games, because a book may have millions of entries of which a tournament plays some
/// hundred. Opening it only while reading lets the user replace the file meanwhile; an entry then is what
/// stands at its offset, which the readers take as they take any faulty text.
///
/// The random numbers are seeded by the system: two tournaments with one book must not play the same
/// openings.
class GuiBook {
public:
    /// Without a file. Once `leaving` is stopped, reading one ends early.
    explicit GuiBook(std::stop_token leaving = {}) : m_leaving(std::move(leaving)) {}

    /// Uses another file and counts its entries. A file that can't be read, or has neither ending (as written
    /// here), leaves the book without one. A path of four characters or less changes nothing.
    void set_path(const std::string& path);
    const std::string& path() const { return m_path; }

    std::int32_t count() const { return static_cast<std::int32_t>(m_offsets.size()); }
    /// The number of the entry that was used last, 0 before any.
    std::int32_t index() const { return m_index; }

    /// Each starts `position` anew, from the start or from the entry's own FEN, and plays an entry on it:
    /// number `n` from 1, the first, a random one, the one used last (a random one when there is none). A
    /// faulty move ends the entry there with a message on standard error. Past the last entry of a ".pgn"
    /// file nothing is played, past the last line of an ".epd" file that line.
    void play_entry(ChessPosition& position, std::int32_t n);
    void play_first(ChessPosition& position) { play_entry(position, 1); }
    void play_random(ChessPosition& position);
    /// For tournaments in which every opening is played twice, with colours changed.
    void play_again(ChessPosition& position);

private:
    bool is_pgn() const;
    bool is_epd() const;
    void seed();
    void count_entries();
    void count_games();
    void count_lines();
    void play_game(ChessPosition& position, std::size_t entry) const;
    void play_line(ChessPosition& position, std::size_t entry) const;
    std::int32_t random_entry();

    std::stop_token m_leaving;
    std::string m_path;                    // empty when none is in use
    std::vector<std::uint64_t> m_offsets;  // where each entry begins, in bytes
    std::int32_t m_index = 0;
    std::uint64_t m_seed = 1;
};

}  // namespace velmora
