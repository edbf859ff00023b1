#include "window/session/activity.h"

#include <variant>

#include "game/game_tags.h"

namespace velmora {

Activity::Activity(const GameSession& session, const WindowFrame& frame, const SeatedEngine& engine,
                   MessageDispatcher& dispatcher)
    : m_session(session), m_frame(frame), m_engine(engine) {
    dispatcher.listen([this](const to_window::Line& line) {
        if (const auto* const progress = std::get_if<to_window::MatchProgress>(&line)) m_progress = *progress;
        if (std::holds_alternative<to_window::TournamentFinished>(line)) m_progress.reset();
    });
}

std::string Activity::text() const {
    if (!m_engine.sought().empty()) return "Loading " + m_engine.sought() + "...";
    switch (m_frame.mode()) {
        case Mode::setup:
            return "Set-up";
        case Mode::human_human:
            return "Human - human";
        case Mode::human_computer:
            return human_computer();
        case Mode::analyze_position:
            return "Analysis: " + m_engine.name();
        case Mode::learn_openings:
            return "Opening drill";
        case Mode::tournament:
            return match();
    }
    return {};
}

std::string Activity::human_computer() const {
    if (m_session.record().result() != "*") return "Human - computer: " + m_session.record().result();
    return "Human - computer: " +
           (m_session.engine_to_move() ? m_engine.name() + " thinks" : std::string("your move"));
}

std::string Activity::match() const {
    if (!m_progress) return "Tournament";
    const std::string game =
        "Game " + std::to_string(m_progress->game) + " of " + std::to_string(m_progress->games);
    return m_progress->score == "-" ? game : game + ": " + m_progress->score;
}

std::string Activity::last_move() const {
    const Game& record = m_session.record();
    const MoveSectionElement& node = record.tree().node(record.current());
    std::string text;
    if (node.type == ElementType::move && !node.san.empty()) {
        text = std::to_string(node.move_number) + (node.color == Side::white ? ". " : "... ") + node.san;
    }
    const std::string opening = record.tag("Opening");
    if (opening.empty() || opening == "?") return text;
    return text.empty() ? opening : text + ", " + opening;
}

}  // namespace velmora
