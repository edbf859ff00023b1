#include "window/panel/review_panel.h"

#include <cmath>
#include <string>
#include <utility>

namespace velmora {

namespace {

/// "24 s", "3 min"; at least a second, as long as something is left.
std::string time_text(double seconds) {
    constexpr double s_per_min = 60;
    constexpr double longest_in_s = 100;
    if (seconds <= longest_in_s) return std::to_string(std::lround(std::ceil(seconds))) + " s";
    return std::to_string(std::lround(std::ceil(seconds / s_per_min))) + " min";
}

std::string progress_text(const ReviewProgress& progress) {
    std::string text = std::to_string(progress.done) + " of " + std::to_string(progress.wanted);
    if (progress.seconds_left) text += ", " + time_text(*progress.seconds_left) + " left";
    return text;
}

std::string left_out_text(const std::vector<std::string>& moves) {
    if (moves.empty()) return {};
    std::string text = "The engine said nothing about the position behind ";
    for (const auto& move : moves) {
        if (&move != &moves.front()) text += ", ";
        text += move;
    }
    return text + ".";
}

}  // namespace

ReviewPanel::ReviewPanel(GameSession& session, ReviewRoom& room, SidePanel& panel, std::function<void()> open)
    : m_session(session),
      m_room(room),
      m_panel(panel),
      m_open(std::move(open)),
      m_section(panel.add_section("Review", m_view,
                                  "Choose Game / Review game... to see where the game was decided.")) {
    m_view.signal_cancelled().connect([this] { m_room.run().cancel(); });
    m_view.signal_previous().connect([this] { m_room.to_previous_mistake(); });
    m_view.signal_next().connect([this] { m_room.to_next_mistake(); });
    m_view.signal_asked().connect([this] { m_room.better_move().ask(); });
    m_view.signal_given_up().connect([this] { m_room.better_move().give_up(); });
}

void ReviewPanel::refresh() {
    const auto begun = m_room.run().begun();
    const bool asking = m_room.better_move().is_asking();
    const bool news = begun != std::exchange(m_begun, begun) || (asking && !m_asking);
    m_asking = asking;
    if (news && !m_panel.get_visible()) m_open();
    if (!m_panel.get_visible()) return;
    const ShownReview review = shown();
    m_section.set_has_content(review.fraction || review.summary || review.has_mistakes);
    m_view.show_review(review);
}

ShownReview ReviewPanel::shown() const {
    ShownReview shown;
    if (const auto progress = m_room.run().progress()) {
        shown.fraction = static_cast<double>(progress->done) / static_cast<double>(progress->wanted);
        shown.progress = progress_text(*progress);
    }
    shown.summary = find_review_summary(m_session.record().tree().node(0).comment);
    shown.note = left_out_text(m_room.run().left_out());
    shown.has_mistakes = m_room.has_mistakes();
    shown.can_ask = m_room.better_move().can_ask();
    shown.question = m_room.better_move().text();
    shown.asking = m_room.better_move().is_asking();
    return shown;
}

}  // namespace velmora
