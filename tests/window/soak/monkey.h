#pragma once

#include <array>
#include <atomic>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <random>
#include <string>
#include <vector>

#include <gtkmm/dialog.h>
#include <gtkmm/filechooserdialog.h>

#include "chess/board/move.h"
#include "tests/support/gui_driver.h"
#include "tests/support/workplace.h"
#include "tests/window/soak/position_check.h"
#include "views/board/board.h"
#include "window/interface.h"

namespace velmora::soak {

/// A user without a plan at the real window: menus, board, keys, dialogs, engines that die.
///
/// It acts from one-shot sources, so that it goes on inside the loop of a modal dialog, and does there only
/// what the toolkit's grab would let a person do. Now and then it makes a move that the referee has to hand
/// to the engine and looks in the engine's log whether both know the same position.
///
/// The choices follow from the seed; what they meet depends on the engines' pace.
class Monkey {
public:
    Monkey(Interface& window, test::Workplace& place, std::uint32_t seed, int actions);
    Monkey(const Monkey&) = delete;  // the sources know its address
    Monkey& operator=(const Monkey&) = delete;

    /// Acts until all actions are done and the window has closed. Only a watching thread looks at it
    /// meanwhile.
    void run();

    /// How often the monkey has been awake; stands still when the program does.
    std::uint64_t heartbeat() const { return m_heartbeat; }
    /// The last actions, one a line. For a report after the end or when all stands still.
    std::string last_actions() const;

    int comparisons() const { return m_comparisons; }
    /// Positions on which the window and the referee did not agree.
    const std::vector<std::string>& differences() const { return m_differences; }

private:
    using Act = void (Monkey::*)();
    struct Weighted {
        unsigned weight;
        Act act;
    };

    void next_step(unsigned delay_ms = 1);
    void step();
    void act_on_window();
    void act_on(Gtk::Window& dialog);
    void choose_file(Gtk::FileChooserDialog& chooser);
    void use(Gtk::Widget& widget);
    void press_in_menu(Gtk::Widget& menu, unsigned key);
    void close_all();

    void drag_legal_move();
    void click_legal_move();
    void drag_anywhere();
    void press_a_navigation_button();
    void press_a_key();
    void choose_a_menu_item();
    void switch_mode();
    void activate(const std::string& label);
    void activate_any(const std::string& menu);
    void open_a_menu();
    void use_a_side_window();
    void use_the_fen_entry();
    void close_a_side_window();
    void resize();
    void kill_engines();
    void restart_the_logs();

    bool is_seated() const;
    bool is_ready_to_compare();
    void load_alpha(Gtk::Window& dialog);
    void begin_comparison();
    void look_for_the_position();

    void note(const std::string& action);
    unsigned below(std::size_t limit) { return static_cast<unsigned>(m_random() % limit); }
    bool one_in(unsigned chances) { return below(chances) == 0; }
    template <class T>
    const T& any(const std::vector<T>& list) {
        return list[below(list.size())];
    }
    unsigned any_key();
    const std::string& any_text();
    std::optional<Move> legal_move(bool without_promotions);
    gui::Point on_board(Square square);
    Gtk::MenuShell& menu_bar() { return dynamic_cast<Gtk::MenuShell&>(*m_window.actions().menu_bar()); }
    std::vector<Gtk::Widget*> usable(Gtk::Widget& root);

    Interface& m_window;
    test::Workplace& m_place;
    Board& m_board;
    const std::string m_engines;  // the list of installed engines, as it was
    std::minstd_rand m_random;
    PositionCheck m_check;
    int m_left;
    bool m_closing = false;
    bool m_closed = false;
    std::atomic<std::uint64_t> m_heartbeat{0};
    std::array<std::string, 40> m_noted;
    std::size_t m_notes = 0;

    std::string m_wanted_file;  // in the file chooser that is open
    int m_waited = 0;           // steps for it
    bool m_leaves_chooser = false;

    // The comparison that is wanted.
    bool m_compares = false;
    bool m_wants_alpha = false;
    int m_patience = 0;  // steps
    int m_comparisons = 0;
    std::vector<std::string> m_differences;
};

}  // namespace velmora::soak
