#pragma once

#include <memory>
#include <optional>
#include <string>

#include <gtkmm/box.h>
#include <gtkmm/button.h>
#include <gtkmm/flowbox.h>
#include <gtkmm/grid.h>
#include <gtkmm/label.h>
#include <gtkmm/progressbar.h>

#include "review/review_summary.h"

namespace velmora {

/// What the view of a review shows.
struct ShownReview {
    std::optional<double> fraction;  ///< of a run that is under way, 0 to 1; nothing without one
    std::string progress;            ///< "31 of 80, 24 s left"
    std::optional<ReviewSummary> summary;
    std::string note;  ///< a sentence below the summary, empty for none
    bool has_mistakes = false;
    bool can_ask = false;
    std::string question;  ///< of the better move, or the verdict on an answer; empty for none
    bool asking = false;   ///< an answer is looked for

    bool operator==(const ShownReview&) const = default;
};

/// A review beside the board: how far it has come, how many mistakes each side has made, the buttons that go
/// from one to the next, and the question for a better move.
class ReviewView : public Gtk::Box {
public:
    ReviewView();

    void show_review(const ShownReview& review);

    sigc::signal<void>& signal_cancelled() { return m_cancelled; }
    sigc::signal<void>& signal_previous() { return m_to_previous; }
    sigc::signal<void>& signal_next() { return m_to_next; }
    sigc::signal<void>& signal_asked() { return m_asked; }
    sigc::signal<void>& signal_given_up() { return m_given_up; }

private:
    void show_summary(const std::optional<ReviewSummary>& summary);

    std::optional<ShownReview> m_shown;

    Gtk::Box m_running;
    Gtk::Label m_progress_text;
    Gtk::ProgressBar m_progress;
    Gtk::Button m_cancel{"Cancel"};
    Gtk::Label m_by;
    Gtk::Grid m_table;
    Gtk::Label m_note;
    Gtk::FlowBox m_steps;
    Gtk::Button m_previous{"Previous"};
    Gtk::Button m_next{"Next"};
    Gtk::Box m_answer;  // one of the two that follow
    Gtk::Button m_ask{"Find the better move"};
    Gtk::Button m_give_up{"Show the answer"};
    Gtk::Label m_question;

    sigc::signal<void> m_cancelled, m_to_previous, m_to_next, m_asked, m_given_up;
};

}  // namespace velmora
