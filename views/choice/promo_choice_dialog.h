#pragma once

#include "chess/board/piece.h"
#include "views/choice/choice_dialog.h"

namespace velmora {

using PromoChoiceEvent = ChoiceEvent;
using PromoChoiceDraw = ChoiceDraw;

/// Offers the pieces that a pawn may become; choice() is 4 for a queen, 5 rook, 6 bishop, 7 knight, kind()
/// what that means.
class PromoChoiceDialog : public ChoiceDialog {
public:
    using Image = Glib::RefPtr<Gdk::Pixbuf>;
    /// Takes the images of the side that promotes and runs the dialog.
    PromoChoiceDialog(Gtk::Window& parent, const Image& queen, const Image& rook, const Image& bishop,
                      const Image& knight);

    /// None without a choice.
    /// A kind and not a piece: the side is that of the pawn, which the caller knows.
    PieceKind kind() const;
};

}  // namespace velmora
