#include "views/board/board_painter.h"

#include <array>
#include <numbers>
#include <utility>

namespace velmora {

namespace {

struct Tint {
    double red, green, blue, alpha;
};

constexpr Tint last_move_tint{0.98, 0.80, 0.10, 0.37};
constexpr Tint selection_tint{0.15, 0.55, 0.30, 0.62};
constexpr Tint target_tint{0.10, 0.36, 0.18, 0.62};
constexpr Tint check_tint{0.93, 0.05, 0.05, 0.95};

void set_tint(const Cairo::RefPtr<Cairo::Context>& cr, const Tint& tint) {
    cr->set_source_rgba(tint.red, tint.green, tint.blue, tint.alpha);
}

/// The painting of one picture; holds what every step needs.
///
/// Cells out of the clip are left out one by one: during a drag the clip is the place of the piece, and to
/// paint 64 cells for each motion of the pointer would make it lag.
class Painter {
public:
    Painter(Cairo::RefPtr<Cairo::Context> cr, const BoardPicture& picture)
        : m_cr(std::move(cr)), m_picture(picture), m_cell(picture.cell) {
        m_cr->get_clip_extents(m_left, m_top, m_right, m_bottom);
    }

    void paint_cells();
    void paint_marks();
    void paint_piece_in_the_air();
    /// @param strength  1 in full colour and width, less is paler and thinner
    void paint_arrow(const Arrow& arrow, double strength = 1);

private:
    bool is_visible(Place corner) const {
        return corner.x < m_right && corner.x + m_cell.width > m_left && corner.y < m_bottom &&
               corner.y + m_cell.height > m_top;
    }
    void rectangle(Place corner) { m_cr->rectangle(corner.x, corner.y, m_cell.width, m_cell.height); }
    void set_image(int code, Place corner);
    void paint_image(int code, Place corner);
    template <class Shade>
    void shade_square(Square square, const Shade& shade);
    void tint_square(Square square, const Tint& tint);
    void warn_on_square(Square square);
    void paint_disc(Square square, double radius, double hole);

