#include "views/moves/moves_view.h"

#include <algorithm>
#include <utility>

#include <gdk/gdkkeysyms.h>

#include "game/move_symbols.h"

namespace velmora {

namespace {

constexpr int margin = 6;         // pixels around the text
constexpr int indentation = 14;   // pixels a level of variations
constexpr int deepest_shown = 8;  // levels that are told apart by their indentation

/// The colour of a theme, or what serves any theme where it has no such name.
Gdk::RGBA theme_color(const Glib::RefPtr<Gtk::StyleContext>& style, const char* name, const char* otherwise) {
    Gdk::RGBA color;
    return style->lookup_color(name, color) ? color : Gdk::RGBA(otherwise);
}

}  // namespace

MovesView::MovesView() {
    set_policy(Gtk::POLICY_NEVER, Gtk::POLICY_AUTOMATIC);
    m_text.set_editable(false);
    m_text.set_cursor_visible(false);
    m_text.set_wrap_mode(Gtk::WRAP_WORD_CHAR);
    m_text.set_left_margin(margin);
    m_text.set_right_margin(margin);
    m_text.set_top_margin(margin / 2);
    m_text.set_accepts_tab(false);
    m_text.get_accessible()->set_name("Moves of the game");
    m_text.get_accessible()->set_description("Press a move to go there, Menu for what can be done to it");
    create_tags();
    color_tags();
    find_signs();
    m_text.add_events(Gdk::BUTTON_PRESS_MASK | Gdk::SCROLL_MASK | Gdk::SMOOTH_SCROLL_MASK);
    m_text.signal_button_press_event().connect(sigc::mem_fun(*this, &MovesView::on_pressed), false);
    m_text.signal_key_press_event().connect(sigc::mem_fun(*this, &MovesView::on_key), false);
    m_text.signal_scroll_event().connect(sigc::mem_fun(*this, &MovesView::on_wheel), false);
    m_text.signal_popup_menu().connect(sigc::mem_fun(*this, &MovesView::on_menu_key), false);
    m_text.signal_size_allocate().connect(
        [this](const Gtk::Allocation& area) { set_columns(area.get_width()); });
    m_menu.menu().attach_to_widget(m_text);
    add(m_text);
}

// ---- What it looks like

void MovesView::create_tags() {
    m_columns = m_buffer->create_tag();
    m_main_text = m_buffer->create_tag();
    for (int depth = 1; depth <= deepest_shown; ++depth) {
        auto tag = m_buffer->create_tag();
        tag->property_left_margin() = margin + depth * indentation;
        m_depths.push_back(tag);
    }
    m_comment = m_buffer->create_tag();
    m_comment->property_style() = Pango::STYLE_ITALIC;
    m_chip = m_buffer->create_tag();
    m_chip->property_scale() = Pango::SCALE_SMALL;
    m_current_tag = m_buffer->create_tag();
    m_current_tag->property_weight() = Pango::WEIGHT_BOLD;
}

void MovesView::color_tags() {
    const auto style = m_text.get_style_context();
    m_current_tag->property_background_rgba() = theme_color(style, "theme_selected_bg_color", "#3584e4");
    m_current_tag->property_foreground_rgba() = theme_color(style, "theme_selected_fg_color", "#ffffff");
    Gdk::RGBA tint = style->get_color(Gtk::STATE_FLAG_NORMAL);
    tint.set_alpha(0.12);
    m_chip->property_background_rgba() = tint;
}

void MovesView::on_style_updated() {
    Gtk::ScrolledWindow::on_style_updated();
    color_tags();
    find_signs();
    set_columns(m_text.get_allocated_width());
}

/// Some fonts lack some of the signs: a box with a number in it tells nobody anything.
void MovesView::find_signs() {
    const auto before = m_signs;
    for (const MoveSymbol& symbol : move_symbols()) {
        const auto layout = m_text.create_pango_layout(std::string(symbol.sign));
        const bool is_known = layout->get_unknown_glyphs_count() == 0;
        m_signs[std::string(symbol.glyph)] = is_known ? symbol.sign : symbol.plain;
    }
    if (m_signs != before) replace_rows(rows_of(m_sheet, m_layout, m_sign_of));
}

std::string MovesView::sign(const std::string& glyph) const {
    const auto found = m_signs.find(glyph);
    return found == m_signs.end() ? glyph : found->second;
}

/// The number's column is as wide as the widest number with a blank; the two sides share what is left.
void MovesView::set_columns(int width) {
    int number = 0, height = 0;
    m_text.create_pango_layout("888. ")->get_pixel_size(number, height);
    const int side = std::max((width - 2 * margin - number) / 2, 1);
    // Each change has all rows laid out anew.
    if (std::exchange(m_column_stops, {number, number + side}) == std::pair(number, number + side)) return;
    Pango::TabArray tabs(2, true);
    tabs.set_tab(0, Pango::TAB_LEFT, number);
    tabs.set_tab(1, Pango::TAB_LEFT, number + side);
    m_columns->property_tabs() = tabs;
    // What wraps begins under White's move.
    m_columns->property_indent() = -number;
}

void MovesView::set_layout(MovesLayout layout) {
    if (layout == m_layout) return;
    m_layout = layout;
    replace_rows(rows_of(m_sheet, m_layout, m_sign_of));
}

// ---- What it shows

void MovesView::set_sheet(MoveSheet sheet) {
    m_sheet = std::move(sheet);
    replace_rows(rows_of(m_sheet, m_layout, m_sign_of));
    m_text.moves_changed();
}

void MovesView::set_current(std::int32_t node) {
    m_current = node;
    mark_current();
    scroll_to_current();
}

Gtk::TextIter MovesView::iter_at(std::size_t row, int character) const {
    return m_buffer->get_iter_at_offset(m_row_begin[row] + character);
}

void MovesView::replace_rows(MoveRows rows) {
    unmark();
    const auto& before = m_rows.rows;
    const auto& after = rows.rows;
    const auto shorter = std::min(before.size(), after.size());
    std::size_t front = 0, back = 0;
    while (front < shorter && before[front] == after[front]) ++front;
    while (back < shorter - front && before[before.size() - 1 - back] == after[after.size() - 1 - back])
        ++back;
    const auto old_end = before.size() - back;
    if (front < old_end) m_buffer->erase(iter_at(front, 0), iter_at(old_end, 0));
    m_rows = std::move(rows);
    m_row_begin.resize(front + 1);
    for (std::size_t row = front; row < m_rows.rows.size(); ++row)
        m_row_begin.push_back(m_row_begin.back() + m_rows.rows[row].characters + 1);
    insert_rows(front, m_rows.rows.size() - back);
    mark_current();
}

/// One text in one piece, which takes a tenth of the time of its rows one by one.
void MovesView::insert_rows(std::size_t begin, std::size_t end) {
    if (begin == end) return;
    std::string text;
    for (std::size_t row = begin; row < end; ++row) text.append(m_rows.rows[row].text).append("\n");
    m_buffer->insert(iter_at(begin, 0), text.data(), text.data() + text.size());
    // Between two rows of one kind it has become of this kind, too.
    m_buffer->remove_all_tags(iter_at(begin, 0), iter_at(end, 0));
    tag_rows(begin, end);
}

void MovesView::tag_rows(std::size_t begin, std::size_t end) {
    for (std::size_t row = begin; row < end;) {
        const auto& tag = tag_of(m_rows.rows[row]);
        auto next = row + 1;
        while (next < end && tag_of(m_rows.rows[next]) == tag) ++next;
        m_buffer->apply_tag(tag, iter_at(row, 0), iter_at(next, 0));
        for (; row < next; ++row) {
            for (const auto& span : m_rows.rows[row].spans) {
                m_buffer->apply_tag(span.kind == RowSpan::Kind::chip ? m_chip : m_comment,
                                    iter_at(row, span.begin), iter_at(row, span.end));
            }
        }
    }
}

const Glib::RefPtr<Gtk::TextTag>& MovesView::tag_of(const MoveRow& row) const {
    const auto level = [](int depth) { return static_cast<std::size_t>(std::min(depth, deepest_shown)) - 1; };
    switch (row.style) {
        case RowStyle::columns:
            return m_columns;
        case RowStyle::main_text:
            return m_main_text;
        case RowStyle::comment:
            return m_depths.front();
        case RowStyle::variation:
            return m_depths[level(row.depth)];
    }
    return m_main_text;
}

/// From the marked move alone: what a tag is taken off is laid out anew, wherever the tag was.
void MovesView::unmark() {
    if (m_marked.first == m_marked.second) return;
    m_buffer->remove_tag(m_current_tag, m_buffer->get_iter_at_offset(m_marked.first),
                         m_buffer->get_iter_at_offset(m_marked.second));
    m_marked = {};
}

void MovesView::mark_current() {
    unmark();
    const auto item = m_sheet.index_of(m_current);
    const auto& places = m_rows.places;
    const auto found =
        std::lower_bound(places.begin(), places.end(), item,
                         [](const auto& place, std::size_t wanted) { return place.item < wanted; });
    const bool is_there = item != MoveSheet::none && found != places.end() && found->item == item;
    m_current_place = is_there ? static_cast<std::size_t>(found - places.begin()) : MoveSheet::none;
    if (is_there) {
        const int begin = m_row_begin[found->row];
        m_marked = {begin + found->begin, begin + found->end};
        m_buffer->apply_tag(m_current_tag, m_buffer->get_iter_at_offset(m_marked.first),
                            m_buffer->get_iter_at_offset(m_marked.second));
    }
    m_text.current_changed(m_current_place);
}

/// By the mark of the cursor, from which a reader reads on.
void MovesView::scroll_to_current() {
    Gtk::TextIter to = m_buffer->begin();
    if (m_current_place != MoveSheet::none) {
        const auto& place = m_rows.places[m_current_place];
        to = iter_at(place.row, place.begin);
    }
    m_buffer->place_cursor(to);
    m_text.scroll_to(m_buffer->get_insert());
}

// ---- For a screen reader

std::string MovesView::name(std::size_t index) const {
    const auto& item = item_at(index);
    return item.kind == SheetItemKind::move ? m_sheet.in_words(m_rows.places[index].item) : item.text;
}

Gdk::Rectangle MovesView::place(std::size_t index) const {
    const auto& place = m_rows.places[index];
    Gdk::Rectangle first, last;
    m_text.get_iter_location(iter_at(place.row, place.begin), first);
    m_text.get_iter_location(iter_at(place.row, place.end - 1), last);
    int x = 0, y = 0;
    m_text.buffer_to_window_coords(Gtk::TEXT_WINDOW_WIDGET, first.get_x(), first.get_y(), x, y);
    return {x, y, last.get_x() + last.get_width() - first.get_x(), first.get_height()};
}

// ---- What the person does

const SheetItem* MovesView::current_move() const {
    if (m_current_place == MoveSheet::none) return nullptr;
    const auto& item = item_at(m_current_place);
    return item.kind == SheetItemKind::move ? &item : nullptr;
}

std::size_t MovesView::place_at(double x, double y) const {
    int buffer_x = 0, buffer_y = 0;
    m_text.window_to_buffer_coords(Gtk::TEXT_WINDOW_TEXT, int(x), int(y), buffer_x, buffer_y);
    Gtk::TextIter at;
    m_text.get_iter_at_location(at, buffer_x, buffer_y);
    const auto row = static_cast<std::size_t>(at.get_line());
    if (row >= m_rows.rows.size()) return MoveSheet::none;
    const int character = at.get_line_offset();
    const auto& places = m_rows.places;
    const auto behind = std::upper_bound(
        places.begin(), places.end(), std::pair(row, character),
        [](const auto& point, const auto& place) { return point < std::pair(place.row, place.begin); });
    if (behind == places.begin()) return MoveSheet::none;
    const auto found = std::prev(behind);
    return found->row == row && character < found->reach ? static_cast<std::size_t>(found - places.begin())
                                                         : MoveSheet::none;
}

bool MovesView::choose(std::int32_t node) {
    if (node >= 0) m_move_chosen.emit(node);
    return node >= 0;
}

/// Beside the moves the text view goes on: comments can be selected and copied.
bool MovesView::on_pressed(GdkEventButton* event) {
    if (event->type != GDK_BUTTON_PRESS) return false;
    const auto place = place_at(event->x, event->y);
    const SheetItem* const item = place == MoveSheet::none ? nullptr : &item_at(place);
    m_text.grab_focus();
    if (gdk_event_triggers_context_menu(reinterpret_cast<GdkEvent*>(event))) {
        const bool is_move = item && item->kind == SheetItemKind::move;
        m_menu.fill(!item ? current_move() : is_move ? item : nullptr, m_sign_of);
        m_menu.menu().popup_at_pointer(reinterpret_cast<GdkEvent*>(event));
        return true;
    }
    return event->button == GDK_BUTTON_PRIMARY && item && choose(item->node);
}

bool MovesView::on_menu_key() {
    m_menu.fill(current_move(), m_sign_of);
    const Gdk::Rectangle at =
        m_current_place == MoveSheet::none ? Gdk::Rectangle(margin, margin, 1, 1) : place(m_current_place);
    m_menu.menu().popup_at_rect(m_text.get_window(Gtk::TEXT_WINDOW_WIDGET), at, Gdk::GRAVITY_SOUTH_WEST,
                                Gdk::GRAVITY_NORTH_WEST, nullptr);
    return true;
}

bool MovesView::on_key(GdkEventKey* event) {
    const auto modifiers = event->state & gtk_accelerator_get_default_mod_mask();
    if (modifiers == GDK_CONTROL_MASK && (event->keyval == GDK_KEY_z || event->keyval == GDK_KEY_Z)) {
        m_request.emit({MoveAction::undo, 0, {}});
        return true;
    }
    const SheetItem* const move = current_move();
    if (modifiers != 0 || !move) return false;
    switch (event->keyval) {
        case GDK_KEY_Up:
            return choose(move->above);
        case GDK_KEY_Down:
            return choose(move->below);
        case GDK_KEY_Delete:
        case GDK_KEY_KP_Delete:
            m_request.emit({MoveAction::delete_from_here, move->node, {}});
            return true;
        default:
            return false;
    }
}

/// A touchpad tells parts of a step, which are put together.
bool MovesView::on_wheel(GdkEventScroll* event) {
    // With a modifier it scrolls.
    if ((event->state & gtk_accelerator_get_default_mod_mask()) != 0) return false;
    if (const int steps = m_wheel.take(*event)) m_step.emit(steps);
    return true;
}

}  // namespace velmora
