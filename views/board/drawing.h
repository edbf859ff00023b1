#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <gtkmm/drawingarea.h>

#include "views/board/arrow.h"
#include "views/board/board_images.h"
#include "views/board/board_marks.h"
#include "views/board/render_pacer.h"
#include "views/board/square_table.h"

namespace velmora {

/// The widget that paints the board. All squares are shown squares; only set_arrow() takes squares of the
/// position and turns them itself.
///
/// It paints what SquareTable, BoardMarks and the arrows say, and its part is to know what of that has to
/// be painted anew. Images are rendered when the board is first drawn, since only then size and scale of
/// the screen are known.
class Drawing : public Gtk::DrawingArea {
public:
    /// Asks for a board of this many pixels, see board_size().
    explicit Drawing(int size);

    /// As in SquareTable; what has changed is drawn anew.
    void set_pieces(const Placement& pieces);
    /// By letters as shown_pieces() reads them; "?" alone leaves a square as it is.
    void set_pieces(std::string_view letters);
    void set_piece(char letter, Square square);
    void clear_square(Square square);
    /// Takes all pieces and all arrows off the board.
    void clear();

    /// Takes up the piece under a point; false when there is none.
    bool begin_drag(double x, double y);
    /// Centres the piece in the air on a point.
    void drag_to(double x, double y);
    /// Lets go at a point; see SquareTable::end_drag().
    std::optional<std::pair<Square, Square>> end_drag(double x, double y);
    /// Puts a piece in the air back.
    void cancel_drag();

    /// Turns the board with its pieces by half. Drops the arrows.
    void flip();

    /// Nothing when one is no square of the board. The arrow is made for the present size of the cells and
    /// stays so when the size changes.
    void set_arrow(Square from, Square to, ArrowColor color);
    void clear_arrows();
    const std::vector<Arrow>& arrows() const { return m_arrows; }

    /// The moves that an engine would play, the best one first; they stay until the next call.
    void set_hints(std::vector<MoveHint> hints);

    void set_marks(const BoardMarks& marks);

    /// The fourteen images by code, at the size of a cell in device pixels.
    /// Rendered now if nothing has been drawn yet.
    const std::vector<Glib::RefPtr<Gdk::Pixbuf>>& pixbufs();
    /// That of a piece.
    const Glib::RefPtr<Gdk::Pixbuf>& image_of(Piece piece) {
        return pixbufs().at(std::size_t(image_code(piece)));
    }

    /// Where a square of the position is shown, and which one a shown square is.
    Square shown_square(Square square) const { return m_flipped ? turned(square) : square; }
    /// "e4, white pawn" or "e4, empty" for a square of the position.
    std::string content_in_words(Square square) const;
    /// A square of the position has been pressed by other means than the pointer.
    /// The pointer's events are the business of the board around it.
    sigc::signal<void, Square>& signal_square_pressed() { return m_square_pressed; }

    const SquareTable& table() const { return m_table; }
    CellSize cell() const { return m_cell; }

    bool on_draw(const Cairo::RefPtr<Cairo::Context>& cr) override;

protected:
    void on_size_allocate(Gtk::Allocation& allocation) override;

private:
    std::optional<Square> square_at(double x, double y) const { return velmora::square_at(x, y, m_cell); }
    void redraw_square(Square square);
    void square_changed(Square square);
    void squares_changed_since(const Placement& before);
    void redraw_piece_in_the_air();
    void render_images(double device_scale);
    bool redraw_settled();

    sigc::signal<void, Square> m_square_pressed;
    CellSize m_cell;
    bool m_flipped = false;
    SquareTable m_table;
    BoardMarks m_marks;
    std::vector<Arrow> m_arrows;
    std::vector<MoveHint> m_hints;  // the best one last
    BoardImages m_images;
    RenderPacer m_pacer;
    double m_device_scale = 0;    // device pixels a pixel at the last draw
    sigc::connection m_settling;  // waits for the size to stand still
};

}  // namespace velmora
