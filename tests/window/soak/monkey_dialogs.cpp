// What the monkey does in dialogs and in the windows beside the main one.

#include <algorithm>
#include <filesystem>

#include <gdk/gdkkeysyms.h>
#include <gtkmm/button.h>
#include <gtkmm/combobox.h>
#include <gtkmm/entry.h>
#include <gtkmm/eventbox.h>
#include <gtkmm/notebook.h>
#include <gtkmm/spinbutton.h>
#include <gtkmm/textview.h>
#include <gtkmm/treeview.h>

#include "tests/window/soak/monkey.h"

namespace velmora::soak {

void Monkey::act_on(Gtk::Window& dialog) {
    if (auto* const chooser = dynamic_cast<Gtk::FileChooserDialog*>(&dialog)) return choose_file(*chooser);
    if (m_wants_alpha && dialog.get_title() == "Choose Engine") return load_alpha(dialog);
    --m_left;
    if (!dialog.get_mapped()) return;
    if (one_in(6)) {
        note("leave " + dialog.get_title());
        if (one_in(2)) return dialog.close();
        return gui::press_key(dialog, one_in(2) ? GDK_KEY_Escape : GDK_KEY_Return);
    }
    const auto widgets = usable(dialog);
    if (widgets.empty()) return dialog.close();
    note("in the dialog " + dialog.get_title());
    use(*any(widgets));
}

void Monkey::choose_file(Gtk::FileChooserDialog& chooser) {
    static const std::vector<std::string> files = {
        "games.pgn",   "broken.pgn",   "positions.epd", "book.bin", "alpha.engine",
        "beta.engine", "gamma.engine", "delta.engine",  "empty",    "missing.pgn"};
    const bool saves = chooser.get_action() == Gtk::FILE_CHOOSER_ACTION_SAVE;
    if (m_wanted_file.empty()) {
        --m_left;
        const Glib::ustring filter = chooser.list_filters().front()->get_name();
        std::string name = any(files);
        if (!one_in(6)) {
            if (filter == "engine") name = files[4 + below(4)];
            if (filter == "PGN files") name = files[below(2)];
            if (filter == "FEN files") name = files[2];
            if (filter == "Polyglot books") name = files[3];
        }
        if (saves) name = "saved-" + name;
        m_wanted_file = m_place.path(name);
        m_waited = 0;
        m_leaves_chooser = one_in(5);
        note("choose " + name);
    }
    // The chooser takes the name in its own time.
    constexpr int last_answer = 300;
    const bool leaves = m_leaves_chooser || m_waited > last_answer;
    if (++m_waited > 1 && (leaves || chooser.get_filename() == m_wanted_file)) {
        m_wanted_file.clear();
        return chooser.response(!leaves     ? Gtk::RESPONSE_ACCEPT
                                : one_in(2) ? Gtk::RESPONSE_CANCEL
                                            : Gtk::RESPONSE_DELETE_EVENT);
    }
    if (m_waited % 100 == 1 && saves) {
        chooser.set_current_folder(m_place.path(""));
        chooser.set_current_name(std::filesystem::path(m_wanted_file).filename().string());
    } else if (m_waited % 100 == 1) {
        chooser.set_filename(m_wanted_file);
    }
}

std::vector<Gtk::Widget*> Monkey::usable(Gtk::Widget& root) {
    std::vector<Gtk::Widget*> widgets;
    for (Gtk::Widget* const widget : gui::descendants(root)) {
        const bool takes_part = dynamic_cast<Gtk::Button*>(widget) || dynamic_cast<Gtk::Entry*>(widget) ||
                                dynamic_cast<Gtk::ComboBox*>(widget) ||
                                dynamic_cast<Gtk::TreeView*>(widget) ||
                                dynamic_cast<Gtk::TextView*>(widget) ||
                                dynamic_cast<Gtk::Notebook*>(widget) || dynamic_cast<Gtk::EventBox*>(widget);
        // What a list to choose from is made of opens it only for a real pointer.
        const bool of_combo =
            widget->get_ancestor(GTK_TYPE_COMBO_BOX) && !dynamic_cast<Gtk::ComboBox*>(widget);
        if (takes_part && !of_combo && widget->get_mapped() && widget->is_sensitive())
            widgets.push_back(widget);
    }
    return widgets;
}

void Monkey::use(Gtk::Widget& widget) {
    const gui::Point point{double(below(std::size_t(std::max(1, widget.get_allocated_width())))),
                           double(below(std::size_t(std::max(1, widget.get_allocated_height()))))};
    if (auto* const spin = dynamic_cast<Gtk::SpinButton*>(&widget)) {
        double low = 0, high = 0;
        spin->get_range(low, high);
        spin->set_value(one_in(3) ? low : one_in(2) ? high : low + (high - low) * below(100) / 100);
    } else if (auto* const entry = dynamic_cast<Gtk::Entry*>(&widget)) {
        entry->set_text(any_text());
    } else if (auto* const combo = dynamic_cast<Gtk::ComboBox*>(&widget)) {
        combo->set_active(int(below(4)));
    } else if (auto* const notebook = dynamic_cast<Gtk::Notebook*>(&widget)) {
        notebook->set_current_page(int(below(std::size_t(notebook->get_n_pages()))));
    } else if (auto* const view = dynamic_cast<Gtk::TreeView*>(&widget)) {
        if (one_in(3)) return gui::press_key(*view, any_key());
        (one_in(3) ? gui::double_click : [](const gui::Target& target, gui::Point at) {
            gui::click(target, at);
        })(view->get_bin_window(), point);
    } else if (auto* const text = dynamic_cast<Gtk::TextView*>(&widget)) {
        if (text->get_editable()) return text->get_buffer()->set_text(any_text());
        gui::click(text->get_window(Gtk::TEXT_WINDOW_TEXT), point);
    } else if (auto* const button = dynamic_cast<Gtk::Button*>(&widget)) {
        button->clicked();
    } else {
        gui::click(widget, point);
    }
}

/// In the list of installed engines.
void Monkey::load_alpha(Gtk::Window& dialog) {
    auto& list = *gui::find_widget<Gtk::TreeView>(dialog);
    for (const auto& row : list.get_model()->children()) {
        Glib::ustring name;
        row.get_value(1, name);
        if (name == "alpha") list.get_selection()->select(row);
    }
    note("load alpha");
    gui::find_labelled<Gtk::Button>(dialog, "LOAD")->clicked();
}

}  // namespace velmora::soak
