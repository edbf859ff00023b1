#include "views/board/board.h"

#include <algorithm>

namespace velmora {

Board::Board(int size) : m_drawing(size) {
    add_events(Gdk::BUTTON_PRESS_MASK | Gdk::BUTTON_RELEASE_MASK | Gdk::POINTER_MOTION_MASK |
               Gdk::SCROLL_MASK | Gdk::SMOOTH_SCROLL_MASK);
    add(m_drawing);
    m_drawing.signal_square_pressed().connect([this](Square square) {
        report_move({converted(square), converted(square)});
    });
}

/// A half turn of the board is the reversal of its 64 squares.
void Board::set_position(const Placement& pieces) {
    Placement shown = pieces;
    if (m_flipped) std::reverse(shown.begin(), shown.end());
    m_drawing.set_pieces(shown);
}

std::pair<Square, Square> Board::get_move() const {
    return {converted(m_move.first), converted(m_move.second)};
}

void Board::flip() {
    m_flipped = !m_flipped;
    // The last move stays the same squares of the position.
    m_move = {turned(m_move.first), turned(m_move.second)};
    m_drawing.flip();
    m_drawing.set_marks(m_flipped ? turned(m_marks) : m_marks);
}

void Board::set_marks(const BoardMarks& marks) {
    m_marks = marks;
    m_drawing.set_marks(m_flipped ? turned(m_marks) : m_marks);
}

std::optional<Square> Board::picked_square() const {
    if (!m_drawing.table().dragging()) return std::nullopt;
    return converted(m_drawing.table().drag_from());
}

void Board::report_move(std::pair<Square, Square> shown_squares) {
    m_move = shown_squares;
    m_move_made.emit();
}

bool Board::on_button_press_event(GdkEventButton* event) {
    // A double click sends a press of another type besides its two; it must not take up what is in the air
    // already.
    if (event->type != GDK_BUTTON_PRESS || event->button != GDK_BUTTON_PRIMARY) return true;
    // Whoever turns to the board is done with the text that was typed before.
    m_drawing.grab_focus();
    if (m_drawing.begin_drag(event->x, event->y)) m_piece_picked.emit();
    return true;
}

bool Board::on_button_release_event(GdkEventButton* event) {
    if (event->button != GDK_BUTTON_PRIMARY) return true;
    if (const auto move = m_drawing.end_drag(event->x, event->y)) report_move(*move);
    return true;
}

bool Board::on_motion_notify_event(GdkEventMotion* event) {
    m_drawing.drag_to(event->x, event->y);
    return true;
}

bool Board::on_scroll_event(GdkEventScroll* event) {
    if (const int steps = m_wheel.take(*event)) m_wheel_turned.emit(steps);
    return true;
}

void Board::on_grab_notify(bool was_grabbed) {
    // A dialog has taken the pointer in the middle of a drag: the release will not come here.
    if (!was_grabbed) m_drawing.cancel_drag();
}

}  // namespace velmora
