#include "views/tournament/standings_window.h"

#include <gtkmm/clipboard.h>

namespace velmora {

namespace {

constexpr int window_spacing = 6;  // pixels

using Rows = std::vector<std::vector<std::string>>;
using Columns = std::vector<TextTableView::Column>;

Columns standings_columns() {
    return {{"", "Place", true},
            {"Name", "", false},
            {"Points", "A win is 1, a draw 0.5", true},
            {"Games", "Games with a result", true},
            {"+ White", "Games won with White", true},
            {"+ Black", "Games won with Black", true},
            {"=", "Games drawn", true},
            {"\u2212", "Games lost", true},
            {"Elo", "Difference in strength to the opponents, by the score", true},
            {"\u00b1", "The difference lies within this with a probability of 95 %", true},
            {"SB", "Sonneborn-Berger: points of the opponents, times the points taken from them", true}};
}

Rows standings_rows(const StandingsSheet& sheet) {
    Rows rows;
    for (const auto& line : sheet.lines) {
        rows.push_back({std::to_string(rows.size() + 1), line.name, line.points, line.games, line.white_wins,
                        line.black_wins, line.draws, line.losses, line.elo, line.error, line.tie_break});
    }
    return rows;
}

Columns cross_columns(const StandingsSheet& sheet) {
    Columns columns{{"", "Place", true}, {"Name", "", false}};
    for (std::size_t i = 0; i < sheet.lines.size(); ++i) {
        columns.push_back({std::to_string(i + 1), sheet.lines[i].name, true});
    }
    return columns;
}

Rows cross_rows(const StandingsSheet& sheet) {
    Rows rows;
    for (std::size_t i = 0; i < sheet.lines.size(); ++i) {
        rows.push_back({std::to_string(i + 1), sheet.lines[i].name});
        for (std::size_t j = 0; j < sheet.lines.size(); ++j) {
            rows.back().push_back(i == j ? "\u2013" : sheet.lines[i].against[j]);
        }
    }
    return rows;
}

void make_heading(Gtk::Label& label) {
    Pango::AttrList bold;
    auto weight = Pango::Attribute::create_attr_weight(Pango::WEIGHT_BOLD);
    bold.insert(weight);
    label.set_attributes(bold);
    label.set_xalign(0);
}

}  // namespace

TextTableView::TextTableView(const Glib::ustring& name) {
    set_policy(Gtk::POLICY_AUTOMATIC, Gtk::POLICY_AUTOMATIC);
    set_shadow_type(Gtk::SHADOW_IN);
    m_view.get_accessible()->set_name(name);
    add(m_view);
}

void TextTableView::set_columns(const std::vector<Column>& columns) {
    std::vector<Glib::ustring> titles;
    titles.reserve(columns.size());
    for (const auto& column : columns) titles.push_back(column.title + '\n' + column.meaning);
    if (titles == m_titles) return;
    m_titles = std::move(titles);
    m_view.unset_model();
    m_view.remove_all_columns();
    Gtk::TreeModel::ColumnRecord record;
    m_texts.assign(columns.size(), {});
    for (auto& text : m_texts) record.add(text);
    m_store = Gtk::ListStore::create(record);
    m_view.set_model(m_store);
    for (std::size_t i = 0; i < columns.size(); ++i) {
        const int count = m_view.append_column("", m_texts[i]);
        auto* const column = m_view.get_column(count - 1);
        auto* const title = Gtk::make_managed<Gtk::Label>(columns[i].title);
        title->set_tooltip_text(columns[i].meaning);
        title->show();
        column->set_widget(*title);
        column->set_resizable();
        column->set_expand(!columns[i].is_number);
        if (!columns[i].is_number) continue;
        column->set_alignment(Gtk::ALIGN_END);
        column->get_first_cell()->set_alignment(1, 0.5F);
    }
}

void TextTableView::show_rows(const std::vector<Column>& columns,
                              const std::vector<std::vector<std::string>>& rows) {
    set_columns(columns);
    // Rows are changed in place, so that scroll bars and selection stay.
    auto row = m_store->children().begin();
    for (const auto& texts : rows) {
        if (!row) row = m_store->append();
        for (std::size_t i = 0; i < texts.size(); ++i) {
            if (row->get_value(m_texts[i]) != texts[i]) row->set_value(m_texts[i], Glib::ustring(texts[i]));
        }
        ++row;
    }
    while (row) row = m_store->erase(row);
}

StandingsWindow::StandingsWindow() {
    set_title("Standings");
    set_border_width(window_spacing);
    set_default_size(620, 460);
    make_heading(m_title);
    make_heading(m_cross_title);
    make_heading(m_open_title);
    m_cross_title.set_text("Cross table");
    m_box.set_spacing(window_spacing);
    m_cross_box.pack_start(m_cross_title, Gtk::PACK_SHRINK);
    m_cross_box.pack_start(m_cross_table, Gtk::PACK_EXPAND_WIDGET);
    m_open_box.pack_start(m_open_title, Gtk::PACK_SHRINK);
    m_open_box.pack_start(m_open, Gtk::PACK_EXPAND_WIDGET);
    m_tables.pack1(m_table, true, false);
    m_tables.pack2(m_cross_box, true, false);
    m_all.pack1(m_tables, true, false);
    m_all.pack2(m_open_box, true, false);
    m_tables.set_position(170);
    m_all.set_position(320);
    m_copy.set_halign(Gtk::ALIGN_END);
    m_copy.set_tooltip_text("Copies all as text");
    m_copy.signal_clicked().connect([this] { Gtk::Clipboard::get()->set_text(text_of(m_sheet)); });
    m_box.pack_start(m_title, Gtk::PACK_SHRINK);
    m_box.pack_start(m_all, Gtk::PACK_EXPAND_WIDGET);
    m_box.pack_start(m_copy, Gtk::PACK_SHRINK);
    add(m_box);
    m_box.show_all();
    m_open_box.set_no_show_all();
    show_sheet({});
}

void StandingsWindow::show_sheet(const StandingsSheet& sheet) {
    m_sheet = sheet;
    const std::string progress = sheet.progress();
    m_title.set_text(sheet.lines.empty() ? "Load a tournament to see its standings."
                     : progress.empty()  ? sheet.title
                                         : sheet.title + ": " + progress);
    m_copy.set_sensitive(!sheet.lines.empty());
    m_table.show_rows(standings_columns(), standings_rows(sheet));
    m_cross_table.show_rows(cross_columns(sheet), cross_rows(sheet));
    Rows open;
    for (const auto& game : sheet.open) open.push_back({game});
    m_open.show_rows({{"Game", "", false}}, open);
    const auto more = sheet.open_count - sheet.open.size();
    m_open_title.set_text(more == 0 ? "Open games" : "Open games, and " + std::to_string(more) + " more");
    m_open_box.set_visible(sheet.open_count > 0);
}

}  // namespace velmora
