#include "views/choice/promo_choice_dialog.h"

namespace velmora {

PromoChoiceDialog::PromoChoiceDialog(Gtk::Window& parent, const Image& queen, const Image& rook,
                                     const Image& bishop, const Image& knight)
    // Cells as large as those of the set-up chooser.
    : ChoiceDialog(parent, "Promote to", promo_choice_grid, {queen, rook, bishop, knight},
                   {parent.get_width() / 4, parent.get_width() / 4}) {}

}  // namespace velmora
