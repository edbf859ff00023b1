#include "window/main_dialogs.h"

#include "dialogs/about_dialog.h"
#include "dialogs/engine/install_dialog.h"
#include "dialogs/engine/installed_list.h"
#include "dialogs/engine/options_dialog.h"
#include "dialogs/engine/protocol_dialog.h"
#include "dialogs/files/fen_list.h"
#include "dialogs/files/game_list.h"
#include "dialogs/learn_hints_dialog.h"
#include "dialogs/parts/message_box.h"
#include "dialogs/time/time_control_dialog.h"
#include "dialogs/tournament/tournament_dialog.h"
#include "dialogs/tournament/tournament_list.h"
#include "views/board/chess_board.h"
#include "views/board/data_directory.h"
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

void MainDialogs::about() { show_about(m_parent, image_path("velmora_100x50.svg")); }

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

std::optional<std::uint64_t> MainDialogs::choose_game(const std::string& path) {
    GameList list;
    if (list.choose_game(m_parent, path) <= 0) return std::nullopt;
    return list.chosen_offset();
}

std::optional<ChosenPosition> MainDialogs::choose_position(const std::string& path) {
    ChosenPosition chosen;
    const int number = FenList().choose_position(m_parent, path, chosen.line);
    if (number <= 0) return std::nullopt;
    chosen.number = static_cast<std::size_t>(number);
    return chosen;
}

std::optional<Protocol> MainDialogs::choose_protocol() { return velmora::choose_protocol(m_parent); }

std::optional<EngineVariables> MainDialogs::choose_installed() { return InstalledList(m_parent).choose(); }

void MainDialogs::install(const EngineVariables& engine) { InstallDialog(m_parent, engine).install(); }

std::vector<Option> MainDialogs::edit_options(std::vector<Option> options) {
    OptionsDialog("Set Options", m_parent, options).run();
    return options;
}

std::optional<Level> MainDialogs::ask_time_control(const Level& level) {
    return velmora::ask_time_control(m_parent, level);
}

TournamentEdit MainDialogs::edit_tournament(const Tournament& tournament,
                                            const std::vector<std::string>& installed) {
    TournamentDialog dialog(m_parent, tournament, installed);
    switch (dialog.run()) {
        case TournamentDialog::ok:
            return {TournamentEdit::Action::ok, dialog.entered()};
        case TournamentDialog::cancel:
            return {TournamentEdit::Action::cancel, {}};
        default:
            return {};
    }
}

TournamentChoice MainDialogs::choose_tournament(const std::vector<std::string>& names) {
    return velmora::choose_tournament(m_parent, names);
}

}  // namespace velmora
