#include "analysis/search_info.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdlib>
#include <limits>

#include "base/text.h"

namespace velmora {

namespace {

using text::WordReader;

constexpr std::size_t most_moves = 64;

/// The words that begin a value of UCI's line.
constexpr std::array<std::string_view, 16> uci_words{
    "depth",    "seldepth", "time",           "nodes",  "pv",     "multipv",    "score",   "currmove",
    "hashfull", "nps",      "currmovenumber", "tbhits", "string", "refutation", "cpuload", "currline"};

bool is_uci_word(std::string_view word) {
    return std::find(uci_words.begin(), uci_words.end(), word) != uci_words.end();
}

void read_score(WordReader& reader, Side side, SearchInfo& info) {
    const auto kind = reader.word();
    if (kind != "cp" && kind != "mate") return;
    const auto value = reader.integer<std::int32_t>();
    if (!value) return;
    Bound bound = Bound::exact;
    WordReader ahead = reader;
    const auto mark = ahead.word();
    if (mark == "lowerbound") bound = Bound::lower;
    if (mark == "upperbound") bound = Bound::upper;
    if (bound != Bound::exact) reader = ahead;
    info.score = kind == "cp" ? Evaluation::of_centipawns(*value, side, bound)
                              : Evaluation::of_mate(*value, side, bound);
}

void read_moves(WordReader& reader, SearchInfo& info) {
    info.moves.clear();
    while (true) {
        WordReader ahead = reader;
        const auto word = ahead.word();
        // The moves are the last that UCI has a line say, but not every engine keeps to it.
        if (word.empty() || is_uci_word(word)) return;
        if (info.moves.size() < most_moves) info.moves.emplace_back(word);
        reader = ahead;
    }
}

SearchInfo read_uci(std::string_view text, Side side) {
    SearchInfo info;
    WordReader reader(text);
    for (auto word = reader.word(); !word.empty(); word = reader.word()) {
        if (word == "depth") {
            info.depth = reader.integer<std::int32_t>();
        } else if (word == "seldepth") {
            info.selective_depth = reader.integer<std::int32_t>();
        } else if (word == "multipv") {
            info.line = std::clamp(reader.integer<std::int32_t>().value_or(1), 1, most_search_lines);
        } else if (word == "score") {
            read_score(reader, side, info);
        } else if (word == "nodes") {
            info.nodes = reader.integer<std::int64_t>();
        } else if (word == "nps") {
            info.nodes_per_second = reader.integer<std::int64_t>();
        } else if (word == "time") {
            info.time = reader.integer<std::int64_t>();
        } else if (word == "hashfull") {
            info.hash = reader.integer<std::int32_t>();
        } else if (word == "tbhits") {
            info.tablebase_hits = reader.integer<std::int64_t>();
        } else if (word == "string") {
            break;
        } else if (word == "pv") {
            read_moves(reader, info);
        }
    }
    return info;
}

/// The move in a word of an xboard engine, without its number and marks; empty for a word that is none.
std::string_view bare_move(std::string_view word) {
    const auto behind_number = word.find_first_not_of("0123456789");
    if (behind_number != std::string_view::npos && behind_number > 0 && word[behind_number] == '.') {
        word.remove_prefix(behind_number);
    }
    const auto begin = word.find_first_not_of('.');
    if (begin == std::string_view::npos) return {};
    word.remove_prefix(begin);
    const auto end = word.find_last_not_of("!?,;");
    word = word.substr(0, end == std::string_view::npos ? 0 : end + 1);
    const bool begins_move =
        !word.empty() && std::string_view("abcdefghKQRBNPO0o").find(word[0]) != std::string_view::npos;
    return begins_move ? word : std::string_view();
}

/// The form that the driver of xboard engines makes; nothing when the text has another.
std::optional<SearchInfo> read_thinking(std::string_view text, Side side) {
    SearchInfo info;
    WordReader reader(text);
    std::int64_t score = 0;
    const auto number = [&reader](std::string_view name) -> std::optional<std::int64_t> {
        return reader.word() == name ? reader.integer<std::int64_t>() : std::nullopt;
    };
    const auto depth = number("depth");
    if (!depth || reader.word() != "score") return std::nullopt;
    const auto centipawns = number("cp");
    const auto hundredths = number("time");
    const auto nodes = number("nodes");
    const auto speed = number("nps");
    if (!centipawns || !hundredths || !nodes || !speed) return std::nullopt;
    score = std::clamp<std::int64_t>(*centipawns, -1'000'000, 1'000'000);
    bool in_remark = false;  // "(best so far)"
    for (auto word = reader.word(); !word.empty() && info.moves.size() < most_moves; word = reader.word()) {
        if (is_uci_word(word) && !in_remark) return std::nullopt;
        in_remark = in_remark || word.front() == '(';
        const bool ends_remark = in_remark && word.back() == ')';
        if (in_remark) {
            in_remark = !ends_remark;
            continue;
        }
        if (const auto move = bare_move(word); !move.empty()) info.moves.emplace_back(move);
    }
    if (info.moves.empty()) return std::nullopt;
    info.depth = static_cast<std::int32_t>(std::clamp<std::int64_t>(*depth, 0, 9999));
    info.nodes = nodes;
    info.nodes_per_second = speed;
    info.time = std::clamp<std::int64_t>(*hundredths, 0, std::numeric_limits<std::int64_t>::max() / 10) * 10;
    constexpr std::int64_t mate = 100'000;
    if (std::abs(score) >= mate) {
        const auto moves = static_cast<std::int32_t>(std::abs(score) - mate);
        info.score = Evaluation::of_mate(score > 0 ? std::max(moves, 1) : -moves, side);
    } else {
        info.score = Evaluation::of_centipawns(static_cast<std::int32_t>(score), side);
    }
    return info;
}

}  // namespace

SearchInfo read_search_info(std::string_view text, Side side) {
    if (auto info = read_thinking(text, side)) return std::move(*info);
    return read_uci(text, side);
}

}  // namespace velmora
