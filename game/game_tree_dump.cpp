#include "game/game_tree.h"

namespace velmora {

namespace {

std::string type_word(ElementType type) {
    switch (type) {
        case ElementType::start_game:
            return "start_game";
        case ElementType::end_game:
            return "  end_game";
        case ElementType::begin_variation:
            return "(";
        case ElementType::end_variation:
            return ")";
        case ElementType::move:
            break;
    }
    return " ";
}

std::string comment_start(const std::string& comment) {
    constexpr std::size_t shown = 20;
    if (comment.empty()) return {};
    return "{" + comment.substr(0, shown) + "}" + (comment.size() > shown ? " ... " : "");
}

std::string children_list(const MoveSectionElement& node) {
    if (node.children_count() < 2) return {};
    std::string list;
    for (const auto child : node.children) list += (list.empty() ? "" : ",") + std::to_string(child);
    return "\tchildren{" + list + "}";
}

std::string line_of(const MoveSectionElement& node) {
    auto line = "id " + std::to_string(node.id) + "  pid " + std::to_string(node.pid) + "  " +
                type_word(node.type) + "  ";
    if (node.type == ElementType::end_game) line += node.result + " ";
    if (node.color) line += node.color == Side::white ? "W  " : "B  ";
    if (node.move_number > 0) line += std::to_string(node.move_number) + ".";
    return line + node.san + "\t" + node.nag + comment_start(node.comment) + children_list(node) + "\n";
}

}  // namespace

std::string GameTree::dump() const {
    std::string listing;
    for (std::int32_t id = 0; id < end_id(); ++id) {
        if (!has_node(id)) continue;
        const auto& shown = node(id);
        listing += line_of(shown);
        if (shown.type == ElementType::move && shown.color == node(shown.pid).color) {
            listing += "ERROR  wrong color\n";
        }
    }
    return listing + "dump() stopped.";
}

}  // namespace velmora
