#include "tests/window/soak/monkey.h"

#include <cstdlib>
#include <iostream>
#include <utility>

#include <gdk/gdkkeysyms.h>
#include <glibmm/main.h>
#include <gtkmm/button.h>
#include <gtkmm/entry.h>
#include <gtkmm/main.h>

#include "chess/moves/legal_moves.h"

namespace velmora::soak {

namespace {

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

}  // namespace

Monkey::Monkey(Interface& window, test::Workplace& place, std::uint32_t seed, int actions)
    : m_window(window),
      m_place(place),
      m_board(*gui::find_widget<Board>(window)),
      m_engines(place.read("engines.cfg")),
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

unsigned Monkey::any_key() { return unsigned(keys[below(keys.size())]); }

const std::string& Monkey::any_text() { return any(odd_texts); }

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
        m_check.give_up();  // a message: the comparison is off
        return act_on(*dialog);
    }
    if (grab) {
        --m_left;
        note("key in an open menu");
        // Escape often enough to come out of it.
        return press_in_menu(*grab, one_in(2) ? GDK_KEY_Escape : any_key());
    }
    if (m_check.is_waiting()) return look_for_the_position();
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
    for (const Move& move : legal_moves(m_window.session().position())) {
        if (!without_promotions || move.to_string(false).size() == 4) moves.push_back(move);
    }
    if (moves.empty()) return std::nullopt;
    return any(moves);
}

gui::Point Monkey::on_board(Square square) {
    const CellSize cell = m_board.drawing().cell();
    const Place corner = corner_of(m_board.drawing().shown_square(square), cell);
    return {corner.x + cell.width / 2.0, corner.y + cell.height / 2.0};
}

void Monkey::drag_legal_move() {
    const auto move = legal_move(false);
    if (!move) return;
    note("drag " + move->to_string(false));
    gui::drag(m_board, on_board(move->from()), on_board(move->to()));
}

void Monkey::click_legal_move() {
    const auto move = legal_move(false);
    if (!move) return;
    note("click " + move->to_string(false));
    gui::click(m_board, on_board(move->from()));
    gui::click(m_board, on_board(move->to()));
}

void Monkey::drag_anywhere() {
    const Square from(std::int32_t(below(64))), to = one_in(3) ? from : Square(std::int32_t(below(64)));
    note("drag " + from.name() + to.name());
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
    const auto key = any_key();
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
    entry->set_text(any_text());
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
// The two positions

/// Whether the engine that the window names has a process.
bool Monkey::is_seated() const {
    return !m_place.processes_of(m_window.engine().name() == "Alpha" ? "alpha" : "gamma").empty();
}

/// Sees to an engine that speaks UCI and a mode in which the referee tells it its position, one step a call;
/// true when all is there.
bool Monkey::is_ready_to_compare() {
    const Mode mode = m_window.actions().mode();
    const bool speaks_uci = m_window.engine().name() == "Alpha" || m_window.engine().name() == "Gamma";
    // An engine that was killed leaves its name standing.
    if (!speaks_uci || (!m_check.is_under_way() && !is_seated())) {
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

/// Makes a move, or hands the move to the engine: either way the referee has to tell the engine its position.
void Monkey::begin_comparison() {
    const GameSession& session = m_window.session();
    const bool ready = is_ready_to_compare();
    if (!ready) m_check.disturb();
    if (!ready || session.engine_to_move() || !m_check.is_quiet() || !is_seated()) {
        // The engine's name, or its move, comes with a later line of the referee.
        if (--m_patience < 0) m_compares = m_wants_alpha = false;
        return;
    }
    m_compares = false;
    m_check.prepare();
    if (m_window.actions().mode() == Mode::human_computer && one_in(2)) {
        m_check.expect(session.position().fen());
        activate("Start thinking");
        return;
    }
    const auto move = legal_move(true);
    note("compare by " + move->to_string(false));
    const auto before = session.position().fen();
    gui::drag(m_board, on_board(move->from()), on_board(move->to()));
    if (session.position().fen() != before) m_check.expect(session.position().fen());
}

void Monkey::look_for_the_position() {
    const auto state = m_check.look();
    if (state == PositionCheck::State::agrees) ++m_comparisons;
    // One that died meanwhile was told nothing.
    if (state == PositionCheck::State::differs && is_seated()) {
        m_differences.push_back(m_check.report() + "after\n" + last_actions());
        note("DIFFERENT");
    }
}

}  // namespace velmora::soak
