#include "views/text/analysis_window.h"

#include <utility>

#include <glibmm/main.h>
#include <gtkmm/scrolledwindow.h>

#include "base/text.h"
#include "views/text/late_scroller.h"
#include "views/text/pane_text.h"

namespace velmora {

namespace {

/// A pane that has grown beyond the one is cut to the other, so that a night of analysis fits into memory and
/// the cutting is rare.
constexpr int most_lines = 10000;
constexpr int lines_kept = 9000;

}  // namespace

AnalysisWindow::AnalysisWindow() {
    set_title("Engines: output");
    set_border_width(5);
    set_default_size(600, 300);
    set_up(m_sides[Side::black], "Black");
    set_up(m_sides[Side::white], "White");
    m_panes.pack1(m_sides[Side::black].frame, true, true);
    m_panes.pack2(m_sides[Side::white].frame, true, true);
    m_panes.set_position(145);
    add(m_panes);
}

void AnalysisWindow::set_up(Pane& pane, const char* label) {
    pane.frame.set_label(label);
    pane.view.set_editable(false);
    pane.view.set_cursor_visible(false);
    pane.view.set_wrap_mode(Gtk::WRAP_WORD);
    pane.view.get_accessible()->set_name(std::string(label) + ": engine output");
    pane.buffer = pane.view.get_buffer();
    pane.end = pane.buffer->create_mark("end", pane.buffer->end(), false);
}

void AnalysisWindow::on_show() {
    for (const Side side : {Side::white, Side::black}) add_scroll_bars(m_sides[side]);
    Gtk::Window::on_show();
    put_in_soon();
}

void AnalysisWindow::add_scroll_bars(Pane& pane) {
    auto* const scroller = add_scroller(pane.frame, pane.view, Gtk::POLICY_AUTOMATIC);
    if (scroller == nullptr) return;
    // Lines that were added out of sight get their height now that the window is shown; the end moves away
    // until then.
    const auto position = scroller->get_vadjustment();
    position->signal_changed().connect([position = position.get()] {
        position->set_value(position->get_upper() - position->get_page_size());
    });
}

void AnalysisWindow::add_line(Side side, const std::string& text) {
    auto& waiting = m_sides[side].waiting;
    waiting.push_back(text::displayable(text));
    if (get_visible()) return put_in_soon();
    if (waiting.size() > std::size_t{2} * most_lines)
        waiting.erase(waiting.begin(), waiting.begin() + most_lines);
}

void AnalysisWindow::put_in_soon() {
    if (!m_adding) {
        m_adding = Glib::signal_idle().connect(sigc::mem_fun(*this, &AnalysisWindow::add_waiting),
                                               Glib::PRIORITY_HIGH_IDLE);
    }
}

void AnalysisWindow::clear() {
    for (const Side side : {Side::white, Side::black}) {
        m_sides[side].waiting.clear();
        m_sides[side].buffer->set_text("");
    }
}

bool AnalysisWindow::add_waiting() {
    for (const Side side : {Side::white, Side::black}) {
        if (!m_sides[side].waiting.empty()) lengthen(m_sides[side]);
    }
    return false;
}

/// The view follows the end by a mark, which stays there when text is put in ahead of it.
void AnalysisWindow::lengthen(Pane& pane) {
    const auto& buffer = pane.buffer;
    const auto texts = std::exchange(pane.waiting, {});
    const PaneChange change = lengthen_pane(std::size_t(buffer->get_char_count()), texts);
    auto kept_end = buffer->end();
    kept_end.backward_chars(int(change.removed));
    buffer->insert(buffer->erase(kept_end, buffer->end()), change.added);
    if (buffer->get_line_count() > most_lines) {
        buffer->erase(buffer->begin(), buffer->get_iter_at_line(buffer->get_line_count() - lines_kept));
    }
    pane.view.scroll_to(pane.end);
}

}  // namespace velmora
