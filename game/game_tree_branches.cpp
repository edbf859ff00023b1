// GameTree: branches are cut, put back, moved and counted anew.

#include <algorithm>
#include <utility>

#include "game/game_tree.h"
#include "game/move_numbers.h"

namespace velmora {

namespace {

void insert_child(MoveSectionElement& parent, std::int32_t id, std::size_t place) {
    const auto at = std::min(place, parent.children.size());
    parent.children.insert(parent.children.begin() + static_cast<std::ptrdiff_t>(at), id);
}

/// A node and all below it, parents ahead of children. A list and no recursion: lines are long.
std::vector<std::int32_t> ids_of_branch(const GameTree& tree, std::int32_t id) {
    std::vector<std::int32_t> ids = {id};
    for (std::size_t next = 0; next < ids.size(); ++next) {
        const auto& children = tree.node(ids[next]).children;
        ids.insert(ids.end(), children.begin(), children.end());
    }
    return ids;
}

}  // namespace

/// The ids are not given again before others: whoever still holds one finds it gone and not another move.
CutBranch GameTree::cut(std::int32_t id) {
    CutBranch branch{node(id).pid, place_of(id), {}};
    std::erase(node(branch.parent).children, id);
    for (const auto gone : ids_of_branch(*this, id)) {
        auto& element = node(gone);
        branch.nodes.push_back(std::exchange(element, {}));
        element.type = ElementType::end_variation;
    }
    return branch;
}

RenamedNodes GameTree::paste(CutBranch branch) {
    RenamedNodes renamed;
    const auto present = [&](std::int32_t id) {
        const auto found = std::find_if(renamed.begin(), renamed.end(),
                                        [id](const auto& names) { return names.first == id; });
        return found == renamed.end() ? id : found->second;
    };
    for (auto& element : branch.nodes) {
        const bool is_head = &element == &branch.nodes.front();
        const auto id = element.id;
        element.pid = is_head ? branch.parent : present(element.pid);
        element.children.clear();
        if (has_node(id)) {
            element.id = static_cast<std::int32_t>(m_next_id);
            renamed.emplace_back(id, element.id);
        }
        insert_child(node(element.pid), element.id, is_head ? branch.place : branch.nodes.size());
        put(std::move(element));
        skip_used_ids();
    }
    return renamed;
}

void GameTree::move_node(std::int32_t id, std::int32_t parent, std::size_t place) {
    auto& moved = node(id);
    std::erase(node(moved.pid).children, id);
    moved.pid = parent;
    insert_child(node(parent), id, place);
}

void GameTree::count_from_start(std::int32_t id) {
    for (const auto counted : ids_of_branch(*this, id)) {
        auto& element = node(counted);
        if (element.type != ElementType::move) continue;
        if (counted == id) {
            element.color = m_start_color;
            element.move_number = m_start_move_number;
            continue;
        }
        const auto& above = node(element.pid);
        element.color = opposite(above.color.value_or(Side::black));
        element.move_number =
            element.color == Side::black ? above.move_number : next_move_number(above.move_number);
    }
}

std::size_t GameTree::place_of(std::int32_t id) const {
    const auto& siblings = node(node(id).pid).children;
    return static_cast<std::size_t>(std::find(siblings.begin(), siblings.end(), id) - siblings.begin());
}

std::int32_t GameTree::end_of_line(std::int32_t id) const {
    while (node(id).children_count() > 0) id = node(id).child_at(0);
    return id;
}

std::int32_t GameTree::variation_of(std::int32_t id) const {
    while (id != 0 && node(node(id).pid).child_at(0) == id) id = node(id).pid;
    return id;
}

bool GameTree::is_within(std::int32_t id, std::int32_t ancestor) const {
    while (id != 0 && id != ancestor) id = node(id).pid;
    return id == ancestor;
}

}  // namespace velmora
