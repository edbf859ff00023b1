#include "views/panel/side_panel.h"

namespace velmora {

namespace {

/// Pixels: a line of an engine to the tenth ply or so; with the board beside it the two fit 800 pixels.
constexpr int panel_width = 380;
constexpr int spacing = 6;  // pixels

}  // namespace

PanelSection::PanelSection(const std::string& title, Gtk::Widget& content, const std::string& hint)
    : Gtk::Expander(title), m_box(Gtk::ORIENTATION_VERTICAL), m_hint(hint), m_content(content) {
    Pango::AttrList bold;
    auto weight = Pango::Attribute::create_attr_weight(Pango::WEIGHT_BOLD);
    bold.insert(weight);
    if (auto* const label = dynamic_cast<Gtk::Label*>(get_label_widget())) label->set_attributes(bold);
    m_hint.set_line_wrap();
    m_hint.set_max_width_chars(1);  // the panel's width decides, not the length of the sentence
    m_hint.set_xalign(0);
    m_hint.get_style_context()->add_class("dim-label");
    m_box.set_border_width(4);
    m_box.pack_start(m_hint, Gtk::PACK_SHRINK);
    m_box.pack_start(m_content, Gtk::PACK_EXPAND_WIDGET);
    m_content.show_all();
    m_content.set_no_show_all();
    m_hint.set_no_show_all();
    m_box.show();
    add(m_box);
    set_expanded();
    set_has_content(false);
}

void PanelSection::set_has_content(bool has) {
    m_content.set_visible(has);
    m_hint.set_visible(!has);
}

SidePanel::SidePanel() : m_sections(Gtk::ORIENTATION_VERTICAL, spacing) {
    set_policy(Gtk::POLICY_NEVER, Gtk::POLICY_AUTOMATIC);
    m_sections.set_border_width(spacing);
    add(m_sections);
}

/// Whatever the texts in it are: the panel shall not change its width with them.
void SidePanel::get_preferred_width_vfunc(int& minimum, int& natural) const {
    minimum = natural = panel_width;
}

void SidePanel::add_head(Gtk::Widget& head) {
    m_sections.pack_start(head, Gtk::PACK_SHRINK);
    m_sections.reorder_child(head, 0);
}

PanelSection& SidePanel::add_section(const std::string& title, Gtk::Widget& content, const std::string& hint,
                                     bool takes_rest) {
    m_owned.push_back(std::make_unique<PanelSection>(title, content, hint));
    PanelSection& section = *m_owned.back();
    m_sections.pack_start(section, takes_rest ? Gtk::PACK_EXPAND_WIDGET : Gtk::PACK_SHRINK);
    if (takes_rest) {
        section.get_child()->set_vexpand();
        // A folded section shall not keep the height.
        section.property_expanded().signal_changed().connect(
            [this, &section] { m_sections.child_property_expand(section) = section.get_expanded(); });
    }
    section.show();
    return section;
}

}  // namespace velmora
