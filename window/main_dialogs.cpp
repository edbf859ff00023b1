#include "window/main_dialogs.h"

#include "dialogs/about_dialog.h"
#include "dialogs/engine/find_dialog.h"
#include "dialogs/engine/install_dialog.h"
#include "dialogs/engine/installed_list.h"
#include "dialogs/engine/options_dialog.h"
#include "dialogs/engine/protocol_dialog.h"
#include "dialogs/engine/strength_dialog.h"
#include "dialogs/files/fen_list.h"
#include "dialogs/files/game_list.h"
#include "dialogs/game/earlier_games_dialog.h"
#include "dialogs/game/result_dialog.h"
#include "dialogs/game/tags_dialog.h"
#include "dialogs/learn_hints_dialog.h"
#include "dialogs/parts/message_box.h"
#include "dialogs/review/review_dialog.h"
#include "dialogs/time/time_control_dialog.h"
#include "dialogs/tournament/tournament_dialog.h"
#include "dialogs/tournament/tournament_list.h"
#include "views/board/chess_board.h"
#include "views/board/data_directory.h"
#include "views/choice/piece_choice_dialog.h"
#include "views/choice/promo_choice_dialog.h"

namespace velmora {

void MainDialogs::tell_user(const std::string& headline, const std::string& details) {
    message_box(m_parent, headline, details);
}

void MainDialogs::about() { show_about(m_parent, image_path("velmora_100x50.svg")); }

Piece MainDialogs::choose_piece() { return PieceChoiceDialog(m_parent, m_board.drawing().pixbufs()).piece(); }

PieceKind MainDialogs::choose_promotion(Side side) {
    const auto image = [&](PieceKind kind) { return m_board.drawing().image_of(Piece(kind, side)); };
    return PromoChoiceDialog(m_parent, image(PieceKind::queen), image(PieceKind::rook),
                             image(PieceKind::bishop), image(PieceKind::knight))
        .kind();
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

std::vector<EngineVariables> MainDialogs::find_engines(const std::vector<std::string>& installed) {
    return velmora::find_engines(m_parent, installed);
}

void MainDialogs::install(const EngineVariables& engine) { InstallDialog(m_parent, engine).install(); }

std::vector<Option> MainDialogs::edit_options(std::vector<Option> options) {
    OptionsDialog("Set Options", m_parent, options).run();
    return options;
}

std::optional<std::optional<std::int64_t>> MainDialogs::ask_strength(const std::string& engine,
                                                                     const StrengthControl& control) {
    return velmora::ask_strength(m_parent, engine, control);
}

std::optional<Level> MainDialogs::ask_time_control(const Level& level) {
    return velmora::ask_time_control(m_parent, level);
}

std::optional<ReviewSettings> MainDialogs::ask_review(const ReviewSettings& settings) {
    return velmora::ask_review(m_parent, settings);
}

std::optional<GameOutcome> MainDialogs::ask_result(const std::optional<GameOutcome>& known) {
    return velmora::ask_result(m_parent, known);
}

std::optional<TagList> MainDialogs::edit_tags(const TagList& tags) {
    return velmora::edit_tags(m_parent, tags);
}

std::optional<std::size_t> MainDialogs::choose_earlier_game(const std::vector<EarlierGame>& games) {
    constexpr std::size_t plies_per_move = 2;
    std::vector<EarlierGameRow> rows;
    rows.reserve(games.size());
    for (const auto& game : games) {
        const auto moves = (game.moves + 1) / plies_per_move;
        rows.push_back({game.date, game.players, std::to_string(moves)});
    }
    return velmora::choose_earlier_game(m_parent, rows);
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
