#include "analysis/game_evaluations.h"

namespace velmora {

void GameEvaluations::note(const GameTree& tree, std::int32_t node, const Evaluation& evaluation,
                           std::int32_t depth) {
    if (evaluation.bound != Bound::exact || !tree.has_node(node)) return;
    const std::string& san = tree.node(node).san;
    const auto known = m_noted.find(node);
    if (known != m_noted.end() && known->second.san == san && known->second.depth > depth) return;
    m_noted.insert_or_assign(node, Noted{san, evaluation, depth});
}

std::optional<Evaluation> GameEvaluations::at(const GameTree& tree, std::int32_t node) const {
    if (!tree.has_node(node)) return std::nullopt;
    if (const auto said = evaluation_of_comment(tree.node(node).comment)) return said;
    const auto noted = m_noted.find(node);
    if (noted == m_noted.end() || noted->second.san != tree.node(node).san) return std::nullopt;
    return noted->second.evaluation;
}

std::vector<EvaluatedNode> GameEvaluations::main_line(const GameTree& tree) const {
    std::vector<EvaluatedNode> line;
    line.push_back({0, "Start", at(tree, 0)});
    for (auto id = tree.node(0).child_at(0); id > 0; id = tree.node(id).child_at(0)) {
        const auto& node = tree.node(id);
        if (node.type != ElementType::move) break;
        line.push_back(
            {id, std::to_string(node.move_number) + (node.color == Side::white ? ". " : "... ") + node.san,
             at(tree, id)});
    }
    return line;
}

}  // namespace velmora
