#include "window/review/review_run.h"

#include <variant>

#include "analysis/search_info.h"

namespace velmora {

namespace {

constexpr double ms_per_s = 1000;

/// "12... Nf6"; of the position that the game begins with, "the start".
std::string name_of(const GameTree& tree, const ReviewedPosition& position) {
    if (position.node == 0) return "the start";
    const auto& node = tree.node(position.node);
    return std::to_string(node.move_number) + (node.color == Side::white ? ". " : "... ") + node.san;
}

/// A loaded record may hold a result and no move.
bool has_move(const GameTree& tree) {
    const auto first = tree.node(0).child_at(0);
    return first > 0 && tree.node(first).type == ElementType::move;
}

}  // namespace

ReviewRun::ReviewRun(GameSession& session, WindowFrame& frame, Dialogs& dialogs, const SeatedEngine& engine,
                     ReviewLink& link, MessageDispatcher& dispatcher, Stopwatch::TimeSource now)
    : m_session(session), m_frame(frame), m_dialogs(dialogs), m_engine(engine), m_link(link), m_time(now) {
    m_session.on_change([this](Changes changes) {
        if (changes.has(Change::game)) m_left_out.clear();
        if (!m_review || !changes.has({Change::game, Change::record})) return;
        if (changes.has(Change::game) || !m_review->fits(m_session.record())) abandon();
    });
    dispatcher.listen([this](const to_window::Line& line) {
        if (const auto* const reviewed = std::get_if<to_window::Reviewed>(&line)) take(*reviewed);
        if (const auto* const left = std::get_if<to_window::ReviewLeftOut>(&line)) leave_out(*left);
        const auto* const finished = std::get_if<to_window::ReviewFinished>(&line);
        if (finished && finished->run == m_run) finish();
    });
}

void ReviewRun::begin() {
    if (!can_begin()) return;
    const auto settings = m_dialogs.ask_review(m_settings);
    if (!settings) return;
    m_settings = *settings;
    start();
}

bool ReviewRun::can_begin() {
    if (m_frame.mode() == Mode::tournament) {
        m_dialogs.tell_user("A match is being played", "Leave the tournament to review a game.");
    } else if (!has_move(m_session.record().tree())) {
        m_dialogs.tell_user("There is no game to review", "Play one, or load one by the menu File.");
    } else if (!m_engine.is_there()) {
        m_dialogs.tell_user("No engine is loaded",
                            "Load the engine that is to review the game by the menu Engine.");
    } else {
        return true;
    }
    return false;
}

void ReviewRun::start() {
    abandon();
    // What else an engine may be doing ends with its mode.
    m_frame.select_mode(Mode::human_human);
    m_session.apply_comment();
    m_left_out.clear();
    m_review.emplace(m_session.record(), m_settings, m_engine.name());
    const ReviewedLine& line = m_review->line();
    if (!line.unreadable_move().empty()) {
        m_dialogs.tell_user(line.unreadable_move() + " can't be played",
                            line.plies() == 0 ? "There is nothing ahead of it to review."
                                              : "The moves ahead of it are reviewed.");
    }
    // The game may have gone while that was read.
    if (!m_review) return;
    if (line.plies() == 0) return m_review.reset();
    m_done = 0;
    ++m_begun;
    if (m_review->wanted().empty()) return finish();
    m_time.reset();
    m_time.start();
    m_run = m_link.start(m_settings.level, m_review->wanted(), line.text());
}

void ReviewRun::take(const to_window::Reviewed& line) {
    if (!m_review || line.run != m_run) return;
    ++m_done;
    const auto ply = static_cast<std::size_t>(line.ply);
    const SearchInfo info = read_search_info(line.text, m_review->line().at(ply).to_move);
    m_session.edit([&](Game& game) {
        m_review->take(game, ply, info, line.choice);
        return true;
    });
}

void ReviewRun::leave_out(const to_window::ReviewLeftOut& line) {
    if (!m_review || line.run != m_run) return;
    ++m_done;
    const auto& position = m_review->line().at(static_cast<std::size_t>(line.ply));
    m_left_out.push_back(name_of(m_session.record().tree(), position));
}

/// However the run has ended, what it has judged is summed up.
void ReviewRun::finish() {
    if (!m_review) return;
    m_run = 0;
    GameReview review = std::move(*m_review);
    m_review.reset();
    m_session.edit([&](Game& game) {
        review.finish(game);
        return true;
    });
}

void ReviewRun::abandon() {
    if (!m_review) return;
    m_review.reset();
    m_link.stop(m_run);
    m_run = 0;
}

std::optional<ReviewProgress> ReviewRun::progress() const {
    if (!m_review || m_run == 0) return std::nullopt;
    ReviewProgress progress{m_done, m_review->wanted().size(), {}};
    const auto left = static_cast<double>(progress.wanted - std::min(m_done, progress.wanted));
    if (m_settings.level.level_t() == LevelType::fixed_movetime) {
        progress.seconds_left = left * m_settings.level.movetime() / ms_per_s;
    } else if (m_done > 0) {
        progress.seconds_left = left * m_time.elapsed() / static_cast<double>(m_done);
    }
    return progress;
}

}  // namespace velmora
