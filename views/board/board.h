#pragma once

#include <optional>
#include <string>
#include <utility>

#include <gtkmm/eventbox.h>

#include "views/board/drawing.h"

namespace velmora {

/// Takes the pointer's events on the board, and the keyboard with them, and hides from the outside which side
/// the board is seen from: all squares here are those of the position, 0 is a1.
class Board : public Gtk::EventBox {
public:
    explicit Board(int size);

    /// 64 characters, a1 first; see SquareTable::set_pieces().
    void set_position(const std::string& letters);
    void set_piece(char letter, int square);
    void clear_square(int square);

    /// From and to of the last drag; the square twice after a plain click.
    std::pair<int, int> get_move() const;

    /// Turns the board by half and drops the arrows.
    void flip();
    bool is_flipped() const { return m_flipped; }

    void set_arrow(int from, int to, int color) { m_drawing.set_arrow(from, to, color); }
    void clear_arrows() { m_drawing.clear_arrows(); }
    const std::vector<Arrow>& arrows() const { return m_drawing.arrows(); }

    void set_marks(const BoardMarks& marks);

    /// The square whose piece is in the air.
    std::optional<int> picked_square() const;

    Drawing& drawing() { return m_drawing; }

    /// The button was let go over a square, after a drag or without one; get_move() tells the squares.
    sigc::signal<void>& signal_move_made() { return m_move_made; }
    /// The button was pressed on a piece; picked_square() tells the square.
    sigc::signal<void>& signal_piece_picked() { return m_piece_picked; }

protected:
    bool on_button_press_event(GdkEventButton* event) override;
    bool on_button_release_event(GdkEventButton* event) override;
    bool on_motion_notify_event(GdkEventMotion* event) override;
    void on_grab_notify(bool was_grabbed) override;

private:
    /// From a square of the position to the shown square, and back.
    int converted(int square) const { return m_flipped ? turned(square) : square; }
    void report_move(std::pair<int, int> shown_squares);

    sigc::signal<void> m_move_made;
    sigc::signal<void> m_piece_picked;
    bool m_flipped = false;
    Drawing m_drawing;
    std::pair<int, int> m_move;  // shown squares
    BoardMarks m_marks;          // squares of the position
};

}  // namespace velmora
