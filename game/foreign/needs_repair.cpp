// What the strict reader makes of a text: whether it loses any of it.

#include <algorithm>
#include <array>
#include <cstdint>
#include <stdexcept>
#include <string_view>
#include <utility>
#include <vector>

#include "base/text.h"
#include "chess/moves/legal_moves.h"
#include "chess/notation/san_reader.h"
#include "game/foreign/foreign_header.h"
#include "game/foreign/game_repair.h"
#include "game/foreign/move_word.h"
#include "game/game.h"
#include "game/move_section.h"
#include "game/pgn_limits.h"

namespace velmora {

namespace {

bool is_high(char c) { return static_cast<unsigned char>(c) >= 0x80; }
bool has_high_bytes(std::string_view text) { return std::ranges::any_of(text, is_high); }

/// What isn't becomes question marks.
bool is_utf8(std::string_view text) { return !has_high_bytes(text) || text::valid_utf8(text) == text; }

bool is_square_at(std::string_view text, std::size_t at) {
    return at + 2 <= text.size() && text[at] >= 'a' && text[at] <= 'h' && text[at + 1] >= '1' &&
           text[at + 1] <= '8';
}

/// Whether a word has the form of SAN, of which the strict reader misses no part. What has another form may
/// yet be read.
bool is_san_form(std::string_view word) {
    if (word.ends_with('+') || word.ends_with('#')) word.remove_suffix(1);
    if (word == "O-O" || word == "O-O-O") return true;
    const bool is_piece =
        !word.empty() && std::string_view("KQRBN").find(word.front()) != std::string_view::npos;
    if (is_piece) {
        word.remove_prefix(1);
    } else if (word.size() > 2 && word[word.size() - 2] == '=' &&
               std::string_view("QRBN").find(word.back()) != std::string_view::npos) {
        word.remove_suffix(2);
    }
    if (word.size() < 2 || !is_square_at(word, word.size() - 2)) return false;
    word.remove_suffix(2);
    if (word.empty()) return true;
    const bool captures = word.ends_with('x');
    if (captures) word.remove_suffix(1);
    if (!is_piece) return captures && word.size() == 1 && word[0] >= 'a' && word[0] <= 'h';
    if (!word.empty() && word.back() >= '1' && word.back() <= '8') word.remove_suffix(1);
    if (!word.empty() && word.back() >= 'a' && word.back() <= 'h') word.remove_suffix(1);
    return word.empty();
}

enum class Reading : std::uint8_t { whole, doubtful, lossy };

/// What a character begins in movetext.
enum class Part : std::uint8_t { nothing, san, comment, angle, open, close, other, result };

constexpr auto movetext_parts = [] {
    std::array<Part, 256> table{};
    for (unsigned char c = 'a'; c <= 'z'; ++c) table[c] = Part::san;
    for (unsigned char c = 'A'; c <= 'Z'; ++c) table[c] = Part::san;
    for (const char c : std::string_view("#+-:=_")) table[static_cast<unsigned char>(c)] = Part::san;
    for (const char c : std::string_view("01*")) table[static_cast<unsigned char>(c)] = Part::result;
    table['{'] = Part::comment;
    table['<'] = Part::angle;
    table['('] = Part::open;
    table[')'] = Part::close;
    table['['] = table[';'] = Part::other;
    for (std::size_t c = 0x80; c < table.size(); ++c) table[c] = Part::other;
    return table;
}();

Part part_of(char c) { return movetext_parts[static_cast<unsigned char>(c)]; }

bool belongs_to_san(char c) { return part_of(c) == Part::san || (c >= '0' && c <= '9'); }

/// Follows a game's text as the strict reader does.
class StrictReading {
public:
    explicit StrictReading(std::string_view text) : m_text(text) {}

    Reading measure() {
        const auto header = measure_header();
        return header == Reading::lossy ? header : std::max(header, measure_moves());
    }

private:
    bool at_end() const { return m_at >= m_text.size(); }

    /// At the start of a line: one that begins with "%" is left out by the cutter.
    bool skip_escaped_line() {
        if (m_text[m_at] != '%' || (m_at > 0 && m_text[m_at - 1] != '\n')) return false;
        m_at = std::min(m_text.find('\n', m_at), m_text.size());
        return true;
    }

    Reading measure_header() {
        while (!at_end()) {
            const char c = m_text[m_at];
            if (c == '[') {
                if (!is_whole_tag()) return Reading::lossy;
            } else if (c == '{') {
                if (!skip_comment()) return Reading::lossy;
            } else if (c == ';') {
                return Reading::lossy;
            } else if (text::white_space.find(c) != std::string_view::npos || is_high(c)) {
                ++m_at;  // bytes beyond ASCII are left out here
            } else if (!skip_escaped_line()) {
                break;
            }
        }
        return Reading::whole;
    }

    /// A tag as the cutter takes it, up to the first closing bracket, must be the tag that was meant.
    bool is_whole_tag() {
        const auto rest = m_text.substr(m_at);
        const auto name_end = std::min(rest.find_first_of(" \"]\n", 1), rest.size());
        const auto quote = std::min(rest.find_first_not_of(" \t", name_end), rest.size());
        if (name_end == 1 || quote == rest.size() || rest[quote] != '"') return false;
        auto closing = rest.find('"', quote + 1);
        while (closing != std::string_view::npos && rest[closing - 1] == '\\')
            closing = rest.find('"', closing + 1);
        if (closing == std::string_view::npos) return false;
        const auto value = rest.substr(quote + 1, closing - quote - 1);
        const auto bracket = rest.find_first_not_of(" \t", closing + 1);
        if (bracket == std::string_view::npos || rest[bracket] != ']') return is_quoted_twice(rest, closing);
        if (bracket - 1 > pgn_limits::tag || value.find('\n') != std::string_view::npos) return false;
        // A second one begins another game, this one has no moves.
        if (rest.starts_with("[Event \"") && std::exchange(m_has_event, true)) return false;
        m_at += bracket + 1;
        return !holds_moves(value) && is_utf8(rest.substr(0, bracket));
    }

