#include "review/reviewed_line.h"

#include <stdexcept>

#include "base/text.h"
#include "chess/moves/legal_moves.h"
#include "game/comment_parts.h"
#include "openings/eco.h"
#include "review/accuracy.h"

namespace velmora {

namespace {

/// The newest "[%depth ...]" of a comment, 0 without one.
std::int32_t depth_of_comment(std::string_view comment) {
    std::int32_t depth = 0;
    for (const auto& annotation : split_comment(comment).annotations) {
        if (annotation.name != "depth") continue;
        depth = text::strict_integer<std::int32_t>(annotation.value).value_or(0);
    }
    return depth;
}

/// Of a position without a legal move.
Evaluation worth_of_end(const ChessPosition& position) {
    if (!position.in_check()) return Evaluation::of_centipawns(0, Side::white);
    return Evaluation::of_mate(0, position.side_to_move());
}

}  // namespace

ReviewedLine::ReviewedLine(const Game& game) {
    Game walker = game;
    walker.to_start();
    m_start = walker;
    ChessPosition standard;
    standard.new_game();
    m_starts_normally = m_start.fen() == standard.fen();
    add(walker);
    if (m_starts_normally) m_positions[0].evaluation = start_evaluation;
    try {
        while (!walker.forward().empty()) add(walker);
    } catch (const std::logic_error&) {
        const auto& tree = walker.tree();
        const auto& next = tree.node(tree.node(walker.current()).child_at(0));
        m_unreadable_move = std::to_string(next.move_number) + (next.color == Side::white ? ". " : "... ") +
                            (next.san.empty() ? std::string("?") : next.san);
    }
}

void ReviewedLine::add(const Game& game) {
    const auto& node = game.tree().node(game.current());
    ReviewedPosition position;
    position.node = game.current();
    if (game.current() != 0) {
        position.move = game.last_move();
        position.san = node.san;
    }
    position.to_move = game.side_to_move();
    const auto moves = legal_moves(game);
    position.single_move = moves.size() == 1;
    position.named = !Eco().code(game.key()).empty();
    position.over = moves.empty();
    if (position.over) {
        position.evaluation = worth_of_end(game);
    } else {
        position.evaluation = evaluation_of_comment(node.comment);
        position.depth = depth_of_comment(node.comment);
    }
    m_positions.push_back(std::move(position));
}

ChessPosition ReviewedLine::position(std::size_t ply) const {
    ChessPosition position = m_start;
    for (std::size_t each = 1; each <= ply; ++each) position.do_move(m_positions[each].move);
    return position;
}

std::string ReviewedLine::text(std::size_t count) const {
    std::string text = m_start.fen() + " moves";
    for (std::size_t ply = 1; ply <= count; ++ply) text += ' ' + m_positions[ply].move.to_string(true);
    return text;
}

bool ReviewedLine::fits(const Game& game) const {
    const auto& tree = game.tree();
    std::int32_t id = 0;
    for (std::size_t ply = 1; ply <= plies(); ++ply) {
        id = tree.node(id).child_at(0);
        if (id < 0 || id != m_positions[ply].node || tree.node(id).san != m_positions[ply].san) return false;
    }
    return true;
}

std::vector<std::optional<Evaluation>> ReviewedLine::evaluations() const {
    std::vector<std::optional<Evaluation>> evaluations;
    evaluations.reserve(m_positions.size());
    for (const auto& position : m_positions) evaluations.push_back(position.evaluation);
    return evaluations;
}

}  // namespace velmora
