#include "window/main_dialogs.h"

#include "dialogs/learn_hints_dialog.h"
#include "dialogs/parts/message_box.h"
#include "views/board/chess_board.h"
#include "views/choice/piece_choice_dialog.h"
#include "views/choice/promo_choice_dialog.h"

namespace velmora {

namespace {

/// The piece of a chooser's answer: images 1 to 6 are the white codes themselves, 8 to 13 the black codes
/// less 1.
Piece piece_of_image(int image) {
    if (image >= 1 && image <= 6) return Piece(static_cast<std::uint32_t>(image));
    if (image >= 8 && image <= 13) return Piece(static_cast<std::uint32_t>(image + 1));
    return no_piece;
}

}  // namespace

void MainDialogs::tell_user(const std::string& headline, const std::string& details) {
    message_box(m_parent, headline, details);
}

Piece MainDialogs::choose_piece() {
    return piece_of_image(PieceChoiceDialog(m_parent, m_board.drawing().pixbufs()).choice());
}

PieceKind MainDialogs::choose_promotion(Side side) {
    const auto& images = m_board.drawing().pixbufs();
    // Image codes: pawn, knight, bishop, rook, queen, king from 1 for White and from 8 for Black.
    const std::size_t pawn = side == Side::white ? 1 : 8;
    PromoChoiceDialog dialog(m_parent, images[pawn + 4], images[pawn + 3], images[pawn + 2],
                             images[pawn + 1]);
    switch (dialog.choice()) {
        case 4:
            return PieceKind::queen;
        case 5:
            return PieceKind::rook;
        case 6:
            return PieceKind::bishop;
        case 7:
            return PieceKind::knight;
        default:
            return PieceKind::none;
    }
}

int MainDialogs::choose_hints() { return ask_learn_hints(m_parent); }

}  // namespace velmora