    /// [White ""Deep""]: the strict reader passes over quotes ahead of a value.
    bool is_quoted_twice(std::string_view rest, std::size_t closing) {
        const auto end = rest.find(']', closing);
        if (end == std::string_view::npos || end > pgn_limits::tag) return false;
        const auto inner = rest.substr(closing, end - closing);
        if (!inner.starts_with('"') || !inner.ends_with("\"\"") || inner.find('\n') != std::string_view::npos)
            return false;
        m_at += end + 1;
        return is_utf8(inner);
    }

    /// False for one that is too long for a file. One that isn't closed takes the rest, as for the
    /// reader, but for further games.
    bool skip_comment() {
        const auto end = std::min(m_text.find('}', m_at), m_text.size());
        if (end == m_text.size() && m_text.find("\n\n[Event \"", m_at) < end) return false;
        const auto comment = m_text.substr(m_at + 1, end - m_at - 1);
        m_at = end + 1;
        if (!is_utf8(comment)) return false;
        if (comment.size() <= pgn_limits::comment) return true;
        const auto returns = static_cast<std::size_t>(std::ranges::count(comment, '\r'));
        return comment.size() - returns <= pgn_limits::comment;
    }

    Reading measure_moves() {
        auto reading = Reading::whole;
        bool has_words = false;
        std::size_t depth = 0;
        while (!at_end()) {
            const char c = m_text[m_at];
            switch (part_of(c)) {
                case Part::san: {
                    const auto begin = m_at;
                    has_words = true;
                    while (!at_end() && belongs_to_san(m_text[m_at])) ++m_at;
                    if (!is_san_form(m_text.substr(begin, m_at - begin))) reading = Reading::doubtful;
                    break;
                }
                case Part::comment:
                    if (!skip_comment()) return Reading::lossy;
                    break;
                case Part::angle:
                    m_at = std::min(m_text.find_first_of(">}", m_at), m_text.size());
                    reading = Reading::doubtful;
                    break;
                case Part::open:
                    // Ahead of the first move, or nested too deep, it is refused.
                    if (!has_words || ++depth > MoveSection::deepest_variation) return Reading::lossy;
                    ++m_at;
                    break;
                case Part::close:
                    if (depth > 0) --depth;
                    ++m_at;
                    break;
                case Part::result:
                    if (stands_before_result()) return depth > 0 ? Reading::lossy : reading;
                    // The digits of a number belong together.
                    while (!at_end() && m_text[m_at] >= '0' && m_text[m_at] <= '9') ++m_at;
                    break;
                case Part::other:
                    return Reading::lossy;
                case Part::nothing:
                    if (!skip_escaped_line()) ++m_at;
                    break;
            }
        }
        return reading;
    }

    bool stands_before_result() const {
        const auto rest = m_text.substr(m_at);
        return rest.starts_with('*') || rest.starts_with("1-0") || rest.starts_with("0-1") ||
               rest.starts_with("1/2-1/2");
    }

    std::string_view m_text;
    std::size_t m_at = 0;
    bool m_has_event = false;
};

/// Makes every move of a tree, as far as the tree has moves.
class TreeWalk {
public:
    explicit TreeWalk(const Game& game) : m_tree(game.tree()), m_position(game) {}

    bool makes_all() {
        m_open.push_back({0, 0});
        while (!m_open.empty()) {
            auto& [id, next] = m_open.back();
            const auto& node = m_tree.node(id);
            if (next == node.children_count()) {
                if (m_open.size() > 1) m_position.undo_move();
                m_open.pop_back();
                continue;
            }
            const auto child = node.child_at(next++);
            if (m_tree.node(child).type != ElementType::move) continue;
            if (!make(m_tree.node(child).san)) return false;
            m_open.push_back({child, 0});
        }
        return true;
    }

private:
    struct Branch {
        std::int32_t id;
        std::size_t next_child;
    };

    bool make(const std::string& san) {
        try {
            const auto move = san.empty() ? std::nullopt : find_legal(m_position, read_san(m_position, san));
            if (!move || is_misread(san, *move)) return false;
            m_position.do_move(*move);
            return true;
        } catch (const std::logic_error&) {
            return false;
        }
    }

    /// "g1f3" is no pawn's move, though the strict reader finds one to f3.
    bool is_misread(const std::string& san, Move move) const {
        bool several = false;
        const auto meant = find_move(m_position, take_apart(san), several);
        return meant && !(*meant == move);
    }

    const GameTree& m_tree;
    ChessPosition m_position;
    std::vector<Branch> m_open;
};

bool plays_whole(std::string_view text) {
    Game game;
    try {
        game.parse_pgn(text);
    } catch (const std::logic_error&) {
        return false;
    }
    return TreeWalk(game).makes_all();
}

}  // namespace

bool needs_repair(std::string_view text) {
    switch (StrictReading(text).measure()) {
        case Reading::whole:
            return false;
        case Reading::doubtful:
            return !plays_whole(text);
        case Reading::lossy:
            break;
    }
    return true;
}

}  // namespace velmora
