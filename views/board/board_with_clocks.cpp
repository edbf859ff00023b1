#include "views/board/board_with_clocks.h"

#include <algorithm>

namespace velmora {

namespace {

constexpr int bar_ratio = 15;  // its length to its height
constexpr int spacing = 4;     // pixels between bar and board

}  // namespace

BoardWithClocks::BoardWithClocks(Clocks& clocks, ChessBoard& board, EvaluationBar& evaluation)
    : Gtk::Box(Gtk::ORIENTATION_VERTICAL, spacing),
      m_clocks(clocks),
      m_board(board),
      m_evaluation(evaluation),
      m_bar("", Gtk::ALIGN_START, Gtk::ALIGN_START, float(bar_ratio), false) {
    m_bar.unset_label();  // an empty one would still take up a line
    m_bar.set_shadow_type(Gtk::SHADOW_NONE);
    m_bar.add(m_clocks);
    pack_start(m_bar, Gtk::PACK_SHRINK);
    pack_start(m_board, Gtk::PACK_EXPAND_WIDGET);
    m_evaluation.set_no_show_all();
    pack_start(m_evaluation, Gtk::PACK_SHRINK);
}

/// What the evaluation takes of the width, pixels.
int BoardWithClocks::edge_width() const {
    return m_evaluation.get_visible() ? EvaluationBar::width + spacing : 0;
}

void BoardWithClocks::get_preferred_width_vfunc(int& minimum, int& natural) const {
    m_board.get_preferred_width(minimum, natural);
    minimum = std::max(minimum, m_clocks.ordinary_size().width);
    natural = std::max(natural, minimum);
    minimum += edge_width();
    natural += edge_width();
}

void BoardWithClocks::get_preferred_height_vfunc(int& minimum, int& natural) const {
    int least_width = 0, width = 0;
    m_board.get_preferred_width(least_width, width);
    m_board.get_preferred_height(minimum, natural);
    const int ordinary = m_clocks.ordinary_size().height;
    minimum += spacing + std::max(ordinary, least_width / bar_ratio);
    natural += spacing + std::max(ordinary, width / bar_ratio);
}

void BoardWithClocks::on_size_allocate(Gtk::Allocation& allocation) {
    set_allocation(allocation);
    int board_minimum = 0, unused = 0;
    m_board.get_preferred_height(board_minimum, unused);
    const int height = allocation.get_height() - spacing;
    // A square and a bar of its width, one above the other, as large as they can be.
    const int width = allocation.get_width() - edge_width();
    const int square = std::min(width, height * bar_ratio / (bar_ratio + 1));
    const int ordinary = m_clocks.ordinary_size().height;
    const int bar_height = std::max(ordinary, std::min(square / bar_ratio, height - board_minimum));
    const int bar_width = std::min(width, bar_height * bar_ratio);
    m_clocks.set_text_scale(double(bar_height) / ordinary);
    // The toolkit wants every widget to be asked before it is given its place.
    m_bar.get_preferred_width(unused, unused);
    Gtk::Allocation bar(allocation.get_x() + (width - bar_width) / 2, allocation.get_y(), bar_width,
                        bar_height);
    m_bar.size_allocate(bar);
    Gtk::Allocation board(allocation.get_x(), allocation.get_y() + bar_height + spacing, width,
                          height - bar_height);
    m_board.size_allocate(board);
    if (!m_evaluation.get_visible()) return;
    const auto squares = m_board.squares_allocation();
    m_evaluation.get_preferred_width(unused, unused);
    Gtk::Allocation edge(squares.get_x() + squares.get_width() + spacing, squares.get_y(),
                         EvaluationBar::width, squares.get_height());
    m_evaluation.size_allocate(edge);
}

/// The box's own ground has no size, since the box was not asked to place its children.
bool BoardWithClocks::on_draw(const Cairo::RefPtr<Cairo::Context>& cr) {
    propagate_draw(m_bar, cr);
    propagate_draw(m_board, cr);
    if (m_evaluation.get_visible()) propagate_draw(m_evaluation, cr);
    return false;
}

}  // namespace velmora
