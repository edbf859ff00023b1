#pragma once

#include <chrono>
#include <functional>
#include <string>
#include <vector>

#include <glibmm/main.h>
#include <gtkmm/container.h>
#include <gtkmm/menuitem.h>
#include <gtkmm/menushell.h>
#include <gtkmm/widget.h>
#include <gtkmm/window.h>

/// What a user does at the screen, done by a test: waits, mouse, keys, dialogs, pixels.
///
/// Events are made here and handed to the toolkit in the test's own thread, so that neither focus nor the
/// real pointer nor a window manager has a part in them. They need a realized widget (show_and_wait).
namespace velmora::gui {

using namespace std::chrono_literals;

/// Runs the main loop until the condition holds; false when the time is over first.
bool pump_until(const std::function<bool()>& condition, std::chrono::milliseconds limit = 5s);

/// Runs the main loop until it has nothing to do: layouts are made, expose events have been drawn.
void pump_pending();

/// Shows a window with all its children and waits until it is on the screen and drawn.
bool show_and_wait(Gtk::Window& window);

/// A point in pixels from the upper left corner of what receives the event.
struct Point {
    double x = 0;
    double y = 0;
};

/// Where events go: a widget's own window, or one that the caller names (a text view's text window).
class Target {
public:
    Target(Gtk::Widget& widget);  // NOLINT(google-explicit-constructor): reads as "click(board, ...)"
    Target(Glib::RefPtr<Gdk::Window> window);  // NOLINT(google-explicit-constructor)
    const Glib::RefPtr<Gdk::Window>& window() const { return m_window; }

private:
    Glib::RefPtr<Gdk::Window> m_window;
};

void press_button(const Target& target, Point at, unsigned button = 1);
void release_button(const Target& target, Point at, unsigned button = 1);
/// The pointer moves with the first button held or, when not held, freely.
enum class Button { up, held };
void move_pointer(const Target& target, Point to, Button button = Button::held);
void click(const Target& target, Point at, unsigned button = 1);
/// Two presses and the press event that the toolkit adds for the second.
void double_click(const Target& target, Point at);
/// Presses at one point, moves over the middle to the other, and lets go.
void drag(const Target& target, Point from, Point to);

/// Presses and releases a key (GDK_KEY_...) in the window of the widget, which hands it to its focus widget.
void press_key(Gtk::Widget& widget, unsigned key, Gdk::ModifierType modifiers = Gdk::ModifierType(0));
/// Types a text of ASCII characters.
void type_text(Gtk::Widget& widget, const std::string& text);

/// All widgets below a container, the container first, in the order of packing; internal children too.
std::vector<Gtk::Widget*> descendants(Gtk::Widget& root);

/// The n-th widget of a class below a root (0 is the first) for which the condition holds; null when there is
/// none.
template <class W>
W* find_widget(Gtk::Widget& root, const std::function<bool(W&)>& condition = {}, int n = 0) {
    for (Gtk::Widget* widget : descendants(root)) {
        auto* found = dynamic_cast<W*>(widget);
        if (found && (!condition || condition(*found)) && n-- == 0) return found;
    }
    return nullptr;
}

/// The widget of a class with this label (buttons, labels, menu items); underscores of mnemonics are left
/// out.
template <class W>
W* find_labelled(Gtk::Widget& root, const std::string& label) {
    return find_widget<W>(root, [&](W& widget) {
        std::string text = widget.get_label();
        std::erase(text, '_');
        return text == label;
    });
}

/// The window of a class that is on the screen; null when there is none.
template <class W>
W* shown_window() {
    for (Gtk::Window* window : Gtk::Window::list_toplevels()) {
        if (auto* found = dynamic_cast<W*>(window); found && found->get_mapped()) {
            return found;
        }
    }
    return nullptr;
}

/// Answers the next dialog of class D from inside its own run(), which blocks the test. The function gets the
/// dialog every 10 ms until it returns true; it should call response() or press something. The answer is
/// withdrawn when this object goes, so that it cannot meet the next test's dialog.
template <class D>
class Answer {
public:
    explicit Answer(std::function<bool(D&)> reply) : m_reply(std::move(reply)) {
        m_connection = Glib::signal_timeout().connect([this] { return look(); }, 10);
    }
    ~Answer() { m_connection.disconnect(); }
    Answer(const Answer&) = delete;  // the timer holds its address
    Answer& operator=(const Answer&) = delete;

    /// Whether the dialog has come and been answered.
    bool given() const { return m_given; }

private:
    bool look() {
        D* dialog = shown_window<D>();
        m_given = dialog && m_reply(*dialog);
        return !m_given;
    }

    std::function<bool(D&)> m_reply;
    sigc::connection m_connection;
    bool m_given = false;
};

/// One line of the menus below a menu bar; a separator has no label.
struct MenuEntry {
    std::string menu;   ///< the label of the menu, with its mnemonic
    std::string label;  ///< of the item
    Gtk::MenuItem* item = nullptr;
};

/// All visible entries of a menu bar's menus, in the order of the screen.
std::vector<MenuEntry> menu_entries(Gtk::MenuShell& bar);

/// A colour of 8 bits a channel, not multiplied by its alpha.
struct Pixel {
    int red = 0;
    int green = 0;
    int blue = 0;
    int alpha = 255;
    bool operator==(const Pixel&) const = default;
};

/// The largest difference of a channel.
int distance(const Pixel& left, const Pixel& right);

/// Paints a realized widget and its children into memory at a scale factor, as they stand on the screen.
Cairo::RefPtr<Cairo::ImageSurface> picture(Gtk::Widget& widget, int scale = 1);

/// The colour of one pixel of a surface in the format ARGB32, counted in device pixels from its upper left
/// corner.
Pixel pixel_at(const Cairo::RefPtr<Cairo::ImageSurface>& surface, int x, int y);

/// How many device pixels of two surfaces of one size differ by more than a tolerance in some channel.
int differing_pixels(const Cairo::RefPtr<Cairo::ImageSurface>& left,
                     const Cairo::RefPtr<Cairo::ImageSurface>& right, int tolerance = 0);

}  // namespace velmora::gui
