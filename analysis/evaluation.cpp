#include "analysis/evaluation.h"

#include <algorithm>
#include <cmath>

#include "base/text.h"

namespace velmora {

namespace {

/// Beyond this no number of pawns means anything; it keeps sums and negations in range.
constexpr std::int32_t largest = 1'000'000;

Bound turned(Bound bound) {
    if (bound == Bound::exact) return bound;
    return bound == Bound::lower ? Bound::upper : Bound::lower;
}

Evaluation mate(std::int32_t signed_moves) {
    const auto kind = signed_moves > 0 ? Evaluation::Kind::white_mates : Evaluation::Kind::black_mates;
    return {kind, std::min(std::abs(std::max(signed_moves, -largest)), largest), Bound::exact};
}

std::string centipawn_text(std::int32_t centipawns) {
    if (centipawns == 0) return "0.00";
    const std::int32_t size = std::abs(centipawns);
    const std::string hundredths = std::to_string(size % 100);
    return (centipawns > 0 ? "+" : "-") + std::to_string(size / 100) + (size % 100 < 10 ? ".0" : ".") +
           hundredths;
}

std::optional<Evaluation> parse_mate(std::string_view digits, bool negative) {
    const auto moves = text::strict_integer<std::int32_t>(digits);
    if (!moves || (negative && *moves < 0)) return std::nullopt;
    const bool black = negative != (*moves < 0);
    Evaluation result = mate(std::max(*moves, -largest));
    result.kind = black ? Evaluation::Kind::black_mates : Evaluation::Kind::white_mates;
    return result;
}

}  // namespace

Evaluation Evaluation::of_centipawns(std::int32_t centipawns, Side side, Bound bound) {
    const std::int32_t value = std::clamp(centipawns, -largest, largest);
    if (side == Side::white) return {Kind::centipawns, value, bound};
    return {Kind::centipawns, -value, turned(bound)};
}

Evaluation Evaluation::of_mate(std::int32_t moves, Side side, Bound bound) {
    Evaluation result = mate(moves);
    const Side winner = moves > 0 ? side : opposite(side);
    result.kind = winner == Side::white ? Kind::white_mates : Kind::black_mates;
    result.bound = side == Side::white ? bound : turned(bound);
    return result;
}

std::string Evaluation::text() const {
    std::string result;
    if (bound == Bound::lower) result = "\u2265";
    if (bound == Bound::upper) result = "\u2264";
    if (kind == Kind::centipawns) return result + centipawn_text(value);
    return result + (kind == Kind::black_mates ? "-#" : "#") + std::to_string(value);
}

double Evaluation::expected_score() const {
    constexpr double per_centipawn = 0.00368208;
    if (kind == Kind::white_mates) return 1;
    if (kind == Kind::black_mates) return 0;
    return 1 / (1 + std::exp(-per_centipawn * value));
}

std::string annotation_of(const Evaluation& evaluation) {
    if (!evaluation.is_mate()) return text::default_form(evaluation.value / 100.0);
    const bool black = evaluation.kind == Evaluation::Kind::black_mates;
    return (black ? "#-" : "#") + std::to_string(evaluation.value);
}

std::optional<Evaluation> parse_evaluation(std::string_view text) {
    text = text::trim_white_space(text.substr(0, text.find(',')));
    if (text.starts_with("mate ")) return parse_mate(text::trim_blanks(text.substr(5)), false);
    if (text.starts_with('#')) return parse_mate(text.substr(1), false);
    if (text.starts_with("-#")) return parse_mate(text.substr(2), true);
    if (text.starts_with("+#")) return parse_mate(text.substr(2), false);
    const bool plus = text.starts_with('+');
    if (plus && text.substr(1).find_first_of("+-") != std::string_view::npos) return std::nullopt;
    text::WordReader reader(plus ? text.substr(1) : text);
    const auto pawns = reader.real();
    if (!pawns || !reader.rest().empty() || !std::isfinite(*pawns)) return std::nullopt;
    const double centipawns = std::clamp(*pawns * 100, -double(largest), double(largest));
    return Evaluation::of_centipawns(static_cast<std::int32_t>(std::lround(centipawns)), Side::white);
}

std::optional<Evaluation> evaluation_of_comment(std::string_view comment) {
    constexpr std::string_view opening = "[%eval ";
    const auto begin = comment.rfind(opening);
    if (begin == std::string_view::npos) return std::nullopt;
    const std::string_view value = comment.substr(begin + opening.size());
    const auto end = value.find(']');
    if (end == std::string_view::npos) return std::nullopt;
    return parse_evaluation(value.substr(0, end));
}

}  // namespace velmora
