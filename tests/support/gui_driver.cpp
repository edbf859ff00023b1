#include "tests/support/gui_driver.h"

#include <algorithm>
#include <cstdlib>
#include <memory>
#include <stdexcept>
#include <utility>

#include <gdk/gdkkeysyms.h>
#include <gdkmm/general.h>
#include <gtkmm/main.h>
#include <gtkmm/menu.h>
#include <gtkmm/separatormenuitem.h>
#include <gtkmm/tearoffmenuitem.h>

namespace velmora::gui {

namespace {

struct EventDeleter {
    void operator()(GdkEvent* event) const { gdk_event_free(event); }
};
using Event = std::unique_ptr<GdkEvent, EventDeleter>;

Event make_event(GdkEventType type, const Glib::RefPtr<Gdk::Window>& window) {
    Event event(gdk_event_new(type));
    event->any.window = GDK_WINDOW(g_object_ref(window->gobj()));
    event->any.send_event = TRUE;
    return event;
}

GdkSeat* seat() { return gdk_display_get_default_seat(gdk_display_get_default()); }

void send_button(GdkEventType type, const Target& target, Point at, unsigned button) {
    Event event = make_event(type, target.window());
    event->button.x = at.x;
    event->button.y = at.y;
    event->button.button = button;
    event->button.time = GDK_CURRENT_TIME;
    event->button.state = type == GDK_BUTTON_RELEASE ? unsigned(GDK_BUTTON1_MASK) << (button - 1) : 0;
    int left = 0, top = 0;
    gdk_window_get_origin(target.window()->gobj(), &left, &top);
    event->button.x_root = at.x + left;
    event->button.y_root = at.y + top;
    gdk_event_set_device(event.get(), gdk_seat_get_pointer(seat()));
    gtk_main_do_event(event.get());
}

void send_key(GdkEventType type, Gtk::Widget& widget, unsigned key, Gdk::ModifierType modifiers) {
    auto* top = dynamic_cast<Gtk::Window*>(widget.get_toplevel());
    if (!top || !top->get_window()) {
        throw std::logic_error("gui::press_key: the widget is in no window on the screen");
    }
    Event event = make_event(type, top->get_window());
    event->key.keyval = key;
    event->key.state = unsigned(modifiers);
    event->key.time = GDK_CURRENT_TIME;
    GdkKeymapKey* codes = nullptr;
    int count = 0;
    GdkKeymap* keymap = gdk_keymap_get_for_display(gdk_display_get_default());
    if (gdk_keymap_get_entries_for_keyval(keymap, key, &codes, &count) && count > 0) {
        event->key.hardware_keycode = guint16(codes[0].keycode);
        event->key.group = guint8(codes[0].group);
    }
    g_free(codes);
    gdk_event_set_device(event.get(), gdk_seat_get_keyboard(seat()));
    gtk_main_do_event(event.get());
}

Glib::RefPtr<Gdk::Window> window_of(Gtk::Widget& widget) {
    if (!widget.get_realized()) {
        throw std::logic_error("gui::Target: the widget is not on the screen");
    }
    return widget.get_window();
}

}  // namespace

bool pump_until(const std::function<bool()>& condition, std::chrono::milliseconds limit) {
    const auto end = std::chrono::steady_clock::now() + limit;
    while (!condition()) {
        if (std::chrono::steady_clock::now() > end) return false;
        if (!gtk_events_pending()) {
            g_usleep(500);
        } else {
            gtk_main_iteration_do(FALSE);
        }
    }
    return true;
}

void pump_pending() {
    // The frame clock draws some milliseconds after a request, without anything pending until then.
    const auto quiet_for = 40ms;
    auto quiet_since = std::chrono::steady_clock::now();
    const auto end = quiet_since + 5s;
    while (std::chrono::steady_clock::now() - quiet_since < quiet_for &&
           std::chrono::steady_clock::now() < end) {
        if (gtk_events_pending()) {
            gtk_main_iteration_do(FALSE);
            quiet_since = std::chrono::steady_clock::now();
        } else {
            g_usleep(500);
        }
    }
}

bool show_and_wait(Gtk::Window& window) {
    window.show_all();
    const bool shown = pump_until(
        [&] { return window.get_mapped() && window.get_window() && window.get_window()->is_viewable(); });
    pump_pending();
    return shown;
}

Target::Target(Gtk::Widget& widget) : m_window(window_of(widget)) {}
Target::Target(Glib::RefPtr<Gdk::Window> window) : m_window(std::move(window)) {}

void press_button(const Target& target, Point at, unsigned button) {
    send_button(GDK_BUTTON_PRESS, target, at, button);
}

void release_button(const Target& target, Point at, unsigned button) {
    send_button(GDK_BUTTON_RELEASE, target, at, button);
}

void move_pointer(const Target& target, Point to, Button button) {
    Event event = make_event(GDK_MOTION_NOTIFY, target.window());
    event->motion.x = to.x;
    event->motion.y = to.y;
    event->motion.state = button == Button::held ? unsigned(GDK_BUTTON1_MASK) : 0U;
    gdk_event_set_device(event.get(), gdk_seat_get_pointer(seat()));
    gtk_main_do_event(event.get());
}

void click(const Target& target, Point at, unsigned button) {
    press_button(target, at, button);
    release_button(target, at, button);
}

void double_click(const Target& target, Point at) {
    click(target, at);
    press_button(target, at);
    send_button(GDK_2BUTTON_PRESS, target, at, 1);
    release_button(target, at);
}

void drag(const Target& target, Point from, Point to) {
    press_button(target, from);
    move_pointer(target, {(from.x + to.x) / 2, (from.y + to.y) / 2});
    move_pointer(target, to);
    release_button(target, to);
}

void press_key(Gtk::Widget& widget, unsigned key, Gdk::ModifierType modifiers) {
    send_key(GDK_KEY_PRESS, widget, key, modifiers);
    send_key(GDK_KEY_RELEASE, widget, key, modifiers);
}

void type_text(Gtk::Widget& widget, const std::string& text) {
    for (const char character : text) {
        const unsigned key = character == '\n'
                                 ? unsigned(GDK_KEY_Return)
                                 : gdk_unicode_to_keyval(guint32(static_cast<unsigned char>(character)));
        press_key(widget, key);
    }
}

std::vector<Gtk::Widget*> descendants(Gtk::Widget& root) {
    std::vector<Gtk::Widget*> found{&root};
    if (!dynamic_cast<Gtk::Container*>(&root)) return found;
    std::vector<Gtk::Widget*> children;
    const auto collect = [](GtkWidget* child, gpointer list) {
        static_cast<std::vector<Gtk::Widget*>*>(list)->push_back(Glib::wrap(child));
    };
    gtk_container_forall(GTK_CONTAINER(root.gobj()), collect, &children);
    for (Gtk::Widget* child : children) {
        const auto below = descendants(*child);
        found.insert(found.end(), below.begin(), below.end());
    }
    return found;
}

std::vector<MenuEntry> menu_entries(Gtk::MenuShell& bar) {
    std::vector<MenuEntry> entries;
    for (Gtk::Widget* head : bar.get_children()) {
        auto& menu = dynamic_cast<Gtk::MenuItem&>(*head);
        for (Gtk::Widget* widget : menu.get_submenu()->get_children()) {
            auto* item = dynamic_cast<Gtk::MenuItem*>(widget);
            if (!item || !item->get_visible() || dynamic_cast<Gtk::TearoffMenuItem*>(item)) continue;
            const bool separates = dynamic_cast<Gtk::SeparatorMenuItem*>(item) != nullptr;
            entries.push_back({menu.get_label(), separates ? "" : item->get_label(), item});
        }
    }
    return entries;
}

int distance(const Pixel& left, const Pixel& right) {
    return std::max({std::abs(left.red - right.red), std::abs(left.green - right.green),
                     std::abs(left.blue - right.blue), std::abs(left.alpha - right.alpha)});
}

Cairo::RefPtr<Cairo::ImageSurface> picture(Gtk::Widget& widget, int scale) {
    const int width = widget.get_allocated_width(), height = widget.get_allocated_height();
    auto surface = Cairo::ImageSurface::create(Cairo::FORMAT_ARGB32, width * scale, height * scale);
    cairo_surface_set_device_scale(surface->cobj(), scale, scale);
    gtk_widget_draw(widget.gobj(), Cairo::Context::create(surface)->cobj());
    surface->flush();
    return surface;
}

Pixel pixel_at(const Cairo::RefPtr<Cairo::ImageSurface>& surface, int x, int y) {
    if (x < 0 || y < 0 || x >= surface->get_width() || y >= surface->get_height()) {
        throw std::out_of_range("gui::pixel_at");
    }
    const unsigned char* row = surface->get_data() + std::ptrdiff_t(y) * surface->get_stride();
    const auto argb = reinterpret_cast<const std::uint32_t*>(row)[x];
    const int alpha = int(argb >> 24);
    const auto channel = [&](int shift) {
        const int value = int(argb >> shift & 0xff);
        return alpha == 0 ? 0 : std::min(255, (value * 255 + alpha / 2) / alpha);
    };
    return {channel(16), channel(8), channel(0), alpha};
}

int differing_pixels(const Cairo::RefPtr<Cairo::ImageSurface>& left,
                     const Cairo::RefPtr<Cairo::ImageSurface>& right, int tolerance) {
    if (left->get_width() != right->get_width() || left->get_height() != right->get_height()) {
        throw std::logic_error("gui::differing_pixels: two sizes");
    }
    int count = 0;
    for (int y = 0; y < left->get_height(); ++y) {
        for (int x = 0; x < left->get_width(); ++x) {
            count += distance(pixel_at(left, x, y), pixel_at(right, x, y)) > tolerance ? 1 : 0;
        }
    }
    return count;
}

}  // namespace velmora::gui
