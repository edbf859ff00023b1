#include "window/main_dialogs.h"

#include "dialogs/learn_hints_dialog.h"
#include "dialogs/parts/message_box.h"
#include "views/board/chess_board.h"
#include "views/choice/piece_choice_dialog.h"
#include "views/choice/promo_choice_dialog.h"

namespace velmora {

void MainDialogs::tell_user(const std::string& headline, const std::string& details) {
    message_box(m_parent, headline, details);
}

Piece MainDialogs::choose_piece() { return PieceChoiceDialog(m_parent, m_board.drawing().pixbufs()).piece(); }

PieceKind MainDialogs::choose_promotion(Side side) {
    const auto image = [&](PieceKind kind) { return m_board.drawing().image_of(Piece(kind, side)); };
    return PromoChoiceDialog(m_parent, image(PieceKind::queen), image(PieceKind::rook),
                             image(PieceKind::bishop), image(PieceKind::knight))
        .kind();
}

int MainDialogs::choose_hints() { return ask_learn_hints(m_parent); }

}  // namespace velmora
