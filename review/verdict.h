#pragma once

#include <cstdint>
#include <string_view>

#include "analysis/evaluation.h"
#include "chess/board/side.h"

namespace velmora {

/// What a move has lost.
enum class Verdict { none, inaccuracy, mistake, blunder };

/// The numeric glyph that says so in a record: "$6" (?!), "$2" (?), "$4" (??); empty for none.
std::string_view glyph_of(Verdict verdict);
/// The verdict that a glyph stands for, none for any other.
Verdict verdict_of_glyph(std::string_view glyph);

/// The chances of a side to win, from -1 to 1: 2 / (1 + exp(-0.00368208 cp)) - 1, which is lichess' published
/// fit (lichess.org/page/accuracy); a mate is certain.
double winning_chances(const Evaluation& evaluation, Side side);

/// Judges a move of `mover` by what the positions ahead of it and behind it are worth.
///
/// By the public rules of lichess (its source `Advice`), so that the verdict is the one that people know: a
/// loss of chances of 0.1, 0.2 and 0.3 is an inaccuracy, a mistake and a blunder. A mate that the move brings
/// upon its own side, and a mate of its own that it lets go, are blunders, and less where the game was, or
/// still is, decided anyway: beyond 7 pawns a mistake, beyond 9.99 an inaccuracy. A mate that takes longer is
/// nothing. Whether the move is one that is to be judged at all is the caller's question.
Verdict judge(const Evaluation& before, const Evaluation& after, Side mover);

}  // namespace velmora
