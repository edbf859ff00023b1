#include "game/tree_editor.h"

#include <algorithm>
#include <limits>

namespace velmora {

namespace {

constexpr auto last_place = std::numeric_limits<std::size_t>::max();

/// The result at the end of the main line; -1 without one.
std::int32_t result_of(const GameTree& tree) {
    const auto end = tree.end_of_line(0);
    return tree.node(end).type == ElementType::end_game ? end : -1;
}

}  // namespace

void TreeEditor::move_node(GameTree& tree, Change& change, std::int32_t id, std::int32_t parent,
                           std::size_t place) {
    const auto& node = tree.node(id);
    change.moved.push_back({id, node.pid, tree.place_of(id), parent, node.type});
    tree.move_node(id, parent, place);
}

bool TreeEditor::promote_once(GameTree& tree, Change& change, std::int32_t id) {
    const auto head = tree.variation_of(id);
    if (head == 0) return false;
    const auto result = result_of(tree);
    const auto parent = tree.node(head).pid;
    move_node(tree, change, head, parent, 0);
    if (parent == 0) tree.count_from_start(head);
    if (result >= 0 && result_of(tree) < 0) move_node(tree, change, result, tree.end_of_line(0), last_place);
    return true;
}

bool TreeEditor::promote(GameTree& tree, std::int32_t id) {
    Change change;
    if (!promote_once(tree, change, id)) return false;
    m_history.push_back(std::move(change));
    return true;
}

bool TreeEditor::make_main_line(GameTree& tree, std::int32_t id) {
    Change change;
    while (promote_once(tree, change, id)) {
    }
    if (change.moved.empty()) return false;
    m_history.push_back(std::move(change));
    return true;
}

bool TreeEditor::remove(GameTree& tree, std::int32_t id, std::int32_t stood) {
    if (!tree.has_node(id) || tree.node(id).type != ElementType::move) return false;
    Change change;
    const auto result = result_of(tree);
    if (result >= 0 && tree.is_within(result, id)) {
        const auto& siblings = tree.node(tree.node(id).pid).children;
        const auto next = siblings.size() > 1 ? siblings[1] : tree.node(id).pid;
        const auto end = siblings.size() > 1 ? tree.end_of_line(next) : next;
        if (tree.node(end).type != ElementType::end_game) move_node(tree, change, result, end, last_place);
    }
    if (tree.is_within(stood, id)) change.stood = stood;
    change.cut = tree.cut(id);
    m_history.push_back(std::move(change));
    return true;
}

void TreeEditor::lead(GameTree& tree, std::int32_t id) {
    if (tree.place_of(id) == 0) return;
    Change change;
    change.played = true;
    promote_once(tree, change, id);
    m_history.push_back(std::move(change));
}

std::optional<std::int32_t> TreeEditor::undo(GameTree& tree) {
    if (!can_undo()) return {};
    while (m_history.back().played) undo_last(tree);
    return undo_last(tree);
}

std::optional<std::int32_t> TreeEditor::undo_last(GameTree& tree) {
    // In the history until its own ids are known again.
    if (m_history.back().cut) {
        CutBranch branch = std::move(*m_history.back().cut);
        m_history.back().cut.reset();
        rename(tree.paste(std::move(branch)));
    }
    Change change = std::move(m_history.back());
    m_history.pop_back();
    for (; !change.moved.empty(); change.moved.pop_back()) {
        const MovedNode& moved = change.moved.back();
        if (!tree.has_node(moved.id) || !tree.has_node(moved.from)) continue;
        const auto& node = tree.node(moved.id);
        const bool is_there = node.pid == moved.to && node.type == moved.type;
        if (is_there) tree.move_node(moved.id, moved.from, moved.place);
    }
    return change.stood;
}

void TreeEditor::rename(const RenamedNodes& renamed) {
    const auto follow = [&renamed](std::int32_t& id) {
        const auto found = std::find_if(renamed.begin(), renamed.end(),
                                        [&id](const auto& names) { return names.first == id; });
        if (found != renamed.end()) id = found->second;
    };
    for (auto& change : m_history) {
        for (auto& moved : change.moved) {
            follow(moved.id);
            follow(moved.from);
            follow(moved.to);
        }
        if (change.cut) follow(change.cut->parent);
        if (change.stood) follow(*change.stood);
    }
}

}  // namespace velmora
