#include "dialogs/game/tags_dialog.h"

#include <algorithm>
#include <array>
#include <cstdio>

#include <gtkmm/calendar.h>
#include <gtkmm/comboboxtext.h>
#include <gtkmm/entry.h>
#include <gtkmm/grid.h>
#include <gtkmm/label.h>
#include <gtkmm/liststore.h>
#include <gtkmm/menubutton.h>
#include <gtkmm/popover.h>
#include <gtkmm/scrolledwindow.h>
#include <gtkmm/treeview.h>

#include "dialogs/parts/modal_dialog.h"

namespace velmora {

namespace {

/// The roster's names with their keys; the result has a choice of its own.
constexpr std::array<std::pair<const char*, const char*>, 6> fields = {{{"Event", "_Event"},
                                                                        {"Site", "_Site"},
                                                                        {"Date", "_Date"},
                                                                        {"Round", "_Round"},
                                                                        {"White", "_White"},
                                                                        {"Black", "_Black"}}};
constexpr std::size_t date_field = 2;
constexpr std::array<const char*, 4> result_words = {"1-0", "1/2-1/2", "0-1", "*"};
constexpr std::array<const char*, 2> of_the_start = {"FEN", "SetUp"};

bool is_one_of(const std::string& name, const auto& names) {
    return std::ranges::find(names, name) != names.end();
}

/// A date of PGN, "2026.11.24", by a calendar that opens below it.
class DateField : public Gtk::Box {
public:
    DateField() {
        m_calendar.signal_day_selected_double_click().connect([this] { m_popover.popdown(); });
        m_calendar.signal_day_selected().connect([this] {
            guint year = 0, month = 0, day = 0;
            m_calendar.get_date(year, month, day);
            char text[32];
            std::snprintf(text, sizeof text, "%04u.%02u.%02u", year, month + 1, day);
            if (m_popover.get_visible()) m_text.set_text(text);
        });
        m_popover.add(m_calendar);
        m_calendar.show();
        m_button.set_popover(m_popover);
        m_button.set_tooltip_text("Choose the day");
        m_button.get_accessible()->set_name("Calendar");
        m_text.set_placeholder_text("2026.12.31 or ????.??.??");
        pack_start(m_text, Gtk::PACK_EXPAND_WIDGET);
        pack_start(m_button, Gtk::PACK_SHRINK);
    }

    Gtk::Entry& text() { return m_text; }
    void set_text(const std::string& text) {
        m_text.set_text(text);
        unsigned year = 0, month = 0, day = 0;
        if (std::sscanf(text.c_str(), "%4u.%2u.%2u", &year, &month, &day) != 3) return;
        if (month < 1 || month > 12 || day < 1 || day > 31) return;
        m_calendar.select_month(month - 1, year);
        m_calendar.select_day(day);
    }

private:
    Gtk::Entry m_text;
    Gtk::MenuButton m_button;
    Gtk::Popover m_popover{m_button};
    Gtk::Calendar m_calendar;
};

/// Names and values that are changed in their cells; a row is added by a button and goes with its name.
class OtherTags : public Gtk::Box {
public:
    OtherTags() : Gtk::Box(Gtk::ORIENTATION_VERTICAL, ModalDialog::row_spacing) {
        m_record.add(m_name);
        m_record.add(m_value);
        m_rows = Gtk::ListStore::create(m_record);
        m_view.set_model(m_rows);
        m_view.append_column_editable("Tag", m_name);
        m_view.append_column_editable("Value", m_value);
        m_view.get_accessible()->set_name("Other tags");
        auto* const scroller = Gtk::make_managed<Gtk::ScrolledWindow>();
        scroller->set_shadow_type(Gtk::SHADOW_IN);
        scroller->set_min_content_height(110);
        scroller->add(m_view);
        auto* const add_row = Gtk::make_managed<Gtk::Button>("_Add a tag", true);
        add_row->set_halign(Gtk::ALIGN_START);
        add_row->signal_clicked().connect([this] {
            const auto row = m_rows->append();
            m_view.set_cursor(m_rows->get_path(row), *m_view.get_column(0), true);
        });
        pack_start(*scroller, Gtk::PACK_EXPAND_WIDGET);
        pack_start(*add_row, Gtk::PACK_SHRINK);
    }

