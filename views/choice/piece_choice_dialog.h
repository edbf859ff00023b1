#pragma once

#include "views/board/image_code.h"
#include "views/choice/choice_dialog.h"

namespace velmora {

using PieceChoiceEvent = ChoiceEvent;
using PieceChoiceDraw = ChoiceDraw;

/// Offers all pieces for setting up a position; choice() is the image code, piece() what it shows.
class PieceChoiceDialog : public ChoiceDialog {
public:
    /// Takes the fourteen images of the board and runs the dialog.
    PieceChoiceDialog(Gtk::Window& parent, const ChoiceImages& pixbufs);

    /// `no_piece` without a choice.
    Piece piece() const { return piece_of_image(choice()); }
};

}  // namespace velmora
