#pragma once

#include "views/choice/choice_dialog.h"

namespace velmora {

using PieceChoiceEvent = ChoiceEvent;
using PieceChoiceDraw = ChoiceDraw;

/// Offers all pieces for setting up a position; choice() is the image code.
class PieceChoiceDialog : public ChoiceDialog {
public:
    /// Takes the fourteen images of the board and runs the dialog.
    PieceChoiceDialog(Gtk::Window& parent, const ChoiceImages& pixbufs);
};

}  // namespace velmora
