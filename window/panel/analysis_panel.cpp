#include "window/panel/analysis_panel.h"

#include <utility>

namespace velmora {

AnalysisPanel::AnalysisPanel(GameSession& session, const WindowFrame& frame, Navigation& navigation,
                             SearchDisplay& search, ChessBoard& board, std::function<void()> open)
    : m_session(session),
      m_frame(frame),
      m_navigation(navigation),
      m_search(search),
      m_board(board),
      m_open(std::move(open)),
      m_lines([this](const LineMovePlace& place) {
          return m_search.position_behind_move(place.search, place.line, place.move);
      }),
      m_lines_section(m_panel.add_section("Engine lines", m_lines, "Load an engine to see its lines.")) {
    m_session.on_change([this](Changes changes) {
        if (changes.has(Change::game) && !m_session.record().is_empty()) m_loaded = true;
    });
    m_lines.signal_move_chosen().connect([this](const LineMovePlace& place) { play_line(place); });
    m_lines.signal_lines_wanted().connect([this](int change) { m_search.ask_for_lines(change); });
    m_lines.signal_uncovered().connect([this] { m_search.uncover(); });
}

void AnalysisPanel::refresh() {
    open_where_it_helps();
    if (!m_search.has_news()) return;
    const auto searches = m_search.shown();
    show_arrows();
    if (!m_panel.get_visible()) return;
    m_lines_section.set_has_content(!searches.empty());
    m_lines.show_searches(searches);
}

/// The modes and records that are there to be looked at with an engine's eyes.
void AnalysisPanel::open_where_it_helps() {
    const Mode mode = m_frame.mode();
    const bool entered =
        mode != std::exchange(m_mode, mode) && (mode == Mode::analyze_position || mode == Mode::tournament);
    const bool loaded = std::exchange(m_loaded, false);
    if ((entered || loaded) && !m_kept_closed && !m_panel.get_visible()) m_open();
}

void AnalysisPanel::show_best_moves(bool on) {
    m_arrows = on;
    show_arrows();
}

void AnalysisPanel::show_arrows() {
    constexpr double strength_of_best = 0.8, strength_of_next = 0.45;
    std::vector<MoveHint> hints;
    if (m_arrows) {
        for (const auto& [from, to] : m_search.best_moves()) {
            hints.push_back({from, to, hints.empty() ? strength_of_best : strength_of_next});
        }
    }
    m_board.set_hints(std::move(hints));
}

/// In analysis and between people the board goes along; a game that is being played stays where it is.
void AnalysisPanel::play_line(const LineMovePlace& place) {
    const auto moves = m_search.moves_up_to(place.search, place.line, place.move);
    if (moves.empty() || m_frame.mode() == Mode::tournament) return;
    const auto node = m_session.add_line(m_search.node_of(place.search), moves);
    if (node && m_frame.mode() != Mode::human_computer) m_navigation.to_node(*node);
}

}  // namespace velmora
