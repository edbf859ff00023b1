#include "window/session/game_presenter.h"

namespace velmora {

GamePresenter::GamePresenter(GameSession& session, const Screen& screen)
    : m_session(session), m_screen(screen) {
    m_session.on_change([this](Changes changes) { show(changes); });
}

void GamePresenter::show(Changes changes) {
    if (changes.has(Change::clocks)) m_screen.clocks.reset_clocks(m_session.level());
    if (changes.has(Change::comment)) m_screen.notes.show_comment(m_session.record().comment());
    if (changes.has(Change::record)) m_screen.notes.show_game();
    if (changes.has(Change::turn)) m_screen.clocks.mark_clock(m_session.side_to_move());
    if (changes.has({Change::position, Change::selection, Change::seats})) m_screen.board.show_position();
}

}  // namespace velmora
