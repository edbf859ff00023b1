#include "game/game_tree.h"

#include <algorithm>
#include <stdexcept>

#include "game/move_numbers.h"
#include "game/move_section.h"
#include "game/movetext_wrap.h"
#include "game/movetext_writer.h"

namespace velmora {

namespace {

/// Apart, so that node() needs no guarded stack frame for the text.
[[noreturn, gnu::noinline]] void throw_no_node(std::int32_t id) {
    throw std::out_of_range("GameTree::node: no node " + std::to_string(id));
}

}  // namespace

void GameTree::reset() {
    m_nodes.clear();
    auto& root = m_nodes.append();
    root.type = ElementType::start_game;
    root.color.reset();
    m_next_id = 1;
    m_start_color = Side::white;
    m_start_move_number = 1;
    m_text_offset = 0;
}

void GameTree::rebuild(MoveSection& section) {
    reset();
    m_start_color = section.start_color();
    m_start_move_number = section.start_move_number();
    m_next_id += static_cast<std::int64_t>(section.node_count());
    m_nodes.swap(section.elements());
    section.reset();
    skip_used_ids();
}

void GameTree::skip_used_ids() {
    while (m_next_id < end_id() && has_node(static_cast<std::int32_t>(m_next_id))) ++m_next_id;
}

std::int32_t GameTree::add_child(std::int32_t parent, const MoveSectionElement& record) {
    if (!has_node(parent)) throw std::logic_error("GameTree::add_child: invalid index");
    const auto id = static_cast<std::int32_t>(m_next_id);
    if (has_node(id)) {
        const auto& holder = node(id);
        throw std::logic_error("mse[" + std::to_string(id) + "]    id=" + std::to_string(holder.id) +
                               "  pid=" + std::to_string(holder.pid) + "  " +
                               std::to_string(holder.move_number) + " " + holder.san +
                               "\nGameTree::add_child: inconsistent map");
    }
    MoveSectionElement added = record;
    added.id = id;
    added.pid = parent;
    auto& above = node(parent);
    const auto number = std::max(above.move_number, 1);
    if (above.color) {
        added.color = opposite(*above.color);
        added.move_number = above.color == Side::white ? number : next_move_number(number);
    } else {
        added.color = m_start_color;
        added.move_number = m_start_move_number;
    }
    above.children.push_back(id);
    put(std::move(added));
    ++m_next_id;
    skip_used_ids();
    return id;
}

/// At its id, which is free.
void GameTree::put(MoveSectionElement element) {
    const auto id = element.id;
    while (end_id() <= id) m_nodes.append().type = ElementType::end_variation;
    m_nodes[static_cast<std::size_t>(id)] = std::move(element);
}

void GameTree::remove_leaf(std::int32_t id) {
    auto& leaf = node(id);
    std::erase(node(leaf.pid).children, id);
    leaf.reset();
    leaf.type = ElementType::end_variation;
    m_next_id = std::min<std::int64_t>(m_next_id, id);
}

bool GameTree::has_node(std::int32_t id) const {
    return id >= 0 && id < end_id() && !m_nodes[static_cast<std::size_t>(id)].is_marker();
}

MoveSectionElement& GameTree::node(std::int32_t id) {
    if (!has_node(id)) throw_no_node(id);
    return m_nodes[static_cast<std::size_t>(id)];
}

const MoveSectionElement& GameTree::node(std::int32_t id) const {
    return const_cast<GameTree*>(this)->node(id);
}

std::string GameTree::movetext() {
    MovetextWriter writer(*this);
    const auto text = writer.text();
    m_text_offset = writer.text_offset();
    return wrap_movetext(text);
}

}  // namespace velmora
