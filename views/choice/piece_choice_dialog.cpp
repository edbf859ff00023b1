#include "views/choice/piece_choice_dialog.h"

namespace velmora {

namespace {

ChoiceImages images_of_pieces(const ChoiceImages& pixbufs) {
    ChoiceImages images;
    for (const int code : piece_choice_grid.codes) images.push_back(pixbufs.at(std::size_t(code)));
    return images;
}

}  // namespace

PieceChoiceDialog::PieceChoiceDialog(Gtk::Window& parent, const ChoiceImages& pixbufs)
    : ChoiceDialog(parent, "Choose a piece", piece_choice_grid, images_of_pieces(pixbufs),
                   {parent.get_width() * 3 / 8, parent.get_width() / 2}) {}

}  // namespace velmora