    void add_tag(const std::string& name, const std::string& value) {
        auto row = *m_rows->append();
        row[m_name] = name;
        row[m_value] = value;
    }
    void append_to(TagList& tags) const {
        for (const auto& row : m_rows->children()) {
            const Glib::ustring name = row[m_name], value = row[m_value];
            if (!name.empty()) tags.emplace_back(name.raw(), value.raw());
        }
    }

private:
    Gtk::TreeModel::ColumnRecord m_record;
    Gtk::TreeModelColumn<Glib::ustring> m_name, m_value;
    Glib::RefPtr<Gtk::ListStore> m_rows;
    Gtk::TreeView m_view;
};

void add_tag_field(Gtk::Grid& grid, int row, const char* title, Gtk::Widget& field, Gtk::Widget& focus) {
    auto* const label = Gtk::make_managed<Gtk::Label>(title, true);
    label->set_xalign(0);
    label->set_mnemonic_widget(focus);
    field.set_hexpand();
    grid.attach(*label, 0, row, 1, 1);
    grid.attach(field, 1, row, 1, 1);
}

}  // namespace

std::optional<TagList> edit_tags(Gtk::Window& parent, const TagList& tags) {
    const auto value_of = [&tags](const std::string& name) {
        const auto found = std::ranges::find(tags, name, &TagList::value_type::first);
        return found == tags.end() ? std::string() : found->second;
    };
    ModalDialog dialog("Tags", parent);
    Gtk::Grid grid;
    grid.set_row_spacing(ModalDialog::row_spacing);
    grid.set_column_spacing(ModalDialog::column_spacing);
    std::array<Gtk::Entry, fields.size()> plain;
    DateField date;
    const auto entry = [&](std::size_t i) -> Gtk::Entry& {
        return i == date_field ? date.text() : plain.at(i);
    };
    int row = 0;
    for (std::size_t i = 0; i < fields.size(); ++i) {
        Gtk::Widget& field = i == date_field ? static_cast<Gtk::Widget&>(date) : plain.at(i);
        entry(i).set_activates_default();
        entry(i).set_text(value_of(fields[i].first));
        add_tag_field(grid, row++, fields[i].second, field, entry(i));
    }
    date.set_text(value_of("Date"));
    Gtk::ComboBoxText result;
    for (const char* word : result_words) result.append(word, word);
    result.set_active_id(value_of("Result"));
    if (result.get_active_row_number() < 0) result.set_active_id("*");
    add_tag_field(grid, row, "Res_ult", result, result);
    OtherTags others;
    for (const auto& [name, value] : tags) {
        const auto is_name = [&name = name](const auto& field) { return field.first == name; };
        const bool is_field = std::ranges::any_of(fields, is_name) || name == "Result";
        if (!is_field && !is_one_of(name, of_the_start)) others.add_tag(name, value);
    }
    dialog.body().pack_start(grid, Gtk::PACK_SHRINK);
    dialog.body().pack_start(others, Gtk::PACK_EXPAND_WIDGET);
    dialog.set_ordinary_size(460, 0);
    dialog.add_answer("Cancel", Gtk::RESPONSE_CANCEL);
    dialog.add_answer("OK", Gtk::RESPONSE_OK);
    dialog.set_default_response(Gtk::RESPONSE_OK);
    if (dialog.run() != Gtk::RESPONSE_OK) return std::nullopt;

    TagList edited;
    for (std::size_t i = 0; i < fields.size(); ++i) {
        edited.emplace_back(fields[i].first, entry(i).get_text().raw());
    }
    edited.emplace_back("Result", result.get_active_id().raw());
    others.append_to(edited);
    return edited;
}

}  // namespace velmora
