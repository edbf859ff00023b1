#pragma once

#include <optional>
#include <string_view>
#include <utility>

#include <gtkmm/eventbox.h>

#include "views/board/drawing.h"
#include "views/board/shown_position.h"
#include "views/input/wheel_steps.h"

namespace velmora {

/// Takes the pointer's events on the board, and the keyboard with them, and hides from the outside which side
/// the board is seen from: all squares here are those of the position.
///
/// A drawing area of its own takes no part in this: which side the board is seen from, and what a press
/// means, are questions of input, and the drawing stays one that can be fed with squares of the screen
/// alone.
///
/// The board doesn't decide what a click means. It reports where a piece was taken and where it was let go,
/// and whoever listens shows the position anew if nothing comes of it.
class Board : public Gtk::EventBox {
public:
    explicit Board(int size);

    void set_position(const Placement& pieces);
    /// The same, and a single piece, by letters as shown_pieces() reads them.
    void set_position(std::string_view letters) { set_position(shown_pieces(letters)); }
    void set_piece(char letter, Square square) { m_drawing.set_piece(letter, converted(square)); }
    void clear_square(Square square) { m_drawing.clear_square(converted(square)); }

    /// From and to of the last drag; the square twice after a plain click.
    std::pair<Square, Square> get_move() const;

    /// Turns the board by half and drops the arrows.
    void flip();
    bool is_flipped() const { return m_flipped; }

    void set_arrow(Square from, Square to, ArrowColor color) { m_drawing.set_arrow(from, to, color); }
    void clear_arrows() { m_drawing.clear_arrows(); }
    const std::vector<Arrow>& arrows() const { return m_drawing.arrows(); }

    void set_hints(std::vector<MoveHint> hints) { m_drawing.set_hints(std::move(hints)); }

    void set_marks(const BoardMarks& marks);

    /// The square whose piece is in the air.
    std::optional<Square> picked_square() const;

    Drawing& drawing() { return m_drawing; }

    /// The button was let go over a square, after a drag or without one; get_move() tells the squares.
    /// Without arguments: the listener asks for the squares when it wants them.
    sigc::signal<void>& signal_move_made() { return m_move_made; }
    /// The button was pressed on a piece; picked_square() tells the square.
    sigc::signal<void>& signal_piece_picked() { return m_piece_picked; }

    /// The wheel was turned by so many steps, towards the hand positive.
    sigc::signal<void, int>& signal_wheel() { return m_wheel_turned; }

protected:
    bool on_scroll_event(GdkEventScroll* event) override;
    bool on_button_press_event(GdkEventButton* event) override;
    bool on_button_release_event(GdkEventButton* event) override;
    bool on_motion_notify_event(GdkEventMotion* event) override;
    void on_grab_notify(bool was_grabbed) override;

private:
    /// From a square of the position to the shown square, and back.
    Square converted(Square square) const { return m_flipped ? turned(square) : square; }
    void report_move(std::pair<Square, Square> shown_squares);

    sigc::signal<void> m_move_made;
    sigc::signal<void> m_piece_picked;
    sigc::signal<void, int> m_wheel_turned;
    WheelSteps m_wheel;
    bool m_flipped = false;
    Drawing m_drawing;
    std::pair<Square, Square> m_move{Square(0), Square(0)};  // shown squares
    /// Kept as they came, to be turned when the board is.
    BoardMarks m_marks;  // squares of the position
};

}  // namespace velmora
