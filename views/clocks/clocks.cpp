#include "views/clocks/clocks.h"

#include <algorithm>
#include <cmath>
#include <string>

#include <gdkmm/rgba.h>

namespace velmora {

namespace {

constexpr int label_chars = 7;

Gdk::RGBA color(double red, double green, double blue) {
    Gdk::RGBA result;
    result.set_rgba(red, green, blue, 1);
    return result;
}

/// What a time label looks like before a side has moved, and by the classes "active" and "idle" then. The
/// frame is there in all three, so that nothing moves when it shows.
std::string style_sheet() {
    const Gdk::RGBA white_color = color(1, 1, 1), active_color = color(0, 1, 0),
                    idle_color = color(0.8, 0.8, 0.8);
    const auto background = [](const Gdk::RGBA& rgba) {
        return "background-color: " + rgba.to_string().raw() + ";";
    };
    return ".clock { font-size: 140%; padding: 1px 3px; }"
           ".time { border: 2px solid transparent; border-radius: 5px; background-image: none; color: "
           "#111; " +
           background(white_color) + "}" + ".time.active { border-color: #111; font-weight: bold; " +
           background(active_color) + "}" + ".time.idle { " + background(idle_color) + "}" +
           ".name.active { font-weight: bold; }";
}

}  // namespace

Clocks::Clocks() : Gtk::Box(Gtk::ORIENTATION_HORIZONTAL), m_style(Gtk::CssProvider::create()) {
    m_style->load_from_data(style_sheet());
    // A name in bold is wider; nothing shall move when the turn does.
    set_homogeneous();
    m_labels[Side::white].set_text("White: ");
    m_labels[Side::black].set_text("Black: ");
    pack_side(Side::white);
    pack_side(Side::black);
}

void Clocks::pack_side(Side side) {
    Gtk::Label& name = m_labels[side];
    Gtk::Label& time = m_time_labels[side];
    name.set_halign(Gtk::ALIGN_FILL);
    name.set_xalign(1);
    time.set_text("60:00");
    time.set_xalign(0.5);
    name.get_style_context()->add_class("name");
    time.get_style_context()->add_class("time");
    for (Gtk::Label* label : {&name, &time}) {
        label->set_width_chars(label_chars);
        label->get_style_context()->add_class("clock");
        label->get_style_context()->add_provider(m_style, GTK_STYLE_PROVIDER_PRIORITY_APPLICATION);
        pack_start(*label, Gtk::PACK_EXPAND_WIDGET);
    }
    name.set_mnemonic_widget(time);
}

void Clocks::set_text_scale(double scale) {
    // In steps: while a window is being resized, each new size makes the labels compute their layout.
    constexpr double step = 16;
    scale = std::max(1.0, std::floor(scale * step) / step);
    if (scale == m_text_scale) return;
    m_text_scale = scale;
    Pango::AttrList attributes;
    auto enlarged = Pango::Attribute::create_attr_scale(scale);
    attributes.insert(enlarged);
    for (const Side side : {Side::white, Side::black}) {
        m_labels[side].set_attributes(attributes);
        m_time_labels[side].set_attributes(attributes);
    }
}

Gtk::Requisition Clocks::ordinary_size() {
    Gtk::Label& label = m_time_labels[Side::white];
    const auto style = label.get_style_context();
    const auto state = style->get_state();
    const Gtk::Border padding = style->get_padding(state), frame = style->get_border(state);
    // The label's own request follows the scale, its font doesn't.
    const auto metrics = label.get_pango_context()->get_metrics(style->get_font(state));
    const int character =
        std::max(metrics.get_approximate_char_width(), metrics.get_approximate_digit_width());
    const auto pixels = [](int units) { return (units + Pango::SCALE - 1) / Pango::SCALE; };
    const int width = pixels(character * label_chars) + padding.get_left() + padding.get_right() +
                      frame.get_left() + frame.get_right();
    Gtk::Requisition size;
    size.width = 4 * width;
    size.height = pixels(metrics.get_ascent() + metrics.get_descent()) + padding.get_top() +
                  padding.get_bottom() + frame.get_top() + frame.get_bottom();
    return size;
}

void Clocks::start(Side side) {
    m_clocks.start(side);
    show_to_move(side);
}

void Clocks::stop() {
    m_clocks.stop();
    set_active(Side::white, false);
    set_active(Side::black, false);
}

void Clocks::restore(const BySide<std::pair<std::int32_t, std::int32_t>>& readings,
                     std::optional<Side> running) {
    m_clocks.stop();
    for (const Side side : {Side::white, Side::black}) {
        m_clocks.restore(side, readings[side].first, readings[side].second);
    }
    if (!running) return;
    m_clocks.run(*running);
    show_to_move(*running);
}

void Clocks::show_to_move(Side side) {
    set_active(side, true);
    set_active(opposite(side), false);
}

void Clocks::set_active(Side side, bool active) {
    for (Gtk::Label* label : {&m_labels[side], &m_time_labels[side]}) {
        const auto style = label->get_style_context();
        style->remove_class(active ? "idle" : "active");
        style->add_class(active ? "active" : "idle");
    }
    m_time_labels[side].get_accessible()->set_description(active ? "to move" : "");
}

void Clocks::update() {
    for (const Side side : {Side::white, Side::black}) {
        if (const auto text = m_clocks.refresh(side)) m_time_labels[side].set_text(*text);
    }
}

}  // namespace velmora
