#include "tests/window/soak/monkey.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <sstream>
#include <utility>

#include <gdk/gdkkeysyms.h>
#include <glibmm/main.h>
#include <gtkmm/button.h>
#include <gtkmm/combobox.h>
#include <gtkmm/entry.h>
#include <gtkmm/main.h>
#include <gtkmm/menu.h>
#include <gtkmm/messagedialog.h>
#include <gtkmm/notebook.h>
#include <gtkmm/spinbutton.h>
#include <gtkmm/textview.h>
#include <gtkmm/treeview.h>

#include "channel/text.h"
#include "chess/legal_moves.h"

namespace velmora::soak {

namespace {

constexpr const char* engine_log = "engine1.log";
constexpr const char* referee_log = "manager.log";

const std::vector<std::string> odd_texts = {"",
                                            "0",
                                            "-7",
                                            "99999999999999999999",
                                            "40",
                                            "Alpha",
                                            "Soak",
                                            "no_such/thing",
                                            "ärger ♞ \u202e",
                                            "a \"quoted\" {text} [with] 1-0",
                                            "4k3/8/8/8/8/8/4P3/4K3 w - - 0 1",
                                            "8/8/8/8/8/8/8/8 w - - 0 1",
                                            "rnbqkbnr/pppppppp/8/8/4P3/8/PPPP1PPP/RNBQKBNR b KQkq e3 0 1",
                                            std::string(3000, 'x')};

constexpr std::array keys = {GDK_KEY_Left,   GDK_KEY_Right, GDK_KEY_Home,   GDK_KEY_End,      GDK_KEY_Up,
                             GDK_KEY_Down,   GDK_KEY_Tab,   GDK_KEY_Return, GDK_KEY_space,    GDK_KEY_Escape,
                             GDK_KEY_Delete, GDK_KEY_e,     GDK_KEY_4,      GDK_KEY_Page_Down};

/// The window or menu that takes all events: the innermost modal dialog, an open menu; null when none does.
Gtk::Widget* grabbing_widget() {
    GtkWidget* const grab = gtk_grab_get_current();
    return grab ? Glib::wrap(gtk_widget_get_toplevel(grab)) : nullptr;
}

std::streamoff size_of(const std::string& path) {
    std::error_code missing;
    const auto size = std::filesystem::file_size(path, missing);
    return missing ? 0 : static_cast<std::streamoff>(size);
}

/// What has been written to a file from an offset on.
std::string read_from(const std::string& path, std::streamoff offset) {
    std::ifstream file(path);
    file.seekg(offset);
    std::ostringstream text;
    text << file.rdbuf();
    return text.str();
}

/// The last lines of a log.
std::string tail(const std::string& path) {
    constexpr std::streamoff bytes = 3000;
    return "...\n" + read_from(path, std::max<std::streamoff>(0, size_of(path) - bytes));
}

/// The FEN that a UCI "position" command stands for; empty when it can't be played through.
std::string told_fen(std::string_view command) {
    text::WordReader reader(command);
    ChessPosition position;
    position.new_game();
    auto word = reader.word();
    if (word == "fen") {
        std::string fen;
        for (word = reader.word(); !word.empty() && word != "moves"; word = reader.word()) {
            fen.append(word) += ' ';
        }
        position.set_fen(fen);
    }
    while (!word.empty() && word != "moves") word = reader.word();
    for (word = reader.word(); !word.empty(); word = reader.word()) {
        const auto move = find_legal(position, position.convert_to_move(std::string(word)));
        if (!move) return {};
        position.do_move(*move);
    }
    return position.fen();
}

}  // namespace

Monkey::Monkey(Interface& window, test::Workplace& place, std::uint32_t seed, int actions)
    : m_window(window),
      m_place(place),
      m_board(*gui::find_widget<Board>(window)),
      m_engines(place.read("engines.cfg")),
      m_random(seed),
      m_left(actions) {
    // The window stays open to the end, and the logs on.
    for (const char* const action : {"Quit", "Debug"}) window.actions().set_sensitive(action, false);
}

void Monkey::run() {
    next_step(600);  // the board takes no click in its first half second
    while (!m_closed) Gtk::Main::iteration(true);
}

std::string Monkey::last_actions() const {
    std::string text;
    for (std::size_t i = 0; i < m_noted.size(); ++i) {
        const std::string& line = m_noted[(m_notes + i) % m_noted.size()];
        if (!line.empty()) text += line + '\n';
    }
    return text;
}

void Monkey::note(const std::string& action) {
    m_noted[m_notes++ % m_noted.size()] = std::to_string(m_left) + ' ' + action;
    if (std::getenv("VELMORA_SOAK_TRACE"))
        std::cerr << g_get_monotonic_time() / 1000 << ' ' << m_left << ' ' << action << '\n';
}

void Monkey::next_step(unsigned delay_ms) {
    // Behind redraws and the window's tick, as a person would be.
    Glib::signal_timeout().connect_once([this] { step(); }, delay_ms, Glib::PRIORITY_DEFAULT_IDLE);
}

void Monkey::step() {
    ++m_heartbeat;
    if (!m_window.get_visible()) {
        m_closed = true;
        return;
    }
    // Ahead of the action: one that opens a dialog comes back when the dialog has been closed.
    next_step();
    Gtk::Widget* const grab = grabbing_widget();
    if (m_left <= 0) return close_all();
    if (auto* const dialog = dynamic_cast<Gtk::Dialog*>(grab)) {
        m_shown.clear();  // a message: the comparison is off
        return act_on(*dialog);
    }
    if (grab) {
        --m_left;
        note("key in an open menu");
        // Escape often enough to come out of it.
        auto& menu = *grab;
        const auto key = one_in(2) ? GDK_KEY_Escape : keys[below(keys.size())];
        if (dynamic_cast<Gtk::Window*>(menu.get_toplevel()) && menu.get_toplevel()->get_window()) {
            gui::press_key(menu, key);
        } else {
            gtk_grab_remove(gtk_grab_get_current());
        }
        return;
    }
    if (!m_shown.empty()) return look_for_the_position();
    if (m_compares) return begin_comparison();
    if (one_in(25)) {
        m_compares = true;
        m_patience = 3000;
    }
    act_on_window();
}

void Monkey::act_on_window() {
    static constexpr auto acts = std::to_array<Weighted>({{30, &Monkey::drag_legal_move},
                                                          {8, &Monkey::click_legal_move},
                                                          {10, &Monkey::drag_anywhere},
                                                          {12, &Monkey::press_a_navigation_button},
                                                          {10, &Monkey::press_a_key},
                                                          {12, &Monkey::choose_a_menu_item},
                                                          {6, &Monkey::switch_mode},
                                                          {2, &Monkey::open_a_menu},
                                                          {5, &Monkey::use_a_side_window},
                                                          {2, &Monkey::use_the_fen_entry},
                                                          {2, &Monkey::close_a_side_window},
                                                          {1, &Monkey::resize},
                                                          {1, &Monkey::kill_engines},
                                                          {1, &Monkey::restart_the_logs}});
    unsigned total = 0;
    for (const Weighted& row : acts) total += row.weight;
    unsigned drawn = below(total);
    --m_left;
    for (const Weighted& row : acts) {
        if (drawn < row.weight) return (this->*row.act)();
        drawn -= row.weight;
    }
}

void Monkey::close_all() {
    if (auto* const dialog = dynamic_cast<Gtk::Dialog*>(grabbing_widget())) {
        dialog->response(Gtk::RESPONSE_DELETE_EVENT);
    } else if (!m_closing) {
        note("close the window");
        m_closing = true;
        m_window.close();
    }
}

// ---------------------------------------------------------------------------------------------------------------
// The board

std::optional<Move> Monkey::legal_move(bool without_promotions) {
    std::vector<Move> moves;
    for (const Move& move : legal_moves(m_window.desk().position)) {
        if (!without_promotions || move.to_string(false).size() == 4) moves.push_back(move);
    }
    if (moves.empty()) return std::nullopt;
    return any(moves);
}

gui::Point Monkey::on_board(int square) {
    const CellSize cell = m_board.drawing().cell();
    const Place corner = corner_of(m_board.drawing().shown_square(square), cell);
    return {corner.x + cell.width / 2.0, corner.y + cell.height / 2.0};
}

void Monkey::drag_legal_move() {
    const auto move = legal_move(false);
    if (!move) return;
    note("drag " + move->to_string(false));
    gui::drag(m_board, on_board(int(move->from().value())), on_board(int(move->to().value())));
}

void Monkey::click_legal_move() {
    const auto move = legal_move(false);
    if (!move) return;
    note("click " + move->to_string(false));
    gui::click(m_board, on_board(int(move->from().value())));
    gui::click(m_board, on_board(int(move->to().value())));
}

void Monkey::drag_anywhere() {
    const int from = int(below(64)), to = one_in(3) ? from : int(below(64));
    note("drag " + square_name(from) + square_name(to));
    gui::drag(m_board, on_board(from), one_in(20) ? gui::Point{-50, 9000} : on_board(to));
}

// ---------------------------------------------------------------------------------------------------------------
// The main window

void Monkey::press_a_navigation_button() {
    const auto n = int(below(4));
    note("navigation button " + std::to_string(n));
    if (auto* const button = gui::find_widget<Gtk::Button>(m_window, {}, n)) button->clicked();
}

void Monkey::press_a_key() {
    const auto key = keys[below(keys.size())];
    note("key " + std::to_string(key));
    if (one_in(5)) {
        gui::press_key(m_window, one_in(2) ? GDK_KEY_n : GDK_KEY_p, Gdk::CONTROL_MASK);
    } else {
        gui::press_key(m_window, key);
    }
}

void Monkey::choose_a_menu_item() { activate_any(""); }

void Monkey::switch_mode() { activate_any("Mode"); }

/// An item of one menu, or of all of them.
void Monkey::activate_any(const std::string& menu) {
    std::vector<gui::MenuEntry> entries;
    for (const auto& entry : gui::menu_entries(menu_bar())) {
        if (entry.label.empty() || !entry.item->get_sensitive()) continue;
        if (menu.empty() || menu == entry.menu) entries.push_back(entry);
    }
    const auto entry = any(entries);
    note("menu " + entry.menu + " / " + entry.label);
    entry.item->activate();
}

void Monkey::activate(const std::string& label) {
    for (const auto& entry : gui::menu_entries(menu_bar())) {
        if (entry.label != label || !entry.item->get_sensitive()) continue;
        note("menu " + label);
        return entry.item->activate();
    }
}

void Monkey::open_a_menu() {
    note("F10");
    gui::press_key(m_window, GDK_KEY_F10);
}

void Monkey::use_a_side_window() {
    std::vector<Gtk::Window*> windows;
    for (Gtk::Window* const window : Gtk::Window::list_toplevels()) {
        if (window != &m_window && window->get_mapped() &&
            window->get_type_hint() == Gdk::WINDOW_TYPE_HINT_UTILITY)
            windows.push_back(window);
    }
    if (windows.empty()) return m_window.actions().set_active("ShowPgnView", true);
    Gtk::Window& window = *any(windows);
    const auto widgets = usable(window);
    if (widgets.empty()) return;
    note("in the window " + window.get_title());
    use(*any(widgets));
}

void Monkey::use_the_fen_entry() {
    m_window.actions().set_active("ShowFEN", true);
    auto* const entry = gui::find_widget<Gtk::Entry>(m_window);
    if (!entry) return;
    note("enter a FEN");
    entry->set_text(any(odd_texts));
    entry->activate();
}

void Monkey::close_a_side_window() {
    for (Gtk::Window* const window : Gtk::Window::list_toplevels()) {
        if (window == &m_window || !window->get_mapped() ||
            window->get_type_hint() != Gdk::WINDOW_TYPE_HINT_UTILITY || one_in(2))
            continue;
        note("close " + window->get_title());
        return window->close();
    }
}

void Monkey::resize() {
    note("resize");
    m_window.resize(300 + int(below(900)), 300 + int(below(900)));
}

void Monkey::kill_engines() {
    const std::vector<std::string> engines{"alpha", "beta", "gamma", "delta"};
    const auto& engine = any(engines);
    note("kill " + engine);
    m_place.kill_engine(engine);
}

void Monkey::restart_the_logs() {
    note("log off and on");
    m_window.actions().set_active("Debug", false);
    m_window.actions().set_active("Debug", true);
}

// ---------------------------------------------------------------------------------------------------------------
// Dialogs

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
        note("choose " + name);
        if (one_in(5)) {
            m_wanted_file.clear();
            chooser.response(one_in(2) ? Gtk::RESPONSE_CANCEL : Gtk::RESPONSE_DELETE_EVENT);
            return;
        }
    }
    if (chooser.get_filename() == m_wanted_file) {
        m_wanted_file.clear();
        return chooser.response(Gtk::RESPONSE_ACCEPT);
    }
    // The chooser reads the folder in its own time.
    if (m_waited % 20 == 0 && saves) {
        chooser.set_current_folder(m_place.path(""));
        chooser.set_current_name(std::filesystem::path(m_wanted_file).filename().string());
    } else if (m_waited % 20 == 0) {
        chooser.set_filename(m_wanted_file);
    }
    if (++m_waited > 200) {
        m_wanted_file.clear();
        chooser.response(Gtk::RESPONSE_CANCEL);
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
        entry->set_text(any(odd_texts));
    } else if (auto* const combo = dynamic_cast<Gtk::ComboBox*>(&widget)) {
        combo->set_active(int(below(4)));
    } else if (auto* const notebook = dynamic_cast<Gtk::Notebook*>(&widget)) {
        notebook->set_current_page(int(below(std::size_t(notebook->get_n_pages()))));
    } else if (auto* const view = dynamic_cast<Gtk::TreeView*>(&widget)) {
        if (one_in(3)) return gui::press_key(*view, keys[below(keys.size())]);
        (one_in(3) ? gui::double_click : [](const gui::Target& target, gui::Point at) {
            gui::click(target, at);
        })(view->get_bin_window(), point);
    } else if (auto* const text = dynamic_cast<Gtk::TextView*>(&widget)) {
        if (text->get_editable()) return text->get_buffer()->set_text(any(odd_texts));
        gui::click(text->get_window(Gtk::TEXT_WINDOW_TEXT), point);
    } else if (auto* const button = dynamic_cast<Gtk::Button*>(&widget)) {
        button->clicked();
    } else {
        gui::click(widget, point);
    }
}

