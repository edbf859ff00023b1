#pragma once

#include <cstdint>
#include <optional>
#include <utility>

#include "chess/board/square.h"
#include "window/session/board_view.h"
#include "window/session/game_session.h"
#include "window/session/user_moves.h"
#include "window/session/window_frame.h"

namespace velmora {

/// A move that the person makes while the engine thinks: marked by an arrow, and played when the engine has
/// moved, if it is legal then. A click elsewhere takes it away.
///
/// Squares are kept and no move, since what is legal depends on the engine's answer.
class Premove {
public:
    Premove(GameSession& session, BoardView& board, const WindowFrame& frame, UserMoves& moves);
    Premove(const Premove&) = delete;  // moves know where it is
    Premove& operator=(const Premove&) = delete;

    /// Plays it when the engine has moved, and drops it where something else has happened; for the window's
    /// tick.
    void tick();

private:
    void take(Square from, Square to);
    void set(Square from, Square to);
    void clear();
    bool waits_for_engine() const;
    bool is_own_piece(Square square) const;
    bool is_legal(Square from, Square to) const;

    GameSession& m_session;
    BoardView& m_board;
    const WindowFrame& m_frame;
    UserMoves& m_moves;
    std::optional<std::pair<Square, Square>> m_squares;  // from, to
    std::int32_t m_node = 0;                             // of the record, at which the engine thinks
};

}  // namespace velmora
