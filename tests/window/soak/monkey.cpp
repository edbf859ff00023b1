#include "tests/window/soak/monkey.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <iostream>
#include <utility>

#include <gdk/gdkkeysyms.h>
#include <glibmm/main.h>
#include <gtkmm/button.h>
#include <gtkmm/checkmenuitem.h>
#include <gtkmm/combobox.h>
#include <gtkmm/entry.h>
#include <gtkmm/eventbox.h>
#include <gtkmm/main.h>
#include <gtkmm/notebook.h>
#include <gtkmm/spinbutton.h>
#include <gtkmm/textview.h>
#include <gtkmm/treeview.h>

#include "chess/moves/legal_moves.h"
#include "views/text/fen_entry.h"

namespace velmora::soak {

namespace {

const std::array<std::string, 10> odd_texts = {"",
                                               "0",
                                               "-7",
                                               "99999999999999999999",
                                               "Soak",
                                               "ärger ♞ \u202e",
                                               "a \"quoted\" {text} [with] 1-0",
                                               "8/8/8/8/8/8/8/8 w - - 0 1",
                                               "4k3/8/8/8/8/8/4P3/4K3 w - - 0 1",
                                               std::string(3000, 'x')};

constexpr std::array keys = {GDK_KEY_Left,  GDK_KEY_Right, GDK_KEY_Home,   GDK_KEY_End,
                             GDK_KEY_Up,    GDK_KEY_Down,  GDK_KEY_Tab,    GDK_KEY_Return,
                             GDK_KEY_space, GDK_KEY_e,     GDK_KEY_4,      GDK_KEY_Page_Down,
                             GDK_KEY_F10,   GDK_KEY_n,     GDK_KEY_Escape, GDK_KEY_Delete};

/// The window or menu that takes all events: the innermost modal dialog, an open menu; null when none does.
Gtk::Widget* grabbing_widget() {
    GtkWidget* const grab = gtk_grab_get_current();
    return grab ? Glib::wrap(gtk_widget_get_toplevel(grab)) : nullptr;
}

/// The widgets below a window that a person would touch.
std::vector<Gtk::Widget*> usable(Gtk::Window& window) {
    std::vector<Gtk::Widget*> widgets;
    for (Gtk::Widget* const widget : gui::descendants(window)) {
        // What a list to choose from is made of opens it only for a real pointer.
        const bool is_combo = dynamic_cast<Gtk::ComboBox*>(widget);
        const bool of_combo = !is_combo && widget->get_ancestor(GTK_TYPE_COMBO_BOX);
        const bool takes_part = is_combo || widget->get_can_focus() || dynamic_cast<Gtk::EventBox*>(widget);
        if (takes_part && !of_combo && widget->get_mapped() && widget->is_sensitive())
            widgets.push_back(widget);
    }
    return widgets;
}

}  // namespace

Monkey::Monkey(Interface& window, test::Workplace& place, std::uint32_t seed, int actions)
    : m_window(window),
      m_place(place),
      m_board(*gui::find_widget<Board>(window)),
      m_random(seed),
      m_check(window),
      m_left(actions) {
    // The window stays open to the end, and the logs on.
    for (const char* const action : {"Quit", "Debug"}) window.actions().set_sensitive(action, false);
}

void Monkey::run() {
    next_step(600);  // the board takes no click in its first half second
    while (!m_closed) Gtk::Main::iteration(true);
}

void Monkey::note(const std::string& action) const { std::cerr << m_left << ' ' << action << '\n'; }

void Monkey::next_step(unsigned delay_ms) {
    // Behind redraws and the window's tick, as a person would be.
    Glib::signal_timeout().connect_once([this] { step(); }, delay_ms, Glib::PRIORITY_DEFAULT_IDLE);
}

void Monkey::step() {
    m_closed = !m_window.get_visible();
    if (m_closed) return;
    // Ahead of the action: one that opens a dialog comes back when the dialog has been closed.
    next_step();
    Gtk::Widget* const grab = grabbing_widget();
    if (m_left <= 0) return close_all();
    if (auto* const dialog = dynamic_cast<Gtk::Dialog*>(grab)) {
        m_check.give_up();  // a message: the comparison is off
        if (auto* const chooser = dynamic_cast<Gtk::FileChooserDialog*>(dialog)) return choose_file(*chooser);
        --m_left;
        if (dialog->get_mapped()) act_in(*dialog);
    } else if (grab) {
        --m_left;
        note("key in an open menu");
        // Escape often enough to come out of it.
        press_in_menu(*grab, one_in(2) ? GDK_KEY_Escape : unsigned(any(keys)));
    } else if (m_check.is_waiting()) {
        compare();
    } else if (m_patience > 0) {
        --m_patience;
        begin_comparison();
    } else {
        if (one_in(15)) m_patience = 3000;
        --m_left;
        act();
    }
}

/// Something in the windows that are open, none of them a dialog.
void Monkey::act() {
    const auto draw = below(100);
    if (draw < 35) return drag_legal_move();
    if (draw < 60) return choose_any_entry();
    if (draw < 62) {
        const std::array<std::string, 4> engines{"alpha", "beta", "gamma", "delta"};
        const auto& engine = any(engines);
        note("kill " + engine);
        return m_place.kill_engine(engine);
    }
    std::vector<Gtk::Window*> windows;
    for (Gtk::Window* const window : Gtk::Window::list_toplevels()) {
        if (window->get_mapped() && window->get_window_type() == Gtk::WINDOW_TOPLEVEL)
            windows.push_back(window);
    }
    act_in(*any(windows));
}

/// Leaves the window, presses a key in it, or uses one of its widgets.
void Monkey::act_in(Gtk::Window& window) {
    const auto widgets = usable(window);
    const bool is_main = &window == &m_window;
    if (one_in(is_main ? 20 : 6) || widgets.empty()) {
        note("leave " + window.get_title());
        return is_main ? window.resize(300 + int(below(900)), 300 + int(below(900))) : window.close();
    }
    if (one_in(6)) {
        const auto key = unsigned(any(keys));
        note("key " + std::to_string(key) + " in " + window.get_title());
        return gui::press_key(window, key, one_in(5) ? Gdk::CONTROL_MASK : Gdk::ModifierType(0));
    }
    note("in " + window.get_title());
    use(*any(widgets));
}

void Monkey::use(Gtk::Widget& widget) {
    const auto any_point = [&] {
        return gui::Point{double(below(std::size_t(std::max(1, widget.get_allocated_width())))),
                          double(below(std::size_t(std::max(1, widget.get_allocated_height()))))};
    };
    if (auto* const spin = dynamic_cast<Gtk::SpinButton*>(&widget)) {
        double low = 0, high = 0;
        spin->get_range(low, high);
        spin->set_value(one_in(3) ? low : one_in(2) ? high : low + (high - low) * below(100) / 100);
    } else if (auto* const entry = dynamic_cast<Gtk::Entry*>(&widget)) {
        entry->set_text(any(odd_texts));
        if (one_in(2)) entry->activate();
    } else if (auto* const combo = dynamic_cast<Gtk::ComboBox*>(&widget)) {
        combo->set_active(int(below(4)));
    } else if (auto* const notebook = dynamic_cast<Gtk::Notebook*>(&widget)) {
        notebook->set_current_page(int(below(std::size_t(notebook->get_n_pages()))));
    } else if (auto* const view = dynamic_cast<Gtk::TreeView*>(&widget)) {
        if (one_in(2)) return gui::click(view->get_bin_window(), any_point());
        gui::double_click(view->get_bin_window(), any_point());
    } else if (auto* const text = dynamic_cast<Gtk::TextView*>(&widget)) {
        if (text->get_editable()) return text->get_buffer()->set_text(any(odd_texts));
        gui::click(text->get_window(Gtk::TEXT_WINDOW_TEXT), any_point());
    } else if (auto* const button = dynamic_cast<Gtk::Button*>(&widget)) {
        button->clicked();
    } else if (one_in(2)) {
        gui::drag(widget, any_point(), one_in(20) ? gui::Point{-50, 9000} : any_point());
    } else {
        gui::click(widget, any_point());
    }
}

void Monkey::choose_file(Gtk::FileChooserDialog& chooser) {
    // Every program of a folder that is chosen gets started.
    if (chooser.get_action() == Gtk::FILE_CHOOSER_ACTION_SELECT_FOLDER) {
        return chooser.response(Gtk::RESPONSE_CANCEL);
    }
    if (m_wanted_file.empty()) {
        --m_left;
        std::vector<std::string> files{m_place.path("missing.pgn")};
        for (const auto& entry : std::filesystem::directory_iterator(".")) {
            if (entry.is_regular_file()) files.push_back(m_place.path(entry.path().filename()));
        }
        m_wanted_file = any(files);
        m_waited = one_in(5) ? 300 : 0;
        note("choose " + m_wanted_file);
    }
    // The chooser takes the name in its own time.
    const bool leaves = ++m_waited > 300;
    if (leaves || (m_waited > 1 && chooser.get_filename() == m_wanted_file)) {
        m_wanted_file.clear();
        return chooser.response(!leaves     ? Gtk::RESPONSE_ACCEPT
                                : one_in(2) ? Gtk::RESPONSE_CANCEL
                                            : Gtk::RESPONSE_DELETE_EVENT);
    }
    if (m_waited % 100 == 1 && chooser.get_action() == Gtk::FILE_CHOOSER_ACTION_SAVE) {
        m_wanted_file = m_place.path("saved");
        chooser.set_current_folder(m_place.path(""));
        chooser.set_current_name("saved");
    } else if (m_waited % 100 == 1) {
        chooser.set_filename(m_wanted_file);
    }
}

void Monkey::press_in_menu(Gtk::Widget& menu, unsigned key) {
    if (dynamic_cast<Gtk::Window*>(menu.get_toplevel()) && menu.get_toplevel()->get_window()) {
        gui::press_key(menu, key);
    } else {
        gtk_grab_remove(gtk_grab_get_current());
    }
}

void Monkey::close_all() {
    if (Gtk::Widget* const grab = grabbing_widget()) {
        // The toolkit drops the end of a window that a dialog or a menu stands above.
        m_closing = false;
        auto* const dialog = dynamic_cast<Gtk::Dialog*>(grab);
        if (!dialog) return press_in_menu(*grab, GDK_KEY_Escape);
        dialog->response(Gtk::RESPONSE_DELETE_EVENT);
    } else if (!std::exchange(m_closing, true)) {
        note("close the window");
        m_window.close();
    }
}

// ---------------------------------------------------------------------------------------------------------------
// Menu and board

void Monkey::choose_any_entry() {
    std::vector<Gtk::MenuItem*> items;
    for (const auto& entry :
         gui::menu_entries(dynamic_cast<Gtk::MenuShell&>(*m_window.actions().menu_bar()))) {
        if (entry.label.empty() || !entry.item->get_sensitive()) continue;
        // A person changes the mode more often than all else.
        items.insert(items.end(), entry.menu == "Mode" ? 3 : 1, entry.item);
    }
    Gtk::MenuItem* const item = any(items);
    note("menu " + item->get_label());
    item->activate();
}

Gtk::MenuItem* Monkey::entry(const std::string& label) {
    for (const auto& entry :
         gui::menu_entries(dynamic_cast<Gtk::MenuShell&>(*m_window.actions().menu_bar()))) {
        if (entry.label == label) return entry.item;
    }
    return nullptr;
}

void Monkey::choose(const std::string& label) {
    if (Gtk::MenuItem* const item = entry(label); item && item->get_sensitive()) item->activate();
}

/// The window's position, as it shows it; empty when a text of the monkey's stands there.
std::string Monkey::shown_fen() {
    m_window.refresh_board();
    m_window.actions().set_active("ShowFEN", true);
    return gui::find_widget<Gtk::Entry>(*gui::find_widget<FenEntry>(m_window))->get_text();
}

std::vector<std::string> Monkey::legal_moves_shown() {
    std::vector<std::string> moves;
    ChessPosition position;
    position.set_fen(shown_fen());
    for (const Move& move : legal_moves(position)) moves.push_back(move.to_string(false));
    return moves;
}

gui::Point Monkey::on_board(const std::string& square) {
    const auto cell = m_board.drawing().cell();
    const bool flipped = m_board.is_flipped();
    const int file = square[0] - 'a', row = '8' - square[1];
    return {((flipped ? 7 - file : file) + 0.5) * cell.width,
            ((flipped ? 7 - row : row) + 0.5) * cell.height};
}

void Monkey::drag_legal_move() {
    const auto moves = legal_moves_shown();
    if (moves.empty()) return;
    const auto& move = any(moves);
    note("drag " + move);
    gui::drag(m_board, on_board(move), on_board(move.substr(2)));
}

// ---------------------------------------------------------------------------------------------------------------
// The two positions

/// Whether the engine that the window names has a process.
bool Monkey::has_engine() {
    return m_window.get_title() == "Alpha" && !m_place.processes_of("alpha").empty();
}

/// Sees to an engine that speaks UCI and a mode in which the referee tells it its position, one step a call;
/// true when all is there.
bool Monkey::is_ready_to_compare() {
    if (!m_check.is_under_way() && !has_engine()) {
        if (!std::exchange(m_loads, true)) {
            choose("Human - human");
            m_window.send_to_manager("load 1 filename " + m_place.path("alpha.engine"));
        }
        return false;
    }
    m_loads = false;
    const auto is_on = [this](const char* mode) {
        return dynamic_cast<Gtk::CheckMenuItem&>(*entry(mode)).get_active();
    };
    if (!is_on("Analysis") && !is_on("Human - computer")) {
        choose(one_in(2) ? "Human - computer" : "Analysis");
        return false;
    }
    if (!legal_moves_shown().empty()) return true;
    choose("New game");
    return false;
}

void Monkey::begin_comparison() {
    const bool ready = is_ready_to_compare();
    if (!ready) m_check.disturb();
    // The engine's name, or its move, comes with a later line of the referee.
    if (!ready || !m_check.is_quiet() || !has_engine()) return;
    m_patience = 0;
    const auto before = shown_fen();
    m_check.prepare();
    drag_legal_move();
    if (shown_fen() != before) m_check.expect(shown_fen());
}

void Monkey::compare() {
    const auto state = m_check.look();
    if (state == PositionCheck::State::waiting) return;
    if (state == PositionCheck::State::agrees) ++m_comparisons;
    // One that died meanwhile was told nothing.
    if (state == PositionCheck::State::differs && has_engine()) {
        m_difference = m_check.report();
        m_left = 0;
    }
    m_check.give_up();
}

}  // namespace velmora::soak
