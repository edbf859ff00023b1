#pragma once

#include <gtkmm/aspectframe.h>
#include <gtkmm/box.h>

#include "views/board/chess_board.h"
#include "views/clocks/clocks.h"
#include "views/evaluation/evaluation_bar.h"

namespace velmora {

/// The clocks above the board: a bar that is as long as the board is wide, whatever the size of the window.
///
/// However long the bar is, it asks for no more than the board at its least size takes: a window can be made
/// small again at once.
///
/// The box places its two children itself because the toolkit's boxes share out spare height in equal parts
/// or give it to one child, while here bar and board must grow in proportion.
class BoardWithClocks : public Gtk::Box {
public:
    /// @param evaluation  shown at the right edge of the board, as high as its squares, while it is visible
    BoardWithClocks(Clocks& clocks, ChessBoard& board, EvaluationBar& evaluation);

protected:
    /// A height for a width would have the toolkit ask in circles: the width of the bar follows from the
    /// height.
    Gtk::SizeRequestMode get_request_mode_vfunc() const override { return Gtk::SIZE_REQUEST_CONSTANT_SIZE; }
    void get_preferred_width_vfunc(int& minimum, int& natural) const override;
    void get_preferred_height_vfunc(int& minimum, int& natural) const override;
    void on_size_allocate(Gtk::Allocation& allocation) override;
    bool on_draw(const Cairo::RefPtr<Cairo::Context>& cr) override;

private:
    int edge_width() const;

    Clocks& m_clocks;
    ChessBoard& m_board;
    EvaluationBar& m_evaluation;
    Gtk::AspectFrame m_bar;
};

}  // namespace velmora
