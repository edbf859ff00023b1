#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <string>

#include <gtkmm/box.h>
#include <gtkmm/label.h>
#include <gtkmm/tooltip.h>

#include "analysis/shown_search.h"
#include "views/board/drawing.h"

namespace velmora {

/// One line of an engine: evaluation, depth, and the moves, each of which can be pressed.
///
/// The moves are links of a label. So the pointer, the keyboard (Tab to the label, then from link to link,
/// and Enter) and a screen reader reach each of them by what the toolkit has, and a line that is too long
/// ends in an ellipsis.
class LineRow : public Gtk::Box {
public:
    using PositionOf = std::function<std::string(std::size_t move)>;

    /// @param number       of the line, from 1, as it is read out
    /// @param position_of  the FEN behind a move, empty for none
    LineRow(std::size_t number, PositionOf position_of);

    /// Shows a line; one without moves leaves the row empty.
    void show_line(const ShownLine& line);

    sigc::signal<void, std::size_t>& signal_move_chosen() { return m_move_chosen; }

private:
    void show_moves();
    bool show_position(const Glib::RefPtr<Gtk::Tooltip>& tooltip);

    const std::size_t m_number;
    const PositionOf m_position_of;
    ShownLine m_shown;
    int m_laid_out_width = 0;     // pixels for which the moves were last cut
    sigc::connection m_widening;  // waits to show more of them
    Gtk::Label m_evaluation;
    Gtk::Label m_depth;
    Gtk::Label m_moves;
    std::unique_ptr<Drawing> m_board;  // made when a position is first asked for
    sigc::signal<void, std::size_t> m_move_chosen;
};

}  // namespace velmora
