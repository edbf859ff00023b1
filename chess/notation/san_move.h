#pragma once

#include <string>
#include <string_view>

#include "chess/board/move.h"
#include "chess/moves/position.h"

namespace velmora {

/// A move with its algebraic text, bound to the position in which it is made.
///
/// The position is borrowed, only read, and must stand at the moment before the move. Reading takes the text
/// apart from the right and finds the origin by attack; it accepts much that is not legal, so a move that was
/// read is to be looked up among the legal ones before it is made.
///
/// SAN is told in the PGN standard, 8.2.3. It names the origin only as far as needed, so neither direction
/// works without the position, and the position is part of the object. From the right, because the
/// destination is the one part that every text but castling has, and always in the same place, while what
/// stands ahead of it varies.
class SanMove : public Move {
public:
    /// Builds the text of a move. A check is marked only when the move's check bit is set.
    /// Throws std::logic_error when no piece can make the move.
    SanMove(const ChessPosition& position, const Move& move);

    /// Reads a text and keeps it as it came. Throws std::logic_error with the fault.
    SanMove(const ChessPosition& position, std::string_view text);

    SanMove& operator=(const Move& move);
    SanMove& operator=(std::string_view text);

    const std::string& san() const { return m_san; }

    /// Whether the piece on `from` could go to `to`, as far as pins and own pieces tell: the test that counts
    /// for disambiguation. It does not look at checks. Throws std::logic_error when no piece of the side to
    /// move stands on `from`.
    bool is_legal(Square from, Square to) const;

private:
    const ChessPosition* m_position;  // never null
    std::string m_san;
};

}  // namespace velmora
