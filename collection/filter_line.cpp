#include "collection/filter_line.h"

#include <algorithm>
#include <array>
#include <limits>
#include <optional>

#include "base/text.h"
#include "collection/text_table.h"

namespace velmora {

namespace {

using Kind = FilterTerm::Kind;

struct Key {
    std::string_view name;
    Kind kind;
};

constexpr auto filter_keys = std::to_array<Key>({
    {"white", Kind::white},
    {"black", Kind::black},
    {"event", Kind::event},
    {"site", Kind::site},
    {"opening", Kind::opening},
    {"round", Kind::round},
    {"elo", Kind::elo},
    {"year", Kind::year},
    {"eco", Kind::eco},
    {"moves", Kind::moves},
    {"result", Kind::result},
});

constexpr std::uint32_t no_limit = std::numeric_limits<std::uint32_t>::max();

struct Range {
    std::uint32_t low = 0;
    std::uint32_t high = no_limit;
};

std::optional<Range> number_value(std::string_view value) {
    const auto number = text::strict_integer<std::uint32_t>(value);
    if (!number) return std::nullopt;
    return Range{*number, *number};
}

/// "B90", or the beginning of a code, which stands for all that begin so.
std::optional<Range> eco_value(std::string_view value) {
    std::string code(value);
    if (!code.empty()) code.front() = static_cast<char>(code.front() & ~0x20);
    if (code.empty() || code.size() > 3) return std::nullopt;
    const Range range{eco_number(code + std::string(3 - code.size(), '0')),
                      eco_number(code + std::string(3 - code.size(), '9'))};
    if (range.low == 0 || range.high == 0) return std::nullopt;
    return range;
}

std::optional<Range> value_of(Kind kind, std::string_view value) {
    return kind == Kind::eco ? eco_value(value) : number_value(value);
}

/// The range of "<25", ">=2400", ":2019-2023".
std::optional<Range> range_of(Kind kind, std::string_view sign, std::string_view value) {
    const auto dash = value.find('-');
    if (dash != std::string_view::npos && (sign == ":" || sign == "=")) {
        const auto first = value_of(kind, value.substr(0, dash));
        const auto last = value_of(kind, value.substr(dash + 1));
        if (!first || !last || first->low > last->high) return std::nullopt;
        return Range{first->low, last->high};
    }
    const auto range = value_of(kind, value);
    if (!range) return std::nullopt;
    if (sign == "<") return range->low == 0 ? std::nullopt : std::optional(Range{0, range->low - 1});
    if (sign == "<=") return Range{0, range->high};
    if (sign == ">")
        return range->high == no_limit ? std::nullopt : std::optional(Range{range->high + 1, no_limit});
    if (sign == ">=") return Range{range->low, no_limit};
    return range;
}

std::optional<GameResult> result_value(std::string_view value) {
    if (value == "1/2" || value == "draw") return GameResult::draw;
    const auto result = result_of(value);
    if (result == GameResult::unknown && value != "*") return std::nullopt;
    return result;
}

std::string hint_for(Kind kind, std::string_view key) {
    const std::string name(key);
    switch (kind) {
        case Kind::eco:
            return "eco wants a code or a range: eco:B90-B99, eco:B9";
        case Kind::result:
            return "result wants 1-0, 0-1, 1/2 or *";
        case Kind::year:
            return "year wants a number or a range: year:2019-2023, year>2019";
        case Kind::elo:
            return "elo wants a number or a range: elo>2500, elo:2400-2600";
        case Kind::moves:
            return "moves wants a number or a range: moves<25, moves:20-40";
        default:
            return name + " wants a word: " + name + ":anand";
    }
}

/// Reads one line, condition by condition.
class Reader {
public:
    explicit Reader(std::string_view line) : m_line(line) {}

    FilterLine read() {
        while (m_at < m_line.size()) {
            if (m_line[m_at] == ' ') {
                ++m_at;
            } else {
                read_term();
            }
        }
        return std::move(m_filter);
    }

private:
    void read_term() {
        const auto begin = m_at;
        auto key_end = begin;
        while (key_end < m_line.size() && m_line[key_end] >= 'A' && m_line[key_end] <= 'z') ++key_end;
        const auto sign = sign_at(key_end);
        m_at = sign.empty() || key_end == begin ? begin : key_end + sign.size();
        const auto value = take_value();
        if (sign.empty() || key_end == begin) {
            if (!value.empty()) add({Kind::word, folded(value)});
            return;
        }
        const auto name = folded(m_line.substr(begin, key_end - begin));
        const auto* const key = std::find_if(filter_keys.begin(), filter_keys.end(),
                                             [&](const Key& k) { return k.name == name; });
        if (key == filter_keys.end()) {
            note(begin,
                 "no such key; there are white, black, event, site, opening, round, elo, year, eco, moves, "
                 "result");
        } else if (auto term = term_of(*key, sign, value)) {
            add(std::move(*term));
        } else {
            note(begin, hint_for(key->kind, key->name));
        }
    }

    std::string_view sign_at(std::size_t at) const {
        for (const std::string_view sign : {"<=", ">=", ":", "=", "<", ">"}) {
            if (m_line.substr(at).starts_with(sign)) return sign;
        }
        return {};
    }

    /// Up to the next blank, or the text between quotes; a quote that nobody closes has the rest of the line.
    std::string_view take_value() {
        const bool quoted = m_at < m_line.size() && m_line[m_at] == '"';
        if (quoted) ++m_at;
        const auto end = std::min(m_line.find(quoted ? '"' : ' ', m_at), m_line.size());
        const auto value = m_line.substr(m_at, end - m_at);
        m_at = quoted ? std::min(end + 1, m_line.size()) : end;
        return value;
    }

    static std::optional<FilterTerm> term_of(const Key& key, std::string_view sign, std::string_view value) {
        FilterTerm term;
        term.kind = key.kind;
        const bool is_equal = sign == ":" || sign == "=";
        switch (key.kind) {
            case Kind::elo:
            case Kind::year:
            case Kind::eco:
            case Kind::moves: {
                const auto range = range_of(key.kind, sign, value);
                if (!range) return std::nullopt;
                term.low = range->low;
                term.high = range->high;
                return term;
            }
            case Kind::result: {
                const auto result = result_value(value);
                if (!result || !is_equal) return std::nullopt;
                term.result = *result;
                return term;
            }
            default:
                if (value.empty() || !is_equal) return std::nullopt;
                term.text = folded(value);
                return term;
        }
    }

    void add(FilterTerm term) { m_filter.terms.push_back(std::move(term)); }
    void note(std::size_t begin, std::string hint) {
        m_filter.mistakes.push_back({begin, m_at - begin, std::move(hint)});
    }

    std::string_view m_line;
    std::size_t m_at = 0;
    FilterLine m_filter;
};

}  // namespace

FilterLine FilterLine::parse(std::string_view line) { return Reader(line).read(); }

}  // namespace velmora
