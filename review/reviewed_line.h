#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "analysis/evaluation.h"
#include "chess/board/side.h"
#include "chess/moves/position.h"
#include "game/game.h"

namespace velmora {

/// A position of the main line under review. Ply 0 is the start.
struct ReviewedPosition {
    std::int32_t node = 0;                 ///< of the game's tree
    Move move;                             ///< that leads to it; empty for the start
    std::string san;                       ///< its text in the tree; empty for the start
    Side to_move = Side::white;            ///< in the position
    bool single_move = false;              ///< there is one legal move in it
    bool named = false;                    ///< the table of openings knows it
    bool over = false;                     ///< no legal move: the rules say what it is worth
    std::optional<Evaluation> evaluation;  ///< from the comment, or by the rules
    std::int32_t depth = 0;                ///< from the comment, in plies
};

/// The main line of a game as a review sees it: its positions and what is known of each.
///
/// A snapshot: a review goes on for minutes while the record may change, and it must notice that (see
/// fits()). It ends ahead of the first move that can't be read or made.
class ReviewedLine {
public:
    explicit ReviewedLine(const Game& game);

    std::size_t plies() const { return m_positions.size() - 1; }
    ReviewedPosition& at(std::size_t ply) { return m_positions[ply]; }
    const ReviewedPosition& at(std::size_t ply) const { return m_positions[ply]; }

    /// Who makes the move that leads to a position, which isn't the start.
    Side mover(std::size_t ply) const { return m_positions[ply - 1].to_move; }

    /// What ends the line ahead of the game's own end: "12... Qx9"; empty where nothing does.
    const std::string& unreadable_move() const { return m_unreadable_move; }

    /// The position behind so many plies, with the moves up to it, as engines are given it.
    ChessPosition position(std::size_t ply) const;

    /// The whole line as the referee is given it: a FEN, and behind the word "moves" the moves in
    /// coordinates.
    std::string text() const { return text(plies()); }
    /// The same of its first `count` moves.
    std::string text(std::size_t count) const;

    /// Whether a game still has this line, by ids and moves; it may have become longer.
    bool fits(const Game& game) const;

    /// Whether the game begins from the standard start, which counts as slightly better for White and needs
    /// no search.
    bool starts_normally() const { return m_starts_normally; }

    /// Evaluations of all positions, nothing where none is known.
    std::vector<std::optional<Evaluation>> evaluations() const;

private:
    void add(const Game& game);

    ChessPosition m_start;
    bool m_starts_normally = false;
    std::vector<ReviewedPosition> m_positions;
    std::string m_unreadable_move;
};

}  // namespace velmora
