#include "review/verdict.h"

#include <array>
#include <cmath>

namespace velmora {

namespace {

constexpr std::array<std::string_view, 4> glyphs = {"", "$6", "$2", "$4"};

/// Beyond these, in centipawns of the better side, a game counts as decided.
constexpr std::int32_t clearly_decided = 700;
constexpr std::int32_t utterly_decided = 999;

bool mates(const Evaluation& evaluation, Side side) {
    return evaluation.kind ==
           (side == Side::white ? Evaluation::Kind::white_mates : Evaluation::Kind::black_mates);
}

/// Centipawns in the view of a side; 0 for a mate, whose side is asked for apart.
std::int32_t centipawns(const Evaluation& evaluation, Side side) {
    if (evaluation.is_mate()) return 0;
    return side == Side::white ? evaluation.value : -evaluation.value;
}

/// A mate came or went: how bad it is, by what the better side has or had without it.
Verdict by_margin(std::int32_t margin) {
    if (margin > utterly_decided) return Verdict::inaccuracy;
    return margin > clearly_decided ? Verdict::mistake : Verdict::blunder;
}

}  // namespace

std::string_view glyph_of(Verdict verdict) { return glyphs[static_cast<std::size_t>(verdict)]; }

Verdict verdict_of_glyph(std::string_view glyph) {
    for (const auto verdict : {Verdict::inaccuracy, Verdict::mistake, Verdict::blunder}) {
        if (glyph_of(verdict) == glyph) return verdict;
    }
    return Verdict::none;
}

double winning_chances(const Evaluation& evaluation, Side side) {
    const double white = 2 * evaluation.expected_score() - 1;
    return side == Side::white ? white : -white;
}

Verdict judge(const Evaluation& before, const Evaluation& after, Side mover) {
    const Side opponent = opposite(mover);
    if (mates(before, mover) && !mates(after, mover)) return by_margin(centipawns(after, mover));
    if (!before.is_mate() && mates(after, opponent)) return by_margin(-centipawns(before, mover));
    if (before.is_mate() || after.is_mate()) return Verdict::none;
    const double loss = winning_chances(before, mover) - winning_chances(after, mover);
    if (loss >= 0.3) return Verdict::blunder;
    if (loss >= 0.2) return Verdict::mistake;
    return loss >= 0.1 ? Verdict::inaccuracy : Verdict::none;
}

}  // namespace velmora
