#include "views/lines/engine_lines_view.h"

#include <utility>

namespace velmora {

namespace {

constexpr int block_spacing = 8;  // pixels

}  // namespace

EngineLinesView::EngineLinesView(std::function<std::string(const LineMovePlace&)> position_of)
    : Gtk::Box(Gtk::ORIENTATION_VERTICAL, block_spacing), m_position_of(std::move(position_of)) {}

void EngineLinesView::show_searches(const std::vector<ShownSearch>& searches) {
    while (m_blocks.size() > searches.size()) m_blocks.pop_back();
    while (m_blocks.size() < searches.size()) {
        m_blocks.push_back(make_block(m_blocks.size()));
        pack_start(*m_blocks.back(), Gtk::PACK_SHRINK);
        m_blocks.back()->show();
    }
    for (std::size_t i = 0; i < searches.size(); ++i) m_blocks[i]->show_search(searches[i]);
}

std::unique_ptr<SearchBlock> EngineLinesView::make_block(std::size_t index) {
    const auto place = [index](std::size_t line, std::size_t move) {
        return LineMovePlace{index, line, move};
    };
    auto block = std::make_unique<SearchBlock>(
        [this, place](std::size_t line, std::size_t move) { return m_position_of(place(line, move)); });
    block->signal_move_chosen().connect(
        [this, place](std::size_t line, std::size_t move) { m_move_chosen.emit(place(line, move)); });
    block->signal_lines_wanted().connect([this](int change) { m_lines_wanted.emit(change); });
    block->signal_uncovered().connect([this] { m_uncovered.emit(); });
    return block;
}

}  // namespace velmora
