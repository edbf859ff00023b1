#pragma once

#include <cstdint>
#include <optional>
#include <span>

#include "analysis/evaluation.h"
#include "chess/board/side.h"

namespace velmora {

/// What the standard start position counts as: White has a slight advantage.
inline constexpr Evaluation start_evaluation{Evaluation::Kind::centipawns, 15, Bound::exact};

/// How well one side has played.
struct Accuracy {
    std::int32_t average_loss = 0;  ///< centipawns a move
    double percent = 100;           ///< 0 to 100

    bool operator==(const Accuracy&) const = default;
};

/// A side's chance to win in per cent: 50 + 50 times its winning chances, evaluations cut at 10 pawns.
double win_percent(const Evaluation& evaluation, Side side);

/// The accuracy of one move in per cent, from the mover's win percentages ahead of it and behind it:
/// 103.1668100711649 exp(-0.04354415386753951 fall) - 3.166924740191411 + 1, kept in 0 to 100
/// (lichess.org/page/accuracy, and lichess' public source `AccuracyPercent`).
double move_accuracy(double before, double after);

/// Average loss and accuracy of a side over a game. Nothing where no move of it can be judged.
///
/// The accuracy is half the harmonic mean of those of its moves, of which none counts as less than 1, and
/// half their mean weighted by how volatile the game was: the standard deviation of the win percentages over
/// a window of a tenth of the plies, 2 to 8, which slides over all positions; it is kept in 0.5 to 12, and
/// the first window stands for the first plies, too. The loss cuts evaluations at 10 pawns, takes mates as
/// that, and counts a gain as 0. (lichess' public sources `AccuracyPercent` and `AccuracyCP`.)
/// @param positions  that of the start and those behind each ply; a move beside one that is missing isn't
///                   counted, and the windows see the last one known
/// @param first      who moves first
std::optional<Accuracy> accuracy_of(std::span<const std::optional<Evaluation>> positions, Side first,
                                    Side side);

}  // namespace velmora
