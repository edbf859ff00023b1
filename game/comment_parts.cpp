#include "game/comment_parts.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <optional>

#include "base/text.h"
#include "game/annotations.h"

namespace velmora {

namespace {

constexpr std::string_view blanks = " \t\n";

std::string_view trimmed(std::string_view text) {
    const auto begin = text.find_first_not_of(blanks);
    if (begin == std::string_view::npos) return {};
    return text.substr(begin, text.find_last_not_of(blanks) + 1 - begin);
}

/// @param inner  what stands between "[%" and "]"
CommentAnnotation annotation_of(std::string_view inner) {
    const auto end_of_name = std::min(inner.find_first_of(blanks), inner.size());
    return {inner.substr(0, end_of_name), trimmed(inner.substr(end_of_name))};
}

std::optional<double> number(std::string_view text) {
    if (text.starts_with('+')) text.remove_prefix(1);
    double value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error != std::errc() || end != text.data() + text.size() || !std::isfinite(value)) return {};
    return value;
}

template <class... Values>
std::string formatted(const char* format, Values... values) {
    std::array<char, 32> text{};
    std::snprintf(text.data(), text.size(), format, values...);
    return text.data();
}

/// Seconds of "h:m:s", "m:s" or "s", of which the last may have a fraction.
std::optional<double> seconds(std::string_view text) {
    double sum = 0;
    for (int parts = 0; parts < 3; ++parts) {
        const auto colon = text.find(':');
        const auto value = number(text.substr(0, colon));
        if (!value || *value < 0 || *value > 1e6) return {};
        sum = sum * 60 + *value;
        if (colon == std::string_view::npos) return sum;
        text.remove_prefix(colon + 1);
    }
    return {};
}

}  // namespace

CommentParts split_comment(std::string_view comment) {
    CommentParts parts;
    bool gap = false;
    for (std::size_t at = 0; at < comment.size();) {
        if (comment.substr(at, 2) == "[%") {
            const auto end = end_of_annotation(comment, at);
            const auto closed = comment[end - 1] == ']' ? 1U : 0U;
            parts.annotations.push_back(annotation_of(comment.substr(at + 2, end - closed - (at + 2))));
            at = end;
            gap = true;
        } else if (blanks.find(comment[at]) != std::string_view::npos) {
            gap = true;
            ++at;
        } else {
            if (gap && !parts.text.empty()) parts.text += ' ';
            gap = false;
            parts.text += comment[at++];
        }
    }
    return parts;
}

std::string clock_text(std::string_view value) { return seconds(value) ? std::string(value) : std::string(); }

std::string elapsed_text(std::string_view value) {
    const auto time = seconds(value);
    if (!time) return {};
    if (*time < 60) {
        auto text = formatted("%.1f", std::floor(*time * 10 + 1e-6) / 10);
        if (text.ends_with(".0")) text.resize(text.size() - 2);
        return text + "s";
    }
    const auto whole = static_cast<long>(*time);
    if (whole < 3600) return formatted("%ld:%02ld", whole / 60, whole % 60);
    return formatted("%ld:%02ld:%02ld", whole / 3600, whole / 60 % 60, whole % 60);
}

std::string evaluation_text(std::string_view value) {
    value = trimmed(value.substr(0, value.find(',')));
    const auto mate = value.starts_with("mate ") ? value.substr(5)
                      : value.starts_with('#')   ? value.substr(1)
                                                 : std::string_view();
    if (!mate.empty()) {
        const auto moves = text::strict_integer<int>(mate.starts_with('+') ? mate.substr(1) : mate);
        return moves ? "#" + std::to_string(*moves) : std::string();
    }
    const auto pawns = number(value);
    if (!pawns || std::abs(*pawns) > 1e6) return {};
    // What rounds to nothing has no sign.
    return std::abs(*pawns) < 0.005 ? "0.00" : formatted("%+.2f", *pawns);
}

}  // namespace velmora
