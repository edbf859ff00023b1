#include "window/review/better_move.h"

#include <variant>

#include "analysis/evaluation.h"
#include "analysis/search_info.h"
#include "chess/moves/legal_moves.h"
#include "chess/notation/san_writer.h"
#include "review/mistakes.h"
#include "review/review_note.h"
#include "review/reviewed_line.h"
#include "review/verdict.h"

namespace velmora {

namespace {

/// A move that costs less of the winning chances is as good as the best one.
constexpr double unnoticed_loss = 0.05;

std::string numbered(const MoveSectionElement& node) {
    return std::to_string(node.move_number) + (node.color == Side::white ? ". " : "... ") + node.san;
}

}  // namespace

BetterMove::BetterMove(GameSession& session, WindowFrame& frame, Navigation& navigation, UserMoves& moves,
                       const SeatedEngine& engine, const ReviewRun& review, ReviewLink& link,
                       MessageDispatcher& dispatcher)
    : m_session(session),
      m_frame(frame),
      m_navigation(navigation),
      m_engine(engine),
      m_review(review),
      m_link(link) {
    m_session.on_change([this](Changes changes) {
        if (m_state == State::none) return;
        if (!changes.has(Change::game) && m_session.record().current() == m_place) return;
        m_link.stop(m_run);
        m_state = State::none;
        m_text.clear();
    });
    moves.divert([this](const Move& move) { return answer(move); });
    dispatcher.listen([this](const to_window::Line& line) {
        if (const auto* const reviewed = std::get_if<to_window::Reviewed>(&line)) take(*reviewed);
        const auto* const finished = std::get_if<to_window::ReviewFinished>(&line);
        if (finished && finished->run == m_run && m_state == State::judging) {
            set(State::asked, "The engine gives no answer about " + m_answer + ".");
        }
    });
}

/// The move that is to be bettered, 0 for none.
std::int32_t BetterMove::marked_move() const {
    const auto& tree = m_session.record().tree();
    const auto current = m_session.record().current();
    for (const auto node : {current, tree.node(current).child_at(0)}) {
        if (better_move(tree, node)) return node;
    }
    return 0;
}

void BetterMove::ask() {
    if (!can_ask()) return;
    const auto& tree = m_session.record().tree();
    const auto marked = marked_move();
    // Analysis would give the answer away.
    m_frame.select_mode(Mode::human_human);
    m_navigation.to_node(tree.node(marked).pid);
    if (m_session.record().current() != tree.node(marked).pid) return;
    m_marked = marked;
    m_place = tree.node(marked).pid;
    set(State::asked, std::string(m_session.side_to_move() == Side::white ? "White" : "Black") +
                          " to move: find a better move than " + numbered(tree.node(marked)) + ".");
}

void BetterMove::give_up() {
    if (!is_asking()) return;
    m_link.stop(m_run);
    set(State::solved, "The engine's choice is " + solution() + ".");
}

std::string BetterMove::solution() const {
    const auto& tree = m_session.record().tree();
    const auto node = better_move(tree, m_marked);
    return node ? numbered(tree.node(*node)) : "not in the record any more";
}

/// True for a move that is an answer and isn't to be played.
bool BetterMove::answer(const Move& move) {
    if (!is_asking()) return false;
    if (m_state == State::judging) return true;
    const auto& tree = m_session.record().tree();
    const auto best = better_move(tree, m_marked);
    const std::string san = write_san(m_session.position(), move);
    if (best && tree.node(*best).san == san) {
        set(State::solved, san + " is the engine's choice.");
    } else if (tree.node(m_marked).san == san) {
        set(State::asked, san + " was played. Look for a better move.");
    } else {
        judge(move, san);
    }
    return true;
}

void BetterMove::judge(const Move& move, const std::string& san) {
    m_answer = san;
    ChessPosition behind = m_session.position();
    behind.do_move(move);
    if (legal_moves(behind).empty() && behind.in_check()) {
        set(State::solved, san + " is mate.");
    } else if (!m_engine.is_there()) {
        set(State::asked,
            san + " isn't the engine's choice, and without an engine nobody can tell how good it is.");
    } else {
        const auto& record = m_session.record();
        const auto note = find_review_note(record.tree().node(0).comment);
        const ReviewedLine line(record);
        std::size_t ply = 0;
        while (ply < line.plies() && line.at(ply).node != m_place) ++ply;
        set(State::judging, "Looking at " + san + "...");
        m_run = m_link.start(note ? note->level : m_review.settings().level, {ply + 1},
                             line.text(ply) + ' ' + move.to_string(true));
    }
}

void BetterMove::take(const to_window::Reviewed& line) {
    if (m_state != State::judging || line.run != m_run) return;
    const Side mover = m_session.side_to_move();
    const auto& tree = m_session.record().tree();
    const auto best = better_move(tree, m_marked);
    const ReviewedLine known(m_session.record());
    std::size_t ply = 0;
    while (ply < known.plies() && known.at(ply).node != m_place) ++ply;
    const auto before = known.at(ply).evaluation;
    const auto after = read_search_info(line.text, opposite(mover)).score;
    if (!before || !after || !best) {
        return set(State::asked, m_answer + " isn't the engine's choice, and nothing more is known of it.");
    }
    const std::string value = m_answer + " (" + after->text() + ")";
    if (winning_chances(*before, mover) - winning_chances(*after, mover) < unnoticed_loss) {
        set(State::solved, value + " is good, too. The engine's choice is " + solution() + ".");
    } else {
        set(State::asked, value + " isn't good enough. Try another move.");
    }
}

void BetterMove::set(State state, const std::string& text) {
    m_state = state;
    m_text = text;
    // The alternatives are covered or uncovered, and a piece that was dragged goes back.
    m_session.tell({Change::record, Change::position});
}

}  // namespace velmora
