#include "views/board/drawing.h"

#include <algorithm>
#include <cmath>

#include <glibmm/main.h>

#include "views/board/board_accessible.h"
#include "views/board/board_painter.h"
#include "views/board/shown_position.h"

namespace velmora {

// A type of its own in the toolkit, so that it can have accessible objects of its own.
Drawing::Drawing(int size) : Glib::ObjectBase("velmora_Drawing") {
    use_board_accessible(GTK_WIDGET_GET_CLASS(gobj()));
    get_accessible()->set_name("Chess board");
    get_accessible()->set_role(Atk::ROLE_DRAWING_AREA);
    set_can_focus();
    const int side = board_size(size);
    set_size_request(side, side);
    m_cell = cell_of(side, side);
}

void Drawing::set_pieces(const Placement& pieces) {
    const Placement before = m_table.pieces();
    redraw_piece_in_the_air();
    m_table.set_pieces(pieces);
    squares_changed_since(before);
}

void Drawing::set_pieces(std::string_view letters) { set_pieces(shown_pieces(letters)); }

void Drawing::set_piece(char letter, Square square) {
    const Piece piece = shown_piece(letter);
    if (piece.empty()) return;
    m_table.set_piece(piece, square);
    square_changed(square);
}

void Drawing::clear_square(Square square) {
    m_table.clear_square(square);
    square_changed(square);
}

void Drawing::clear() {
    clear_arrows();
    const Placement before = m_table.pieces();
    redraw_piece_in_the_air();
    m_table.clear();
    squares_changed_since(before);
}

bool Drawing::begin_drag(double x, double y) {
    const auto square = square_at(x, y);
    // Until the pointer moves the piece stays where it stands, so there is nothing to draw.
    return m_table.begin_drag(square, square ? corner_of(*square, m_cell) : Place{});
}

void Drawing::drag_to(double x, double y) {
    if (!m_table.dragging()) return;
    redraw_piece_in_the_air();
    m_table.drag_to({int(std::floor(x)) - m_cell.width / 2, int(std::floor(y)) - m_cell.height / 2});
    redraw_piece_in_the_air();
}

std::optional<std::pair<Square, Square>> Drawing::end_drag(double x, double y) {
    redraw_piece_in_the_air();
    const auto move = m_table.end_drag(square_at(x, y));
    if (move) {
        square_changed(move->first);
        square_changed(move->second);
    }
    return move;
}

void Drawing::cancel_drag() {
    if (!m_table.dragging()) return;
    redraw_piece_in_the_air();
    m_table.cancel_drag();
    square_changed(m_table.drag_from());
}

void Drawing::flip() {
    m_arrows.clear();
    m_flipped = !m_flipped;
    m_table.turn();
    queue_draw();
}

void Drawing::set_arrow(Square from, Square to, ArrowColor color) {
    if (const auto arrow = make_arrow(shown_square(from), shown_square(to), color, m_cell)) {
        m_arrows.push_back(*arrow);
        queue_draw();
    }
}

void Drawing::clear_arrows() {
    if (m_arrows.empty()) return;
    m_arrows.clear();
    queue_draw();
}

void Drawing::set_hints(std::vector<MoveHint> hints) {
    // The weakest is painted first, so that the best move lies on top.
    std::reverse(hints.begin(), hints.end());
    if (hints == m_hints) return;
    m_hints = std::move(hints);
    queue_draw();
}

void Drawing::set_marks(const BoardMarks& marks) {
    const auto squares = changed_squares(m_marks, marks);
    m_marks = marks;
    for (const Square square : squares) redraw_square(square);
}

const std::vector<Glib::RefPtr<Gdk::Pixbuf>>& Drawing::pixbufs() {
    if (m_images.pixbufs().empty()) render_images(get_scale_factor());
    return m_images.pixbufs();
}

std::string Drawing::content_in_words(Square square) const {
    const Piece piece = m_table.piece_on(shown_square(square));
    return square.name() + ", " + (piece.empty() ? "empty" : piece.name());
}

bool Drawing::on_draw(const Cairo::RefPtr<Cairo::Context>& cr) {
    double scale_x = 1, scale_y = 1;
    cairo_surface_get_device_scale(cairo_get_target(cr->cobj()), &scale_x, &scale_y);
    render_images(scale_x);
    std::vector<HintArrow> hints;
    for (const MoveHint& hint : m_hints) {
        const auto arrow =
            make_arrow(shown_square(hint.from), shown_square(hint.to), ArrowColor::blue, m_cell);
        if (arrow) hints.push_back({*arrow, hint.strength});
    }
    paint_board(cr, {m_table, m_marks, m_arrows, hints, m_images, m_cell});
    return true;
}

void Drawing::on_size_allocate(Gtk::Allocation& allocation) {
    Gtk::DrawingArea::on_size_allocate(allocation);
    m_cell = cell_of(allocation.get_width(), allocation.get_height());
}

void Drawing::redraw_square(Square square) {
    const Place corner = corner_of(square, m_cell);
    queue_draw_area(corner.x, corner.y, m_cell.width, m_cell.height);
}

/// Draws a shown square anew and tells who listens.
void Drawing::square_changed(Square square) {
    redraw_square(square);
    tell_square_changed(Gtk::Widget::gobj(), shown_square(square));
}

void Drawing::squares_changed_since(const Placement& before) {
    for (Square square(0); square.on_board(); ++square) {
        if (before[std::size_t(square.value())] != m_table.piece_on(square)) square_changed(square);
    }
}

void Drawing::redraw_piece_in_the_air() {
    if (!m_table.dragging()) return;
    const Place place = m_table.drag_place();
    queue_draw_area(place.x, place.y, m_cell.width, m_cell.height);
}

/// Brings the images to the size of a cell, at once or when the size has settled.
void Drawing::render_images(double device_scale) {
    if (device_scale != m_device_scale) {
        // Another monitor, not a size under way.
        m_device_scale = device_scale;
        m_pacer = RenderPacer();
    }
    const CellSize wanted{int(std::lround(m_cell.width * device_scale)),
                          int(std::lround(m_cell.height * device_scale))};
    if (m_pacer.is_due(wanted, std::chrono::steady_clock::now())) {
        m_images.render(wanted);
        // This draw may be of a part of the board only.
        queue_draw();
    } else if (m_images.size() != wanted && !m_settling) {
        m_settling = Glib::signal_timeout().connect(
            sigc::mem_fun(*this, &Drawing::redraw_settled),
            unsigned(std::chrono::milliseconds(RenderPacer::settling_time).count()));
    }
}

bool Drawing::redraw_settled() {
    queue_draw();
    return false;
}

}  // namespace velmora
