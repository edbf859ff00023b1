#include "views/review/review_view.h"

#include <array>
#include <cmath>

namespace velmora {

namespace {

constexpr int review_spacing = 6;   // pixels
constexpr int column_spacing = 18;  // pixels

/// Stands for a number that isn't known.
constexpr const char* unknown = "\u2013";

struct Column {
    const char* head;
    const char* meaning;
    std::string (*value)(const SideSummary& summary);
};

/// The signs head the columns as they stand behind the moves.
constexpr std::array<Column, 5> columns = {{
    {"?!", "Inaccuracies", [](const SideSummary& side) { return std::to_string(side.inaccuracies); }},
    {"?", "Mistakes", [](const SideSummary& side) { return std::to_string(side.mistakes); }},
    {"??", "Blunders", [](const SideSummary& side) { return std::to_string(side.blunders); }},
    {"Loss", "Average loss in centipawns",
     [](const SideSummary& side) {
         return side.accuracy ? std::to_string(side.accuracy->average_loss) : std::string(unknown);
     }},
    {"Accuracy", "Accuracy of all moves",
     [](const SideSummary& side) {
         return side.accuracy ? std::to_string(std::lround(side.accuracy->percent)) + "%"
                              : std::string(unknown);
     }},
}};

void wrap(Gtk::Label& label) {
    label.set_xalign(0);
    label.set_line_wrap();
    label.set_no_show_all();
}

void show_or_hide(Gtk::Label& label, const std::string& text) {
    label.set_text(text);
    label.set_visible(!text.empty());
}

void embolden(Gtk::Label& label) {
    Pango::AttrList bold;
    auto weight = Pango::Attribute::create_attr_weight(Pango::WEIGHT_BOLD);
    bold.insert(weight);
    label.set_attributes(bold);
}

}  // namespace

ReviewView::ReviewView()
    : Gtk::Box(Gtk::ORIENTATION_VERTICAL, review_spacing),
      m_running(Gtk::ORIENTATION_HORIZONTAL, review_spacing) {
    m_progress.set_valign(Gtk::ALIGN_CENTER);
    m_progress.get_accessible()->set_name("Review");
    m_running.pack_start(m_progress_text, Gtk::PACK_SHRINK);
    m_running.pack_start(m_progress, Gtk::PACK_EXPAND_WIDGET);
    m_running.pack_start(m_cancel, Gtk::PACK_SHRINK);
    m_table.set_column_spacing(column_spacing);
    // A large font puts them below one another.
    m_steps.set_selection_mode(Gtk::SELECTION_NONE);
    m_steps.set_max_children_per_line(3);
    m_steps.set_column_spacing(review_spacing);
    m_steps.set_row_spacing(review_spacing);
    m_answer.pack_start(m_ask, Gtk::PACK_EXPAND_WIDGET);
    m_answer.pack_start(m_give_up, Gtk::PACK_EXPAND_WIDGET);
    for (Gtk::Widget* button : {static_cast<Gtk::Widget*>(&m_previous), static_cast<Gtk::Widget*>(&m_next),
                                static_cast<Gtk::Widget*>(&m_answer)}) {
        m_steps.add(*button);
    }
    // The keyboard goes to the buttons, not to their places.
    for (Gtk::Widget* place : m_steps.get_children()) place->set_can_focus(false);
    m_previous.set_tooltip_text("Go to the mistake before (Shift+F8)");
    m_next.set_tooltip_text("Go to the next mistake (F8)");
    m_ask.set_tooltip_text("Find a better move than the one marked as a mistake (F7)");
    m_previous.get_accessible()->set_name("Previous mistake");
    m_next.get_accessible()->set_name("Next mistake");
    for (Gtk::Label* label : {&m_by, &m_note, &m_question}) wrap(*label);
    // Each of these is shown where it says something.
    for (Gtk::Widget* widget : {static_cast<Gtk::Widget*>(&m_running), static_cast<Gtk::Widget*>(&m_table)}) {
        widget->show_all();
        widget->set_no_show_all();
        widget->hide();
    }
    m_give_up.set_no_show_all();
    for (Gtk::Widget* widget :
         {static_cast<Gtk::Widget*>(&m_running), static_cast<Gtk::Widget*>(&m_by),
          static_cast<Gtk::Widget*>(&m_table), static_cast<Gtk::Widget*>(&m_note),
          static_cast<Gtk::Widget*>(&m_steps), static_cast<Gtk::Widget*>(&m_question)}) {
        pack_start(*widget, Gtk::PACK_SHRINK);
    }
    m_cancel.signal_clicked().connect([this] { m_cancelled.emit(); });
    m_previous.signal_clicked().connect([this] { m_to_previous.emit(); });
    m_next.signal_clicked().connect([this] { m_to_next.emit(); });
    m_ask.signal_clicked().connect([this] { m_asked.emit(); });
    m_give_up.signal_clicked().connect([this] { m_given_up.emit(); });
}

void ReviewView::show_review(const ShownReview& review) {
    if (m_shown == review) return;
    if (!m_shown || m_shown->summary != review.summary) show_summary(review.summary);
    m_shown = review;
    m_running.set_visible(review.fraction.has_value());
    m_progress.set_fraction(review.fraction.value_or(0));
    m_progress_text.set_text(review.progress);
    show_or_hide(m_note, review.note);
    m_previous.set_sensitive(review.has_mistakes);
    m_next.set_sensitive(review.has_mistakes);
    m_ask.set_sensitive(review.can_ask);
    m_ask.set_visible(!review.asking);
    m_give_up.set_visible(review.asking);
    show_or_hide(m_question, review.question);
}

void ReviewView::show_summary(const std::optional<ReviewSummary>& summary) {
    show_or_hide(m_by, summary ? summary->by : std::string());
    for (Gtk::Widget* child : m_table.get_children()) m_table.remove(*child);
    m_table.set_visible(summary.has_value());
    if (!summary) return;
    const auto add = [this](const std::string& text, int column, int row) -> Gtk::Label& {
        auto* const label = Gtk::make_managed<Gtk::Label>(text);
        label->set_xalign(column == 0 ? 0 : 1);
        m_table.attach(*label, column, row);
        label->show();
        return *label;
    };
    for (std::size_t i = 0; i < columns.size(); ++i) {
        Gtk::Label& head = add(columns[i].head, static_cast<int>(i) + 1, 0);
        head.set_tooltip_text(columns[i].meaning);
        head.get_accessible()->set_name(columns[i].meaning);
        embolden(head);
    }
    int row = 1;
    for (const Side side : {Side::white, Side::black}) {
        embolden(add(side == Side::white ? "White" : "Black", 0, row));
        for (std::size_t i = 0; i < columns.size(); ++i) {
            const auto& of_side = summary->of[side];
            add(of_side ? columns[i].value(*of_side) : std::string(unknown), static_cast<int>(i) + 1, row);
        }
        ++row;
    }
}

}  // namespace velmora
