#include "views/board/chess_board.h"

#include <algorithm>

#include <gdkmm/general.h>

#include "views/board/board_accessible.h"
#include "views/board/shown_position.h"

namespace velmora {

namespace {

constexpr double label_opacity = 0.6;
/// Around a label, pixels.
constexpr int label_padding = 3;
/// How many margins for the labels are as long as the squares of a large board.
constexpr int labels_a_side = 27;

}  // namespace

ChessBoard::ChessBoard(int size)
    : Gtk::AspectFrame("", Gtk::ALIGN_CENTER, Gtk::ALIGN_CENTER, 1.0, false), m_board(size) {
    // An empty label would still take up a line's height.
    unset_label();
    set_shadow_type(Gtk::SHADOW_NONE);
    get_accessible()->set_name("Board");
    add(m_board);
    m_board.signal_move_made().connect(m_move_made.make_slot());
}

void ChessBoard::set_fen(const std::string& fen) {
    const ShownPosition position = read_shown_position(fen);
    m_board.set_position(position.pieces);
    drawing().get_accessible()->set_description(describe_pieces(position.pieces));
    m_white_to_move = position.white_to_move;
}

void ChessBoard::flip() {
    m_board.flip();
    queue_draw();
}

void ChessBoard::announce(const std::string& text) {
    get_accessible()->set_description(text);
    say(drawing().Gtk::Widget::gobj(), text.c_str());
}

bool ChessBoard::on_draw(const Cairo::RefPtr<Cairo::Context>& cr) {
    Gtk::AspectFrame::on_draw(cr);
    const auto board = m_board.get_allocation();
    const int left = board.get_x() - get_allocation().get_x(), top = board.get_y() - get_allocation().get_y();
    Gdk::Rectangle clip;
    if (!Gdk::Cairo::get_clip_rectangle(cr, clip)) return false;
    if (clip.get_x() >= left && clip.get_y() + clip.get_height() <= top + board.get_height()) return false;
    const int cell = board.get_width() / 8;
    for (int i = 0; i < 8; ++i) {
        const int shown = is_flipped() ? 7 - i : i;
        draw_label(cr, char('a' + shown), left + (i + 0.5) * cell,
                   top + board.get_height() + m_label_width / 2.0);
        draw_label(cr, char('1' + shown), left - m_label_width / 2.0, top + (7.5 - i) * cell);
    }
    return false;
}

/// A character centred on a point.
void ChessBoard::draw_label(const Cairo::RefPtr<Cairo::Context>& cr, char label, double x, double y) {
    const auto layout = create_pango_layout(std::string(1, label));
    Pango::AttrList attributes;
    auto enlarged = Pango::Attribute::create_attr_scale(double(m_label_width) / m_least_label_width);
    attributes.insert(enlarged);
    layout->set_attributes(attributes);
    int width = 0, height = 0;
    layout->get_pixel_size(width, height);
    Gdk::RGBA color = get_style_context()->get_color(get_state_flags());
    color.set_alpha(color.get_alpha() * label_opacity);
    Gdk::Cairo::set_source_rgba(cr, color);
    cr->move_to(x - width / 2.0, y - height / 2.0);
    layout->show_in_cairo_context(cr);
}

void ChessBoard::on_style_updated() {
    Gtk::AspectFrame::on_style_updated();
    int width = 0, height = 0;
    create_pango_layout("8")->get_pixel_size(width, height);
    m_least_label_width = std::max(width, height) + label_padding;
    m_label_width = m_least_label_width;
    queue_resize();
}

void ChessBoard::get_preferred_width_vfunc(int& minimum, int& natural) const {
    Gtk::AspectFrame::get_preferred_width_vfunc(minimum, natural);
    minimum += std::max(m_least_label_width, minimum / labels_a_side);
    natural += std::max(m_least_label_width, natural / labels_a_side);
}

void ChessBoard::get_preferred_height_vfunc(int& minimum, int& natural) const {
    Gtk::AspectFrame::get_preferred_height_vfunc(minimum, natural);
    minimum += std::max(m_least_label_width, minimum / labels_a_side);
    natural += std::max(m_least_label_width, natural / labels_a_side);
}

void ChessBoard::compute_child_allocation_vfunc(Gtk::Allocation& allocation) {
    Gtk::AspectFrame::compute_child_allocation_vfunc(allocation);
    const int side = std::max(std::min(allocation.get_width(), allocation.get_height()), 0);
    m_label_width = std::max(m_least_label_width, side / (labels_a_side + 1));
    // Whole cells only: what is left over would show as a strip beside the last of them.
    const int squares = std::max(side - m_label_width, 0) / 8 * 8;
    const int used = squares + m_label_width;
    allocation.set_x(allocation.get_x() + (allocation.get_width() - used) / 2 + m_label_width);
    allocation.set_y(allocation.get_y() + (allocation.get_height() - used) / 2);
    allocation.set_width(squares);
    allocation.set_height(squares);
}

}  // namespace velmora
