#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "base/stopwatch.h"
#include "review/game_review.h"
#include "window/review/review_link.h"
#include "window/session/dialogs.h"
#include "window/session/game_session.h"
#include "window/session/message_dispatcher.h"
#include "window/session/seated_engine.h"
#include "window/session/window_frame.h"

namespace velmora {

/// How far a review has come.
struct ReviewProgress {
    std::size_t done = 0;    ///< positions, judged or left out
    std::size_t wanted = 0;  ///< in all
    std::optional<double> seconds_left;

    bool operator==(const ReviewProgress&) const = default;
};

/// The review of the game that the window has, from the question to the summary.
///
/// What the referee says of a position goes into the record at once; the person may look at other moves, add
/// variations and comments meanwhile. Where the game that is reviewed isn't there any more, be it changed or
/// gone, the run ends and nothing more is written.
class ReviewRun {
public:
    ReviewRun(GameSession& session, WindowFrame& frame, Dialogs& dialogs, const SeatedEngine& engine,
              ReviewLink& link, MessageDispatcher& dispatcher,
              Stopwatch::TimeSource now = Stopwatch::steady_time);
    ReviewRun(const ReviewRun&) = delete;  // session and dispatcher know where it is
    ReviewRun& operator=(const ReviewRun&) = delete;

    /// Asks how, and begins; says why where there is nothing to review or nobody to do it.
    void begin();
    /// Ends the run; what has been judged stays, with a summary of it.
    void cancel() { m_link.stop(m_run); }

    /// Of the run that is under way; nothing without one.
    std::optional<ReviewProgress> progress() const;

    /// How many reviews have been begun; one may be over before anybody has looked at its progress.
    std::size_t begun() const { return m_begun; }

    /// The positions about which the last run found out nothing, by the moves that lead to them: "12... Nf6".
    const std::vector<std::string>& left_out() const { return m_left_out; }

    /// What was asked for last.
    const ReviewSettings& settings() const { return m_settings; }

private:
    bool can_begin();
    void start();
    void take(const to_window::Reviewed& line);
    void leave_out(const to_window::ReviewLeftOut& line);
    void finish();
    void abandon();

    GameSession& m_session;
    WindowFrame& m_frame;
    Dialogs& m_dialogs;
    const SeatedEngine& m_engine;
    ReviewLink& m_link;
    ReviewSettings m_settings;
    std::optional<GameReview> m_review;  // there while a run is under way
    std::int32_t m_run = 0;
    std::size_t m_begun = 0;
    std::size_t m_done = 0;
    Stopwatch m_time;  // runs since the run began
    std::vector<std::string> m_left_out;
};

}  // namespace velmora
