#pragma once

#include "chess/board/arrow_color.h"
#include "chess/board/square.h"

namespace velmora {

/// The board as the window's logic sees it.
///
/// It takes no position: the view asks the session, which is the owner. So a caller can't show anything
/// else than what is.
class BoardView {
public:
    virtual ~BoardView() = default;

    /// Shows the session's position: board with its marks, FEN entry, EPD code, navigation buttons.
    virtual void show_position() = 0;
    /// Marks the targets of a piece that hangs on the pointer, until show_position().
    virtual void show_targets(Square square) = 0;

    /// An arrow from or to a square beyond the board isn't shown.
    virtual void set_arrow(Square from, Square to, ArrowColor color) = 0;
    virtual void clear_arrows() = 0;
};

}  // namespace velmora