// ---------------------------------------------------------------------------------------------------------------
// The two positions

/// Whether the engine that the window names has a process.
bool Monkey::is_seated() const {
    return !m_place.processes_of(m_window.desk().engine1_name == "Alpha" ? "alpha" : "gamma").empty();
}

/// Sees to an engine that speaks UCI and a mode in which the referee tells it its position, one step a call;
/// true when all is there.
bool Monkey::is_ready_to_compare() {
    const GameDesk& desk = m_window.desk();
    const Mode mode = m_window.actions().mode();
    const bool speaks_uci = desk.engine1_name == "Alpha" || desk.engine1_name == "Gamma";
    // A match that is over before it has begun leaves the seat empty and the name standing.
    if (!speaks_uci || (m_mark.empty() && !is_seated())) {
        if (!std::exchange(m_wants_alpha, true)) {
            m_place.write("engines.cfg", m_engines);  // it may have been uninstalled
            activate("Load installed engine...");
        }
        return false;
    }
    m_wants_alpha = false;
    if (mode != Mode::human_computer && mode != Mode::analyze_position) {
        activate(one_in(2) ? "Human - computer" : "Analysis");
        return false;
    }
    if (legal_move(true)) return true;
    activate("New game");
    return false;
}

/// Whether the referee has done all that it was told and the window all that the referee said since the last
/// call that gave false.
bool Monkey::is_quiet() {
    using clock = std::chrono::steady_clock;
    constexpr std::chrono::milliseconds three_ticks{150};
    if (m_mark.empty()) {
        m_mark_start = size_of(referee_log);
        m_mark = "wake_up " + std::to_string(m_left) + ' ' + std::to_string(m_heartbeat);
        m_window.send_to_manager(m_mark);
        m_mark_seen.reset();
    }
    if (!m_mark_seen && read_from(referee_log, m_mark_start).find(m_mark) != std::string::npos)
        m_mark_seen = clock::now();
    if (!m_mark_seen || clock::now() < *m_mark_seen + three_ticks) return false;
    m_mark.clear();
    return true;
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

/// Makes a move, or hands the move to the engine: either way the referee has to tell the engine its position.
void Monkey::begin_comparison() {
    if (!is_ready_to_compare()) {
        m_mark.clear();
        // The engine's name comes with a later line of the referee.
        if (--m_patience < 0) m_compares = m_wants_alpha = false;
        return;
    }
    const GameDesk& desk = m_window.desk();
    if (desk.engine_to_move() || !is_quiet() || !is_seated()) {
        if (--m_patience < 0) m_compares = false;
        return;
    }
    m_compares = false;
    m_log_start = size_of(engine_log);
    m_looks = 0;
    if (m_window.actions().mode() == Mode::human_computer && one_in(2)) {
        m_shown = desk.position.fen();
        activate("Start thinking");
        return;
    }
    const auto move = legal_move(true);
    note("compare by " + move->to_string(false));
    const auto before = desk.position.fen();
    gui::drag(m_board, on_board(int(move->from().value())), on_board(int(move->to().value())));
    if (desk.position.fen() != before) m_shown = desk.position.fen();
}

void Monkey::look_for_the_position() {
    // Every line that is under way must have arrived after this many looks, a millisecond or more apart.
    constexpr int most_looks = 15000;
    constexpr std::string_view mark = "engine <- position ";
    const std::string log = read_from(engine_log, m_log_start);
    std::string told;
    // An engine that ponders is told what it expects as well.
    for (auto at = log.find(mark); at != std::string::npos && told != m_shown; at = log.find(mark, at)) {
        at += mark.size();
        const auto end = log.find('\n', at);
        if (end != std::string::npos) told = told_fen(std::string_view(log).substr(at, end - at));
    }
    if (told == m_shown) {
        ++m_comparisons;
        m_shown.clear();
    } else if (++m_looks > most_looks) {
        m_differences.push_back("window " + m_shown + ", referee " + told + ", after\n" + last_actions() +
                                tail(engine_log) + tail(referee_log));
        note("DIFFERENT: " + m_differences.back());
        m_shown.clear();
    }
}

}  // namespace velmora::soak
