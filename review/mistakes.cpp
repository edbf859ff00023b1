#include "review/mistakes.h"

#include "review/verdict.h"

namespace velmora {

namespace {

bool is_marked(const GameTree& tree, std::int32_t node) {
    return verdict_of_glyph(tree.node(node).nag) != Verdict::none;
}

/// The node itself, or the move of the main line that its variation, however deep, replaces.
std::int32_t on_main_line(const GameTree& tree, std::int32_t node) {
    for (auto first = tree.variation_of(node); first != 0; first = tree.variation_of(node)) {
        node = tree.node(tree.node(first).pid).child_at(0);
    }
    return node;
}

}  // namespace

std::optional<std::int32_t> mistake_after(const GameTree& tree, std::int32_t node) {
    std::optional<std::int32_t> first;
    bool behind = false;
    const auto at = on_main_line(tree, node);
    for (std::int32_t each = 0; each >= 0; each = tree.node(each).child_at(0)) {
        if (is_marked(tree, each) && behind) return each;
        if (is_marked(tree, each) && !first) first = each;
        behind = behind || each == at;
    }
    return first;
}

std::optional<std::int32_t> mistake_before(const GameTree& tree, std::int32_t node) {
    std::optional<std::int32_t> before, last;
    bool behind = false;
    // The move that a variation replaces lies ahead of it.
    const auto at = on_main_line(tree, node);
    for (std::int32_t each = 0; each >= 0; each = tree.node(each).child_at(0)) {
        behind = behind || (each == at && each == node);
        if (is_marked(tree, each)) {
            last = each;
            if (!behind) before = each;
        }
        behind = behind || each == at;
    }
    return before ? before : last;
}

std::optional<std::int32_t> better_move(const GameTree& tree, std::int32_t node) {
    if (node <= 0 || !tree.has_node(node) || !is_marked(tree, node) || on_main_line(tree, node) != node) {
        return std::nullopt;
    }
    const auto& alternatives = tree.node(tree.node(node).pid).children;
    if (alternatives.size() < 2 || alternatives.front() != node) return std::nullopt;
    return alternatives.back();
}

}  // namespace velmora
