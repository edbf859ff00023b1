#include "views/text/pgn_view.h"

#include <algorithm>
#include <limits>

#include "base/text.h"
#include "views/text/late_scroller.h"
#include "views/text/pgn_text.h"

namespace velmora {

namespace {

constexpr char tag_name[] = "blue_move";

int character_offset(std::int64_t offset) {
    return int(std::min<std::int64_t>(offset, std::numeric_limits<int>::max()));
}

}  // namespace

PgnView::PgnView() : m_buffer(m_view.get_buffer()) {
    set_title("PGN");
    set_border_width(5);
    set_default_size(600, 400);
    m_tag = m_buffer->create_tag(tag_name);
    m_tag->property_foreground() = "blue";
    m_tag->property_weight() = 700;
    m_tag->property_background() = "#dbe5ff";  // or else a dark theme leaves blue on black
    m_current = m_buffer->create_mark("current", m_buffer->begin());
    m_view.set_editable(false);
    m_view.set_cursor_visible(false);
    m_view.set_wrap_mode(Gtk::WRAP_NONE);
    m_view.get_accessible()->set_name("Moves of the game");
    m_view.get_accessible()->set_description("Click a move to go there");
    m_view.add_events(Gdk::BUTTON_PRESS_MASK);
    m_view.signal_button_press_event().connect(sigc::mem_fun(*this, &PgnView::on_view_pressed), false);
}

void PgnView::on_show() {
    add_scroller(*this, m_view, Gtk::POLICY_AUTOMATIC);
    Gtk::Window::on_show();
}

void PgnView::set_text(const std::string& text) {
    const std::string shown = text::displayable(text);
    // Only what differs is replaced: a long game is not laid out anew for each move, and the view stays where
    // it is.
    const TextChange change = change_between(m_text, shown);
    m_buffer->remove_all_tags(m_buffer->begin(), m_buffer->end());
    const auto begin = m_buffer->get_iter_at_offset(int(change.front));
    const auto end = m_buffer->get_iter_at_offset(m_buffer->get_char_count() - int(change.back));
    const auto gap = m_buffer->erase(begin, end);
    m_buffer->insert(gap, change.inserted.data(), change.inserted.data() + change.inserted.size());
    m_text = shown;
}

void PgnView::highlight(std::int64_t begin, std::int64_t end) {
    if (begin < 1 || begin > end) return;
    m_buffer->remove_tag(m_tag, m_buffer->begin(), m_buffer->end());
    const auto first = m_buffer->get_iter_at_offset(character_offset(begin));
    m_buffer->apply_tag(m_tag, first, m_buffer->get_iter_at_offset(character_offset(end)));
    m_buffer->move_mark(m_current, first);
    m_view.scroll_to(m_current, 0.1);
}

bool PgnView::on_view_pressed(GdkEventButton* event) {
    if (event->type == GDK_BUTTON_PRESS && event->button == GDK_BUTTON_PRIMARY) {
        int x = 0, y = 0;
        m_view.window_to_buffer_coords(Gtk::TEXT_WINDOW_TEXT, int(event->x), int(event->y), x, y);
        Gtk::TextIter at;
        m_view.get_iter_at_location(at, x, y);
        m_clicked.emit(clicked_offset(m_text, std::size_t(at.get_offset())));
    }
    return false;  // the view selects text by the same press
}

}  // namespace velmora
