#include "window/main_screen.h"

#include <glibmm/main.h>

#include "base/text.h"
#include "views/board/chess_board.h"
#include "views/clocks/clocks.h"
#include "views/text/analysis_window.h"
#include "views/text/comment_editor.h"
#include "views/text/fen_entry.h"
#include "views/text/pgn_view.h"
#include "window/board_marker.h"
#include "window/navigation_bar.h"

namespace velmora {

void MainScreen::show_position() {
    const std::string fen = m_session.position().fen();
    m_views.board.set_fen(fen);
    m_views.board.set_marks(board_marks(m_session.position(), m_session.last_move(), m_session.selected()));
    m_views.fen_entry.set_text(fen);
    const bool rests = m_session.seats().only_looks_on();
    m_views.navigation.set_possible(!rests && m_session.can_go_back(), !rests && m_session.can_go_forward());
    announce_last_move();
}

void MainScreen::show_targets(Square square) {
    m_views.board.set_marks(board_marks(m_session.position(), m_session.last_move(), square));
}

void MainScreen::announce_last_move() {
    const std::string text = m_session.last_move_text();
    if (text.empty() || text == m_announced) return;
    m_announced = text;
    m_views.board.announce(text);
}

void MainScreen::show_game() {
    // The text of a long game is made anew each time: only for somebody who looks at it, and once for all
    // that a tick brings. Behind the redraws, or a fast match would leave a slow machine no time for the
    // board.
    if (!m_views.pgn.get_visible() || m_game_text_due.connected()) return;
    m_game_text_due = Glib::signal_idle().connect(sigc::mem_fun(*this, &MainScreen::refresh_game_text));
}

bool MainScreen::refresh_game_text() {
    m_views.pgn.set_text(m_session.pgn());
    const auto [begin, end] = m_session.record().current_text_range();
    m_views.pgn.highlight(static_cast<std::int64_t>(begin), static_cast<std::int64_t>(end));
    return false;
}

void MainScreen::set_title(const std::string& title) { m_views.main.set_title(text::displayable(title)); }

void MainScreen::close() { m_views.main.hide(); }

Mode MainScreen::mode() const { return m_actions ? m_actions->mode() : Mode::setup; }

void MainScreen::select_mode(Mode mode) {
    if (m_actions) m_actions->select_mode(mode);
}

void MainScreen::set_sensitive(Mode mode, bool sensitive) {
    if (m_actions) m_actions->set_sensitive(action_name(mode), sensitive);
}

void MainScreen::set_sensitive(MenuEntry entry, bool sensitive) {
    if (m_actions) m_actions->set_sensitive(action_name(entry), sensitive);
}

void MainScreen::set_arrow(Square from, Square to, ArrowColor color) {
    m_views.board.set_arrow(from, to, color);
}

void MainScreen::clear_arrows() { m_views.board.clear_arrows(); }

void MainScreen::reset_clocks(const Level& level) {
    m_views.clocks.set_level(level);
    m_views.clocks.reset();
}

void MainScreen::stop_clocks() { m_views.clocks.stop(); }

void MainScreen::start_clock(Side side) { m_views.clocks.start(side); }

void MainScreen::mark_clock(Side side) { m_views.clocks.show_to_move(side); }

BySide<ClockReading> MainScreen::read_clocks() const {
    BySide<ClockReading> readings;
    for (const Side side : {Side::white, Side::black}) {
        const auto [centiseconds, moves] = m_views.clocks.reading(side);
        readings[side] = {centiseconds, moves};
    }
    return readings;
}

void MainScreen::restore_clocks(const BySide<ClockReading>& readings, std::optional<Side> running) {
    BySide<std::pair<std::int32_t, std::int32_t>> times;
    for (const Side side : {Side::white, Side::black}) {
        times[side] = {readings[side].centiseconds, readings[side].moves};
    }
    m_views.clocks.restore(times, running);
}

void MainScreen::add_analysis(Side side, const std::string& line) { m_views.analysis.add_line(side, line); }

void MainScreen::clear_analysis() { m_views.analysis.clear(); }

void MainScreen::show_comment(const std::string& comment) { m_views.comment.set_text(comment); }

}  // namespace velmora