    Cairo::RefPtr<Cairo::Context> m_cr;
    const BoardPicture& m_picture;
    CellSize m_cell;
    double m_left = 0, m_top = 0, m_right = 0, m_bottom = 0;  // what the clip leaves
};

/// Makes an image the source, stretched to a cell at that corner.
void Painter::set_image(int code, Place corner) {
    const auto pattern = Cairo::SurfacePattern::create(m_picture.images.surface(code));
    const CellSize size = m_picture.images.size();
    auto to_image =
        Cairo::scaling_matrix(double(size.width) / m_cell.width, double(size.height) / m_cell.height);
    to_image.translate(-corner.x, -corner.y);
    pattern->set_matrix(to_image);
    // Beyond its edge a scaled image is continued, or else a seam of half transparent pixels would show.
    pattern->set_extend(Cairo::EXTEND_PAD);
    m_cr->set_source(pattern);
}

void Painter::paint_image(int code, Place corner) {
    set_image(code, corner);
    rectangle(corner);
    m_cr->fill();
}

void Painter::paint_cells() {
    for (int row = 7; row >= 0; --row) {
        for (int file = 0; file < 8; ++file) {
            const Square square(8 * row + file);
            const Place corner = corner_of(square, m_cell);
            if (!is_visible(corner)) continue;
            const Piece piece = m_picture.table.piece_on(square);
            paint_image(is_dark(square) ? dark_square_image : light_square_image, corner);
            if (!piece.empty()) paint_image(image_code(piece), corner);
        }
    }
}

/// Shades a cell around its piece: a colour laid over the piece would dull it. The function gets the corner
/// of the cell.
template <class Shade>
void Painter::shade_square(Square square, const Shade& shade) {
    if (!square.on_board()) return;
    const Place corner = corner_of(square, m_cell);
    if (!is_visible(corner)) return;
    m_cr->save();
    rectangle(corner);
    m_cr->clip();
    m_cr->push_group();
    shade(corner);
    if (const Piece piece = m_picture.table.piece_on(square); !piece.empty()) {
        m_cr->set_operator(Cairo::OPERATOR_DEST_OUT);
        set_image(image_code(piece), corner);
        m_cr->paint();
    }
    m_cr->pop_group_to_source();
    m_cr->paint();
    m_cr->restore();
}

void Painter::tint_square(Square square, const Tint& tint) {
    shade_square(square, [&](Place) {
        set_tint(m_cr, tint);
        m_cr->paint();
    });
}

void Painter::warn_on_square(Square square) {
    shade_square(square, [&](Place corner) {
        const double x = corner.x + m_cell.width / 2.0, y = corner.y + m_cell.height / 2.0;
        const auto glow = Cairo::RadialGradient::create(x, y, 0, x, y, m_cell.width * 0.62);
        const Tint& t = check_tint;
        glow->add_color_stop_rgba(0.0, t.red, t.green, t.blue, t.alpha);
        glow->add_color_stop_rgba(0.55, t.red, t.green, t.blue, t.alpha * 0.8);
        glow->add_color_stop_rgba(1.0, t.red, t.green, t.blue, 0);
        m_cr->set_source(glow);
        m_cr->paint();
    });
}

/// A disc, or a ring when it has a hole, in the middle of a cell; radii in cells.
void Painter::paint_disc(Square square, double radius, double hole) {
    shade_square(square, [&](Place corner) {
        const double x = corner.x + m_cell.width / 2.0, y = corner.y + m_cell.height / 2.0;
        m_cr->begin_new_path();
        m_cr->arc(x, y, radius * m_cell.width, 0, 2 * std::numbers::pi);
        m_cr->begin_new_sub_path();
        m_cr->arc_negative(x, y, hole * m_cell.width, 2 * std::numbers::pi, 0);
        set_tint(m_cr, target_tint);
        m_cr->fill();
    });
}

void Painter::paint_marks() {
    const BoardMarks& marks = m_picture.marks;
    m_cr->save();
    if (marks.last_move) {
        tint_square(marks.last_move->first, last_move_tint);
        tint_square(marks.last_move->second, last_move_tint);
    }
    if (marks.selected) tint_square(*marks.selected, selection_tint);
    if (marks.checked_king) warn_on_square(*marks.checked_king);
    for (const Square square : marks.targets) paint_disc(square, 0.15, 0);
    for (const Square square : marks.captures) paint_disc(square, 0.485, 0.395);
    m_cr->restore();
}

void Painter::paint_piece_in_the_air() {
    if (!m_picture.table.dragging()) return;
    paint_image(image_code(m_picture.table.drag_piece()), m_picture.table.drag_place());
}

void Painter::paint_arrow(const Arrow& arrow, double strength) {
    static constexpr std::array<Tint, 3> colors{{{1, 0, 0, 0.8}, {0, 1, 0, 0.8}, {0, 0, 1, 0.8}}};
    const int height = 8 * m_cell.height;
    m_cr->save();
    Tint tint = colors[std::size_t(arrow.color)];
    tint.alpha *= strength;
    set_tint(m_cr, tint);
    const int width = m_cell.width / 8;
    m_cr->set_line_width(width * strength);
    m_cr->set_line_cap(Cairo::LINE_CAP_ROUND);
    m_cr->move_to(arrow.x1, height - arrow.y1);
    m_cr->line_to(arrow.x2, height - arrow.y2);
    m_cr->stroke();
    for (const Corner& corner : arrow_head(arrow, m_cell)) m_cr->line_to(corner.x, corner.y);
    m_cr->set_line_width(1);
    m_cr->close_path();
    m_cr->fill_preserve();
    m_cr->stroke();
    m_cr->restore();
}

}  // namespace

void paint_board(const Cairo::RefPtr<Cairo::Context>& cr, const BoardPicture& picture) {
    if (picture.cell.width <= 0 || picture.cell.height <= 0) return;
    // The picture is made aside and reaches the screen with one final paint.
    cr->push_group();
    Painter painter(cr, picture);
    painter.paint_cells();
    painter.paint_marks();
    painter.paint_piece_in_the_air();
    for (const HintArrow& hint : picture.hints) painter.paint_arrow(hint.arrow, hint.strength);
    for (const Arrow& arrow : picture.arrows) painter.paint_arrow(arrow);
    cr->pop_group_to_source();
    cr->paint();
}

}  // namespace velmora
