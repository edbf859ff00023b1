#include "views/choice/promo_choice_dialog.h"

namespace velmora {

PromoChoiceDialog::PromoChoiceDialog(Gtk::Window& parent, const Image& queen, const Image& rook,
                                     const Image& bishop, const Image& knight)
    // Cells as large as those of the set-up chooser.
    : ChoiceDialog(parent, "Promote to", promo_choice_grid, {queen, rook, bishop, knight},
                   {parent.get_width() / 4, parent.get_width() / 4}) {}

PieceKind PromoChoiceDialog::kind() const {
    // The codes rise from the queen to the knight, the kinds fall.
    constexpr int sum = 4 + static_cast<int>(PieceKind::queen);
    return choice() == 0 ? PieceKind::none : static_cast<PieceKind>(sum - choice());
}

}  // namespace velmora
