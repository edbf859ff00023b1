#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

#include "analysis/evaluation.h"
#include "game/game_tree.h"

namespace velmora {

/// A position of a game's main line: the move that leads to it, and what it is worth.
struct EvaluatedNode {
    std::int32_t node = 0;  ///< of the tree; 0 is the start
    std::string move;       ///< "12. Nf3", "12... Nf6"; "Start" for the start
    std::optional<Evaluation> evaluation;
};

/// What is known of the positions of one game: what its comments say, and what an engine has said since.
///
/// The comment goes first where both speak: it is part of the game. A node is known by its id and its move,
/// since the id of a node that is taken out may be given again.
class GameEvaluations {
public:
    /// Takes what an engine says of the position at a node after so many plies. A bound isn't an evaluation
    /// yet, and one of less depth than what is known tells less: both are left out.
    void note(const GameTree& tree, std::int32_t node, const Evaluation& evaluation, std::int32_t depth);
    void clear() { m_noted.clear(); }

    /// The evaluation of a node; nothing where there is none.
    std::optional<Evaluation> at(const GameTree& tree, std::int32_t node) const;

    /// The start and the moves of the main line, with their evaluations.
    std::vector<EvaluatedNode> main_line(const GameTree& tree) const;

private:
    struct Noted {
        std::string san;
        Evaluation evaluation;
        std::int32_t depth = 0;
    };

    std::unordered_map<std::int32_t, Noted> m_noted;
};

}  // namespace velmora
