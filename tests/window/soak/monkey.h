#pragma once

#include <cstdint>
#include <optional>
#include <random>
#include <string>
#include <vector>

#include <gtkmm/filechooserdialog.h>

#include "tests/support/gui_driver.h"
#include "tests/support/workplace.h"
#include "tests/window/soak/position_check.h"
#include "views/board/board.h"
#include "window/interface.h"

namespace velmora::soak {

/// A user without a plan: uses whatever widget takes part, in whichever window is on the screen, plays legal
/// moves, and kills engines.
///
/// It acts from one-shot sources, so that it goes on inside the loop of a modal dialog, and does there only
/// what the toolkit's grab would let a person do. Now and then it makes a move that the referee has to hand
/// to the engine, and looks whether both know the same position. Every action is told on standard error: when
/// the window hangs or falls, the last line says where.
///
/// The choices follow from the seed; what they meet depends on the engines' pace.
class Monkey {
public:
    Monkey(Interface& window, test::Workplace& place, std::uint32_t seed, int actions);
    Monkey(const Monkey&) = delete;  // the sources know its address
    Monkey& operator=(const Monkey&) = delete;

    /// Acts until all actions are done and the window has closed.
    void run();

    int comparisons() const { return m_comparisons; }
    /// Positions on which the window and the referee did not agree, which ends the run; empty when there were
    /// none.
    const std::string& difference() const { return m_difference; }

private:
    void next_step(unsigned delay_ms = 1);
    void step();
    void act();
    void act_in(Gtk::Window& window);
    void use(Gtk::Widget& widget);
    void choose_file(Gtk::FileChooserDialog& chooser);
    void press_in_menu(Gtk::Widget& menu, unsigned key);
    void close_all();

    void choose_any_entry();
    void choose(const std::string& label);
    Gtk::MenuItem* entry(const std::string& label);
    std::string shown_fen();
    std::vector<std::string> legal_moves_shown();
    void drag_legal_move();
    gui::Point on_board(const std::string& square);

    bool has_engine();
    bool is_ready_to_compare();
    void begin_comparison();
    void compare();

    void note(const std::string& action) const;
    unsigned below(std::size_t limit) { return static_cast<unsigned>(m_random() % limit); }
    bool one_in(unsigned chances) { return below(chances) == 0; }
    template <class List>
    const auto& any(const List& list) {
        return list[below(std::size(list))];
    }

    Interface& m_window;
    test::Workplace& m_place;
    Board& m_board;
    std::minstd_rand m_random;
    PositionCheck m_check;
    int m_left;
    bool m_closing = false;
    bool m_closed = false;

    std::string m_wanted_file;  // in the file chooser that is open
    int m_waited = 0;           // steps for it

    int m_patience = 0;  // steps that are left for a comparison that is wanted
    bool m_loads = false;
    int m_comparisons = 0;
    std::string m_difference;
};

}  // namespace velmora::soak
