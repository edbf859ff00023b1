#include "window/panel/analysis_panel.h"

#include <utility>

#include "review/verdict.h"
#include "window/table/captured_pieces.h"

namespace velmora {

namespace {

GraphMark mark_of(std::string_view glyph) {
    switch (verdict_of_glyph(glyph)) {
        case Verdict::inaccuracy:
            return GraphMark::inaccuracy;
        case Verdict::mistake:
            return GraphMark::mistake;
        case Verdict::blunder:
            return GraphMark::blunder;
        case Verdict::none:
            break;
    }
    return GraphMark::none;
}

}  // namespace

AnalysisPanel::AnalysisPanel(GameSession& session, const WindowFrame& frame, Navigation& navigation,
                             SearchDisplay& search, const Activity& activity, ReviewRoom& review,
                             ChessBoard& board, EvaluationBar& bar, std::function<void()> open,
                             std::function<void()> edit_comment)
    : m_session(session),
      m_frame(frame),
      m_navigation(navigation),
      m_search(search),
      m_activity(activity),
      m_review(review),
      m_board(board),
      m_bar(bar),
      m_open(std::move(open)),
      m_edit_comment(std::move(edit_comment)),
      m_editor(session),
      m_lines([this](const LineMovePlace& place) {
          return m_search.position_behind_move(place.search, place.line, place.move);
      }),
      m_lines_section(m_panel.add_section("Engine lines", m_lines, "Load an engine to see its lines.")),
      m_moves_section(
          m_panel.add_section("Moves", m_moves, "Play a move or load a game to see it here.", true)),
      m_graph_section(m_panel.add_section("Evaluation", m_graph,
                                          "Analyse the game, or load one with evaluations, to see who stood "
                                          "better.")) {
    m_session.on_change([this](Changes changes) {
        if (changes.has(Change::game) && !m_session.record().is_empty()) m_loaded = true;
        if (changes.has(Change::game)) m_evaluations.clear();
        if (changes.has({Change::record, Change::comment, Change::position})) m_record_changed = true;
        if (changes.has({Change::game, Change::position})) m_captured_changed = true;
    });
    m_panel.signal_show().connect([this] {
        m_bar.show();
        m_record_changed = true;
    });
    m_panel.signal_hide().connect([this] { m_bar.hide(); });
    m_state_line.signal_accepted().connect([this] { m_navigation.resume_game(); });
    m_graph.signal_chosen().connect([this](std::int32_t node) { go_to(node); });
    m_moves.signal_move_chosen().connect([this](std::int32_t node) { go_to(node); });
    m_moves.signal_request().connect([this](const MoveRequest& request) { carry_out(request); });
    m_moves.signal_step().connect([this](int steps) { m_navigation.move_by(steps); });
    m_panel.add_head(m_state_line);
    m_lines.signal_move_chosen().connect([this](const LineMovePlace& place) { play_line(place); });
    m_lines.signal_lines_wanted().connect([this](int change) { m_search.ask_for_lines(change); });
    m_lines.signal_uncovered().connect([this] { m_search.uncover(); });
}

void AnalysisPanel::refresh() {
    open_where_it_helps();
    const bool visible = m_panel.get_visible();
    if (visible) show_activity();
    if (m_search.has_news()) {
        const auto searches = m_search.shown();
        if (const auto evaluation = m_search.evaluation()) {
            m_evaluations.note(m_session.record().tree(), m_search.node_of(0), *evaluation, m_search.depth());
            m_record_changed = true;
        }
        show_arrows();
        m_lines_section.set_has_content(!searches.empty());
        if (visible) m_lines.show_searches(searches);
    }
    if (visible && std::exchange(m_record_changed, false)) {
        show_moves();
        show_graph();
        show_evaluation();
    }
}

void AnalysisPanel::show_activity() {
    m_bar.set_flipped(m_board.is_flipped());
    m_state_line.set_activity(m_activity.text());
    m_state_line.set_last_move(m_activity.last_move());
    if (m_captured_changed) {
        const CapturedPieces captured(m_session.position());
        m_state_line.set_captured(captured.text(), captured.words());
        m_captured_changed = false;
    }
    m_state_line.offer(m_navigation.has_left_game() ? "Resume game" : "");
}

/// While an engine analyses, it speaks for the bar, else the game does.
void AnalysisPanel::show_evaluation() {
    auto evaluation = m_search.evaluation();
    if (!evaluation) evaluation = m_evaluations.at(m_session.record().tree(), m_session.record().current());
    if (m_frame.mode() == Mode::human_computer || !evaluation) return m_bar.set_evaluation(std::nullopt, "");
    m_bar.set_evaluation(evaluation->expected_score(), evaluation->text());
}

void AnalysisPanel::show_moves() {
    const Game& record = m_session.record();
    m_moves_section.set_has_content(!record.is_empty());
    m_moves.set_sheet(MoveSheet(record.tree(), m_review.better_move().covered()));
    m_moves.set_current(record.current());
}

/// The game of a match isn't the person's to step through.
void AnalysisPanel::go_to(std::int32_t node) {
    if (!m_session.seats().only_looks_on()) m_navigation.to_node(node);
}

void AnalysisPanel::carry_out(const MoveRequest& request) {
    if (m_session.seats().only_looks_on()) return;
    const auto node = m_session.record().current();
    switch (request.action) {
        case MoveAction::promote:
            m_editor.promote(request.node);
            break;
        case MoveAction::make_main_line:
            m_editor.make_main_line(request.node);
            break;
        case MoveAction::delete_variation:
            m_editor.delete_variation(request.node);
            break;
        case MoveAction::delete_from_here:
            m_editor.delete_from(request.node);
            break;
        case MoveAction::set_symbol:
            m_editor.set_symbol(request.node, request.glyph);
            break;
        case MoveAction::undo:
            m_editor.undo();
            break;
        case MoveAction::edit_comment:
            go_to(request.node);
            m_edit_comment();
            break;
    }
    // Where the board's own position went, the referee follows.
    if (m_session.record().current() != node) m_navigation.to_node(m_session.record().current());
}

void AnalysisPanel::show_graph() {
    const auto line = m_evaluations.main_line(m_session.record().tree());
    std::vector<GraphPoint> points;
    bool some = false;
    points.reserve(line.size());
    for (const EvaluatedNode& node : line) {
        GraphPoint point;
        point.key = node.node;
        point.label = node.move;
        point.mark = mark_of(m_session.record().tree().node(node.node).nag);
        if (node.evaluation) {
            point.expected = node.evaluation->expected_score();
            point.label += ", " + node.evaluation->text();
            some = true;
        }
        points.push_back(std::move(point));
    }
    // Nobody is helped against the will in a game against the engine.
    m_graph_section.set_has_content(some && points.size() > 1 && m_frame.mode() != Mode::human_computer);
    m_graph.set_points(std::move(points));
    m_graph.set_current(m_session.record().current());
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
    const auto node = m_editor.add_line(m_search.node_of(place.search), moves);
    if (node && m_frame.mode() != Mode::human_computer) m_navigation.to_node(*node);
}

}  // namespace velmora
