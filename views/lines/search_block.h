#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include <gtkmm/box.h>
#include <gtkmm/button.h>
#include <gtkmm/label.h>

#include "analysis/shown_search.h"
#include "views/lines/line_row.h"

namespace velmora {

/// Where a move of an engine's line stands on the screen; all count from 0.
struct LineMovePlace {
    std::size_t search = 0;
    std::size_t line = 0;
    std::size_t move = 0;

    bool operator==(const LineMovePlace&) const = default;
};

/// One engine's search: its name and speed, the buttons for the number of lines, and a row for each line.
///
/// As many rows stand there as lines were asked for, filled or not: what stands below the block stays where
/// it is while a search begins.
class SearchBlock : public Gtk::Box {
public:
    using PositionOf = std::function<std::string(std::size_t line, std::size_t move)>;

    /// @param position_of  the FEN behind a move, empty for none
    explicit SearchBlock(PositionOf position_of);

    void show_search(const ShownSearch& search);

    sigc::signal<void, std::size_t, std::size_t>& signal_move_chosen() { return m_move_chosen; }
    sigc::signal<void, int>& signal_lines_wanted() { return m_lines_wanted; }
    sigc::signal<void>& signal_uncovered() { return m_uncovered; }

private:
    void show_rows(const ShownSearch& search);

    const PositionOf m_position_of;
    ShownSearch m_shown;
    Gtk::Box m_title;
    Gtk::Label m_engine;
    Gtk::Button m_fewer{"\u2212"};
    Gtk::Button m_more{"+"};
    Gtk::Label m_head;
    Gtk::Box m_cover;
    Gtk::Label m_cover_text{"The engine's lines are covered."};
    Gtk::Button m_show{"Show"};
    Gtk::Box m_lines;
    std::vector<std::unique_ptr<LineRow>> m_rows;
    sigc::signal<void, std::size_t, std::size_t> m_move_chosen;
    sigc::signal<void, int> m_lines_wanted;
    sigc::signal<void> m_uncovered;
};

}  // namespace velmora
