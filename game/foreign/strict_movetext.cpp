#include "game/foreign/strict_movetext.h"

#include <algorithm>
#include <utility>

#include "base/text.h"
#include "game/annotations.h"
#include "game/move_symbols.h"
#include "game/pgn_limits.h"

namespace velmora {

namespace {

/// A comment in parts of which each fits between braces, also where a saved file breaks lines ahead of "[%".
std::vector<std::string_view> parts_of(std::string_view comment) {
    std::vector<std::string_view> parts;
    while (comment.size() > pgn_limits::comment || !is_readable_comment(comment)) {
        // A quarter of the room is for line ends: annotations are no shorter than four bytes.
        constexpr std::size_t room = pgn_limits::comment * 3 / 4;
        const auto head = text::utf8_prefix(comment, room);
        auto end = head.size();
        if (end == comment.size()) break;
        for (std::size_t at = 0, last_blank = 0; at < head.size();) {
            if (head.substr(at, 2) == "[%") {
                at = end_of_annotation(head, at);
            } else {
                if (head[at] == ' ' && at > 0) last_blank = at;
                ++at;
            }
            if (last_blank > 0) end = last_blank;
        }
        parts.push_back(comment.substr(0, end));
        comment.remove_prefix(end);
        if (comment.starts_with(' ')) comment.remove_prefix(1);
    }
    if (!comment.empty()) parts.push_back(comment);
    return parts;
}

}  // namespace

std::string braceless(std::string_view text) {
    std::string result(text);
    std::erase(result, '\r');
    for (char& c : result) {
        if (c == '{') c = '(';
        if (c == '}') c = ')';
        if (text::is_control(c)) c = ' ';
    }
    return result;
}

StrictMovetext::Index StrictMovetext::add_move(std::string_view san, std::size_t ply, std::size_t depth) {
    Element element;
    element.is_main_line = depth == 0;
    element.ply = static_cast<std::uint32_t>(ply);
    san.copy(element.san.data(), element.san.size() - 1);
    m_elements.push_back(element);
    return m_elements.size() - 1;
}

std::string& StrictMovetext::comment_of(Index move) {
    if (move == game_start) return m_start_comment;
    auto& index = m_elements[move].comment;
    if (index == 0) {
        index = static_cast<std::uint32_t>(m_comments.size());
        m_comments.emplace_back();
    }
    return m_comments[index];
}

void StrictMovetext::append_comment(Index move, std::string_view comment) {
    if (comment.empty()) return;
    auto& whole = comment_of(move);
    if (!whole.empty()) whole += ' ';
    whole += braceless(comment);
}

void StrictMovetext::add_glyph(Index move, std::string_view glyph) {
    const auto number = text::strict_integer<std::uint8_t>(glyph.substr(1)).value_or(0);
    const bool has_place = move != game_start && number != 0 && m_elements[move].glyph == 0;
    if (has_place) {
        m_elements[move].glyph = number;
    } else if (glyph.size() > 1 && glyph != "$0") {
        append_comment(move, sign_of(glyph));
    }
}

std::string StrictMovetext::number(std::size_t ply) const {
    const auto halves = ply + (m_black_begins ? 1 : 0);
    return std::to_string(static_cast<std::int64_t>(m_first_number) + static_cast<std::int64_t>(halves / 2)) +
           (halves % 2 == 0 ? "." : "...");
}

/// Puts words into lines and keeps the parts of comments that wait for the second move.
class StrictMovetext::Writer {
public:
    explicit Writer(const StrictMovetext& moves) : m_moves(moves) {
        m_has_second_move = std::ranges::any_of(moves.m_elements, [](const Element& element) {
            return element.kind == Kind::move && element.is_main_line && element.ply > 0;
        });
    }

    std::string text(std::string_view result, bool& cut, bool& split) {
        write_start();
        for (const auto& element : m_moves.m_elements) write(element);
        cut = !m_waiting.empty();
        split = m_has_split;
        word(result);
        return std::move(m_text) + "\n\n";
    }

private:
    void write_start() {
        const auto parts = parts_of(m_moves.m_start_comment);
        if (parts.empty()) return;
        comment(parts.front());
        m_waiting.insert(m_waiting.end(), parts.begin() + 1, parts.end());
    }

    void write(const Element& element) {
        switch (element.kind) {
            case Kind::move:
                write_with_parts(element);
                break;
            case Kind::open:
                open_variation();
                break;
            case Kind::close:
                close_variation();
                break;
        }
    }

    void write_with_parts(const Element& element) {
        const auto parts = parts_of(m_moves.m_comments[element.comment]);
        write_move(element, parts.empty() ? std::string_view() : parts.front());
        const auto behind_first = parts.begin() + (parts.empty() ? 0 : 1);
        std::vector<std::string_view> further(behind_first, parts.end());
        if (element.is_main_line) {
            const bool is_first = element.ply == 0;
            m_waiting.insert(is_first ? m_waiting.end() : m_waiting.begin(), further.begin(), further.end());
            if (is_first && m_has_second_move) return;
            further = std::exchange(m_waiting, {});
        }
        for (const auto part : further) {
            open_variation();
            write_move(element, part);
            close_variation();
            m_has_split = true;
        }
    }

    void open_variation() {
        word("(");
        m_opens = true;
        m_needs_number = true;
    }

    void close_variation() {
        m_text += ')';
        m_needs_number = true;
    }

    void write_move(const Element& element, std::string_view text) {
        const auto number = m_moves.number(element.ply);
        if (m_needs_number || !number.ends_with("...")) word(number);
        word(element.san.data());
        if (element.glyph != 0) word("$" + std::to_string(element.glyph));
        m_needs_number = !text.empty();
        if (!text.empty()) comment(text);
    }

    void comment(std::string_view text) {
        word("{");
        m_text.append(text).append("}");
        m_line += text.size() + 1;
        m_needs_number = true;
    }

    /// Behind a parenthesis no blank is needed, and none stands at the front of a line.
    void word(std::string_view word) {
        constexpr std::size_t columns = 80;
        const bool breaks = m_line + 1 + word.size() > columns;
        if (!m_text.empty() && !m_opens) {
            m_text += breaks ? '\n' : ' ';
            m_line = breaks ? 0 : m_line + 1;
        }
        m_opens = false;
        m_text += word;
        m_line += word.size();
    }

    const StrictMovetext& m_moves;
    bool m_has_second_move;
    bool m_has_split = false;
    bool m_needs_number = true;  // also ahead of a black move
    bool m_opens = false;        // a parenthesis was written last
    std::size_t m_line = 0;      // bytes of the line so far
    std::string m_text;
    std::vector<std::string_view> m_waiting;
};

std::string StrictMovetext::text(std::string_view result, bool& cut, bool& split) const {
    return Writer(*this).text(result, cut, split);
}

}  // namespace velmora
