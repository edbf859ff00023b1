#pragma once

#include <functional>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include <gdk/gdkkeysyms.h>
#include <glibmm/main.h>
#include <gtkmm/button.h>
#include <gtkmm/dialog.h>
#include <gtkmm/entry.h>
#include <gtkmm/grid.h>
#include <gtkmm/label.h>
#include <gtkmm/treeview.h>
#include <gtkmm/window.h>

#include <gtest/gtest.h>

#include "tests/support/gui_driver.h"
#include "tests/support/scratch_directory.h"

namespace velmora {

/// All widgets of a class that stand in a grid, row by row, from left to right.
template <class W>
std::vector<W*> in_grid(Gtk::Widget& root) {
    std::map<std::pair<int, int>, W*> found;
    for (Gtk::Widget* widget : gui::descendants(root)) {
        auto* wanted = dynamic_cast<W*>(widget);
        auto* grid = dynamic_cast<Gtk::Grid*>(widget->get_parent());
        if (!wanted || !grid) continue;
        found[{grid->child_property_top_attach(*widget), grid->child_property_left_attach(*widget)}] = wanted;
    }
    std::vector<W*> widgets;
    for (const auto& [place, widget] : found) widgets.push_back(widget);
    return widgets;
}

/// A parent window on the screen, an empty directory, and what a user does in a dialog.
class DialogTest : public testing::Test, public ScratchDirectory {
protected:
    DialogTest() {
        m_parent.set_default_size(300, 200);
        gui::show_and_wait(m_parent);
    }

    /// Runs `ask`, which opens a dialog of class D, and lets `reply` answer it from inside its loop. A dialog
    /// that stays open is a failure, not a test that hangs.
    template <class D, class Ask>
    auto answering(const std::function<void(D&)>& reply, Ask ask) {
        sigc::connection watchdog;
        gui::Answer<D> answer([&](D& dialog) {
            if (!dialog.get_window()->is_viewable()) return false;
            EXPECT_TRUE(dialog.get_modal());
            EXPECT_EQ(dialog.get_transient_for(), &m_parent);
            reply(dialog);
            watchdog = Glib::signal_timeout().connect(
                [&dialog] {
                    ADD_FAILURE() << "the dialog was not answered";
                    dialog.response(Gtk::RESPONSE_DELETE_EVENT);
                    return false;
                },
                5000);
            return true;
        });
        struct Disconnect {
            sigc::connection& connection;
            ~Disconnect() { connection.disconnect(); }
        } const disconnect{watchdog};
        return ask();
    }
    template <class Ask>
    auto answering(const std::function<void(Gtk::Dialog&)>& reply, Ask ask) {
        return answering<Gtk::Dialog>(reply, std::move(ask));
    }

    static void press(Gtk::Widget& root, const std::string& label) {
        auto* button = gui::find_labelled<Gtk::Button>(root, label);
        ASSERT_NE(button, nullptr) << label;
        button->clicked();
    }
    /// An answer that presses a button.
    static auto pressing(const char* label) {
        return [label](Gtk::Dialog& dialog) { press(dialog, label); };
    }
    /// Whether a dialog that `ask` opens is still there when "LOAD" has been pressed; it is then cancelled.
    static bool stays_open_at_load(const std::function<void()>& ask) {
        const char* label = "LOAD";
        gui::Answer<Gtk::Dialog> answer([&](Gtk::Dialog& dialog) {
            press(dialog, label);
            return std::exchange(label, "CANCEL") == std::string("CANCEL");
        });
        ask();
        return answer.given();
    }
    /// Lists take keys only in the window that has the keyboard.
    static void give_keyboard(Gtk::Window& window) {
        window.get_window()->focus(GDK_CURRENT_TIME);
        EXPECT_TRUE(gui::pump_until([&] { return window.has_toplevel_focus(); }));
    }
    static void escape(Gtk::Dialog& dialog) { gui::press_key(dialog, GDK_KEY_Escape); }
    static void enter(Gtk::Dialog& dialog) { gui::press_key(dialog, GDK_KEY_Return); }

    /// The middle of a row, from 0, for a click.
    static gui::Point middle_of_row(Gtk::TreeView& view, int row) {
        Gdk::Rectangle area;
        view.get_cell_area(Gtk::TreeModel::Path(std::to_string(row)), *view.get_column(0), area);
        return {area.get_x() + area.get_width() / 2.0, area.get_y() + area.get_height() / 2.0};
    }
    static void click_row(Gtk::TreeView& view, int row) {
        gui::click(view.get_bin_window(), middle_of_row(view, row));
    }
    static Gtk::TreeView& list_in(Gtk::Widget& root, int n = 0) {
        auto* view = gui::find_widget<Gtk::TreeView>(root, {}, n);
        if (!view) throw std::logic_error("no list");
        return *view;
    }

    Gtk::Window m_parent;
    const std::string m_directory = path("");  // with a trailing slash
};

}  // namespace velmora
