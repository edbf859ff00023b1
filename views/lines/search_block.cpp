#include "views/lines/search_block.h"

#include <algorithm>
#include <utility>

namespace velmora {

namespace {

constexpr int row_spacing = 2;     // pixels
constexpr int button_spacing = 4;  // pixels

void set_if_new(Gtk::Label& label, const std::string& text) {
    if (label.get_text() != text) label.set_text(text);
}

}  // namespace

SearchBlock::SearchBlock(PositionOf position_of)
    : Gtk::Box(Gtk::ORIENTATION_VERTICAL, row_spacing),
      m_position_of(std::move(position_of)),
      m_title(Gtk::ORIENTATION_HORIZONTAL, button_spacing),
      m_cover(Gtk::ORIENTATION_HORIZONTAL, button_spacing),
      m_lines(Gtk::ORIENTATION_VERTICAL, row_spacing) {
    m_engine.set_xalign(0);
    m_engine.set_ellipsize(Pango::ELLIPSIZE_END);
    Pango::AttrList bold;
    auto weight = Pango::Attribute::create_attr_weight(Pango::WEIGHT_BOLD);
    bold.insert(weight);
    m_engine.set_attributes(bold);
    m_title.pack_start(m_engine, Gtk::PACK_EXPAND_WIDGET);
    const auto add_button = [this](Gtk::Button& button, const char* meaning, int change) {
        button.set_relief(Gtk::RELIEF_NONE);
        button.set_tooltip_text(meaning);
        button.get_accessible()->set_name(meaning);
        button.signal_clicked().connect([this, change] { m_lines_wanted.emit(change); });
        m_title.pack_start(button, Gtk::PACK_SHRINK);
    };
    add_button(m_fewer, "One line fewer", -1);
    add_button(m_more, "One line more", 1);
    m_head.set_xalign(0);
    m_head.set_ellipsize(Pango::ELLIPSIZE_END);
    m_head.get_style_context()->add_class("dim-label");

    m_cover_text.set_xalign(0);
    m_cover_text.set_line_wrap();
    m_show.signal_clicked().connect([this] { m_uncovered.emit(); });
    m_cover.pack_start(m_cover_text, Gtk::PACK_EXPAND_WIDGET);
    m_cover.pack_start(m_show, Gtk::PACK_SHRINK);

    pack_start(m_title, Gtk::PACK_SHRINK);
    pack_start(m_head, Gtk::PACK_SHRINK);
    pack_start(m_cover, Gtk::PACK_SHRINK);
    pack_start(m_lines, Gtk::PACK_SHRINK);
    for (Gtk::Widget* part : std::initializer_list<Gtk::Widget*>{&m_head, &m_cover, &m_lines}) {
        part->show_all();
        part->set_no_show_all();  // what is covered stays so when the panel is shown
    }
    m_cover.hide();
    show_all_children();
}

void SearchBlock::show_search(const ShownSearch& search) {
    if (search == m_shown) return;
    set_if_new(m_engine, search.engine);
    m_fewer.set_sensitive(search.fewer);
    m_more.set_sensitive(search.more);
    m_cover.set_visible(search.covered);
    m_lines.set_visible(!search.covered);
    m_head.set_visible(!search.covered);
    set_if_new(m_head, search.head);
    if (!search.covered) show_rows(search);
    m_shown = search;
}

void SearchBlock::show_rows(const ShownSearch& search) {
    const std::size_t count = std::max(search.places, search.lines.size());
    while (m_rows.size() > count) m_rows.pop_back();
    while (m_rows.size() < count) {
        const std::size_t line = m_rows.size();
        auto row = std::make_unique<LineRow>(
            line + 1, [this, line](std::size_t move) { return m_position_of(line, move); });
        row->signal_move_chosen().connect([this, line](std::size_t move) { m_move_chosen.emit(line, move); });
        m_lines.pack_start(*row, Gtk::PACK_SHRINK);
        row->show_all();
        m_rows.push_back(std::move(row));
    }
    for (std::size_t i = 0; i < count; ++i) {
        m_rows[i]->show_line(i < search.lines.size() ? search.lines[i] : ShownLine());
    }
}

}  // namespace velmora
