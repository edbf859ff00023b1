#pragma once

#include <string>

#include "chess/board/piece.h"
#include "chess/board/side.h"

namespace velmora {

/// What the window's logic asks a person: a value in, a value out.
///
/// Each call waits until it is answered. The logic knows questions, not the windows that put them; so it runs
/// with a double that answers by itself.
class Dialogs {
public:
    virtual ~Dialogs() = default;

    /// Shows a message. Both texts are shown as they stand.
    virtual void tell_user(const std::string& headline, const std::string& details) = 0;

    /// What to put on a square in the set-up; no_piece for nothing.
    virtual Piece choose_piece() = 0;
    /// What a pawn of `side` becomes; none when the question was closed.
    virtual PieceKind choose_promotion(Side side) = 0;
    /// Which hints to show: bit 0 White's moves, bit 1 Black's; 0 for none or a cancelled dialog.
    virtual int choose_hints() = 0;
};

}  // namespace velmora
