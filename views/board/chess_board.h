#pragma once

#include <optional>
#include <string>
#include <utility>
#include <vector>

#include <gtkmm/aspectframe.h>

#include "views/board/board.h"

namespace velmora {

/// The chess board of the window: keeps the board square, with the letters of the files and the digits of the
/// ranks around it, and reads FEN. It knows no rules: it shows what it is told and reports a drag as a pair
/// of squares. Squares are those of the position, whichever side the board is seen from.
///
/// The margin for letters and digits belongs to the frame and not to the board, so that a pixel of the
/// board is a pixel of a square and the squares can be found by division.
class ChessBoard : public Gtk::AspectFrame {
public:
    /// The size of the board in pixels, see board_size().
    explicit ChessBoard(int size);

    /// Shows the position of a FEN, of which the first two words count. Throws as read_shown_position() does;
    /// the old position stays then.
    void set_fen(const std::string& fen);
    /// Whether the last FEN had White to move.
    bool white_to_move() const { return m_white_to_move; }

    /// From and to of the last drag; the square twice after a plain click.
    std::pair<Square, Square> get_move() const { return m_board.get_move(); }

    /// Turns the board by half and drops the arrows.
    void flip();
    bool is_flipped() const { return m_board.is_flipped(); }

    /// Adds an arrow; nothing when one is no square of the board.
    void set_arrow(Square from, Square to, ArrowColor color) { m_board.set_arrow(from, to, color); }
    void clear_arrows() { m_board.clear_arrows(); }
    const std::vector<Arrow>& arrows() const { return m_board.arrows(); }

    void set_hints(std::vector<MoveHint> hints) { m_board.set_hints(std::move(hints)); }

    void set_marks(const BoardMarks& marks) { m_board.set_marks(marks); }

    /// The square whose piece is in the air, from the press on it to the release.
    std::optional<Square> picked_square() const { return m_board.picked_square(); }

    /// Where the 64 squares stand, in the coordinates of an allocation.
    Gtk::Allocation squares_allocation() const { return m_board.get_allocation(); }

    Drawing& drawing() { return m_board.drawing(); }

    /// Has a screen reader say a text, for instance the last move; it also stays as the description of the
    /// board.
    /// In words, since nobody hears a game from two squares that have changed.
    void announce(const std::string& text);

    /// A drag or a click has ended over a square; get_move() tells which.
    sigc::signal<void>& signal_move_made() { return m_move_made; }
    /// A piece has been pressed on; picked_square() tells which.
    sigc::signal<void>& signal_piece_picked() { return m_board.signal_piece_picked(); }

    /// The wheel was turned over the board by so many steps, towards the hand positive.
    sigc::signal<void, int>& signal_wheel() { return m_board.signal_wheel(); }

protected:
    bool on_draw(const Cairo::RefPtr<Cairo::Context>& cr) override;
    void on_style_updated() override;
    void get_preferred_width_vfunc(int& minimum, int& natural) const override;
    void get_preferred_height_vfunc(int& minimum, int& natural) const override;
    void compute_child_allocation_vfunc(Gtk::Allocation& allocation) override;

private:
    void draw_label(const Cairo::RefPtr<Cairo::Context>& cr, char label, double x, double y);

    sigc::signal<void> m_move_made;
    Board m_board;
    bool m_white_to_move = false;
    int m_least_label_width = 0;  // of the margin that holds the labels, pixels
    int m_label_width = 0;        // the same at the present size of the board
};

}  // namespace velmora
