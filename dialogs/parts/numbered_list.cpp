#include "dialogs/parts/numbered_list.h"

#include <algorithm>
#include <cctype>
#include <string_view>
#include <utility>

#include <gtkmm/cellrenderertext.h>
#include <gtkmm/treeviewcolumn.h>

namespace velmora {
namespace {

/// Letters of the ASCII range match in either case.
bool contains(std::string_view text, std::string_view key) {
    const auto lower = [](char c) { return std::tolower(static_cast<unsigned char>(c)); };
    return std::search(text.begin(), text.end(), key.begin(), key.end(),
                       [&](char a, char b) { return lower(a) == lower(b); }) != text.end();
}

}  // namespace

NumberedList::NumberedList(const NumberedColumns& columns, std::vector<TextColumn> texts)
    : m_number(columns.id),
      m_texts(std::move(texts)),
      m_store(Gtk::ListStore::create(columns)),
      m_first_rows(Gtk::ListStore::create(columns)),
      m_view(m_store) {
    constexpr int number_width = 7;
    constexpr float left = 0.0F, right = 1.0F;
    add_column(m_number, "ID", number_width, false, right);
    for (const auto& text : m_texts) {
        add_column(text.column, text.title, text.width_chars, text.takes_spare_width, left);
    }
    m_view.set_fixed_height_mode(true);
    m_view.set_search_column(m_texts.front().column);
    m_view.set_search_equal_func(
        [this](const Glib::RefPtr<Gtk::TreeModel>&, int, const Glib::ustring& key,
               const Gtk::TreeModel::iterator& row) { return is_mismatch(key, row); });
    m_view.signal_row_activated().connect(
        [this](const Gtk::TreeModel::Path&, Gtk::TreeViewColumn*) { m_answered.emit(); });
    m_view.signal_cursor_changed().connect([this] { m_must_show_selected = true; });
    m_view.signal_draw().connect(
        [this](const Cairo::RefPtr<Cairo::Context>&) {
            if (m_must_show_selected && shows_selected()) m_must_show_selected = false;
            return false;
        },
        false);
    set_policy(Gtk::POLICY_AUTOMATIC, Gtk::POLICY_AUTOMATIC);
    set_shadow_type(Gtk::SHADOW_IN);
    add(m_view);
}

void NumberedList::add_column(const Gtk::TreeModelColumnBase& model_column, const char* title,
                              int width_chars, bool takes_spare_width, float alignment) {
    constexpr int padding = 16;  // pixels: the cell's own and the header's
    int width = 0, height = 0;
    m_view.create_pango_layout(std::string(static_cast<std::size_t>(width_chars), '0'))
        ->get_pixel_size(width, height);

    auto* cell = Gtk::manage(new Gtk::CellRendererText);
    cell->property_ellipsize() = Pango::ELLIPSIZE_END;
    cell->property_single_paragraph_mode() = true;
    cell->property_xalign() = alignment;
    auto* column = Gtk::manage(new Gtk::TreeViewColumn(title, *cell));
    column->add_attribute(cell->property_text(), model_column);
    column->set_alignment(alignment);
    column->set_sizing(Gtk::TREE_VIEW_COLUMN_FIXED);
    column->set_fixed_width(width + padding);
    column->set_resizable(true);
    column->set_expand(takes_spare_width);
    m_view.append_column(*column);
}

void NumberedList::append(const Cells& cells) {
    // One insertion with all values announces the row once; setting cell by cell would announce it each time.
    std::vector<GValue> values(m_texts.size() + 1, GValue(G_VALUE_INIT));
    std::vector<int> columns{m_number.index()};
    g_value_init(&values[0], G_TYPE_INT);
    g_value_set_int(&values[0], static_cast<int>(m_size + 1));
    for (std::size_t i = 0; i < m_texts.size(); ++i) {
        columns.push_back(m_texts[i].column.index());
        g_value_init(&values[i + 1], G_TYPE_STRING);
        g_value_set_static_string(&values[i + 1], cells.at(i).c_str());  // the store makes a copy
    }
    gtk_list_store_insert_with_valuesv(m_store->gobj(), nullptr, -1, columns.data(), values.data(),
                                       static_cast<int>(values.size()));
    ++m_size;
}

void NumberedList::start_bulk() {
    m_first_rows->clear();
    for (const auto& row : m_store->children()) {
        const auto copy = *m_first_rows->append();
        copy[m_number] = row.get_value(m_number);
        for (const auto& text : m_texts) copy[text.column] = row.get_value(text.column);
    }
    m_in_bulk = true;
    show_store(m_first_rows);
}

void NumberedList::finish_bulk() {
    if (!m_in_bulk) return;
    m_in_bulk = false;
    show_store(m_store);
}

void NumberedList::show_store(const Glib::RefPtr<Gtk::ListStore>& store) {
    const auto row = selected();
    // Where the list stands tells nothing while it is on its way to the row that was just selected: the new
    // model would end that.
    const bool must_show_selected = m_must_show_selected;
    Gtk::TreeModel::Path first_visible, last_visible;
    const bool scrolled = m_view.get_visible_range(first_visible, last_visible);
    m_view.set_model(store);
    m_view.set_search_column(m_texts.front().column);  // a new model makes it the first one
    if (row) m_view.set_cursor(Gtk::TreeModel::Path(std::to_string(*row)));
    if (scrolled && !must_show_selected) m_view.scroll_to_row(first_visible, 0);
    m_must_show_selected = must_show_selected;
}

bool NumberedList::shows_selected() {
    const auto row = selected();
    Gtk::TreeModel::Path first, last;
    if (!row || !m_view.get_visible_range(first, last)) return false;
    return static_cast<std::size_t>(first[0]) <= *row && *row <= static_cast<std::size_t>(last[0]);
}

void NumberedList::clear() {
    finish_bulk();
    m_store->clear();
    m_size = 0;
}

void NumberedList::select_first() {
    if (m_size == 0) return;
    m_view.set_cursor(Gtk::TreeModel::Path("0"));
    m_view.grab_focus();
}

std::optional<std::size_t> NumberedList::selected() {
    const auto row = m_view.get_selection()->get_selected();
    if (!row) return std::nullopt;
    return static_cast<std::size_t>(m_view.get_model()->get_path(row)[0]);
}

bool NumberedList::is_mismatch(const Glib::ustring& key, const Gtk::TreeModel::iterator& row) const {
    if (std::to_string(row->get_value(m_number)) == key.raw()) return false;
    return std::none_of(m_texts.begin(), m_texts.end(), [&](const TextColumn& text) {
        const Glib::ustring cell = row->get_value(text.column);
        return contains(cell.raw(), key.raw());
    });
}

}  // namespace velmora
