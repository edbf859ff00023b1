#include "views/panel/state_line.h"

namespace velmora {

namespace {

constexpr int head_spacing = 6;  // pixels

void show_text(Gtk::Label& label, const std::string& text) {
    if (label.get_text() == text) return;
    label.set_text(text);
    label.set_tooltip_text(text);
}

}  // namespace

StateLine::StateLine()
    : Gtk::Box(Gtk::ORIENTATION_HORIZONTAL, head_spacing), m_texts(Gtk::ORIENTATION_VERTICAL) {
    for (Gtk::Label* label : {&m_activity, &m_last_move, &m_captured}) {
        label->set_xalign(0);
        label->set_ellipsize(Pango::ELLIPSIZE_END);
        m_texts.pack_start(*label, Gtk::PACK_SHRINK);
    }
    Pango::AttrList bold;
    auto weight = Pango::Attribute::create_attr_weight(Pango::WEIGHT_BOLD);
    bold.insert(weight);
    m_activity.set_attributes(bold);
    m_offer.set_no_show_all();
    m_offer.signal_clicked().connect([this] { m_accepted.emit(); });
    pack_start(m_texts, Gtk::PACK_EXPAND_WIDGET);
    pack_start(m_offer, Gtk::PACK_SHRINK);
}

void StateLine::set_activity(const std::string& text) { show_text(m_activity, text); }

void StateLine::set_last_move(const std::string& text) { show_text(m_last_move, text); }

void StateLine::set_captured(const std::string& text, const std::string& words) {
    if (m_captured.get_text() == text) return;
    m_captured.set_text(text);
    m_captured.set_tooltip_text(words);
    m_captured.get_accessible()->set_name(words);
}

void StateLine::offer(const std::string& label) {
    if (m_offer.get_label() != label) m_offer.set_label(label);
    m_offer.set_visible(!label.empty());
}

}  // namespace velmora
