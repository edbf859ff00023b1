#include "game/foreign/game_splitter.h"

#include <array>

#include "base/text.h"
#include "game/foreign/foreign_header.h"
#include "game/foreign/result_word.h"

namespace velmora {

namespace {

/// Where scan() has to look closer: braces, parentheses and what a result begins with.
constexpr auto needs_look = [] {
    std::array<bool, 256> table{};
    for (const char c : std::string_view("{}()*01\xC2")) table[static_cast<unsigned char>(c)] = true;
    return table;
}();

/// Behind a letter or a digit it is part of a word.
bool may_stand_before_result(char c) {
    return text::white_space.find(c) != std::string_view::npos ||
           std::string_view(".(){}!?#+").find(c) != std::string_view::npos;
}

bool begins_moves(char c) {
    return text::white_space.find(c) == std::string_view::npos && c != '{' && c != '}';
}

/// "1." or "1 e4", as the moves of a game without tags begin.
bool begins_with_number_one(std::string_view line) {
    if (line.size() < 2 || line.front() != '1') return false;
    const auto rest = line.substr(1);
    if (rest.starts_with('.')) return true;
    const auto word = text::trim_leading_blanks(rest);
    return word.size() < rest.size() && !word.empty() && word.front() >= 'A';
}

bool is_event_tag(std::string_view line) { return line.starts_with("[Event \""); }

}  // namespace

void GameSplitter::restart() {
    m_state = State::before;
    m_has_line = false;
    m_number = 1;
    m_after_empty = true;
    m_in_comment = false;
}

bool GameSplitter::next(ForeignText& game) {
    m_state = State::before;
    while (m_has_line || m_source.next(m_line)) {
        m_has_line = true;
        if (begins_game()) {
            if (m_state != State::before) return true;
            start(game);
        }
        if (m_state != State::before) add_line(game);
        go_on();
    }
    game.is_last = true;
    return m_state != State::before;
}

void GameSplitter::go_on() {
    m_after_empty = m_line.begins_line && text::trim_white_space(m_line.text).empty();
    if (m_line.ends_line()) ++m_number;
    m_has_line = false;
}

bool GameSplitter::is_rescued_from_comment() const { return m_after_empty && is_event_tag(m_line.text); }

bool GameSplitter::begins_game() const {
    if (!m_line.begins_line) return false;
    const auto line = text::trim_white_space(m_line.text);
    if (m_state == State::before) {
        if (m_begin == Begin::anything && !line.empty()) return true;
        return begins_with_tag(line) || begins_with_number_one(line);
    }
    if (m_in_comment) return is_rescued_from_comment();
    if (m_state == State::header) return m_has_event && is_event_tag(line);
    return begins_with_tag(line) || (m_state == State::behind && begins_with_number_one(line));
}

void GameSplitter::start(ForeignText& game) {
    const auto indent = m_line.text.find_first_not_of(text::white_space);
    game.text.clear();
    game.offset = m_line.offset + (indent == std::string_view::npos ? 0 : indent);
    game.line = m_number;
    game.has_result = game.is_last = game.is_too_long = false;
    m_state = State::header;
    m_has_event = m_in_comment = false;
    m_depth = 0;
}

void GameSplitter::add_line(ForeignText& game) {
    if (game.text.size() + m_line.text.size() <= longest_game) {
        game.text += m_line.text;
    } else {
        game.is_too_long = true;
    }
    const bool is_escaped = m_line.begins_line && m_line.text.starts_with('%');
    if (is_escaped) return;
    if (m_state == State::header && !m_in_comment && m_line.begins_line && begins_with_tag(m_line.text)) {
        add_header_line(game);
    } else {
        scan(m_line.text, game);
    }
}

/// Behind a tag its moves may begin in the same line.
void GameSplitter::add_header_line(ForeignText& game) {
    if (is_event_tag(text::trim_white_space(m_line.text))) m_has_event = true;
    const auto bracket = m_line.text.rfind(']');
    if (bracket != std::string_view::npos) scan(m_line.text.substr(bracket + 1), game);
}

void GameSplitter::scan(std::string_view text, ForeignText& game) {
    for (std::size_t at = 0; at < text.size(); ++at) {
        if (m_in_comment) {
            at = text.find('}', at);
            if (at == std::string_view::npos) return;
            m_in_comment = false;
            continue;
        }
        if (text[at] == ';') return;
        if (m_state == State::header && begins_moves(text[at])) m_state = State::moves;
        if (!needs_look[static_cast<unsigned char>(text[at])]) continue;
        switch (text[at]) {
            case '{':
                m_in_comment = true;
                break;
            case '(':
                ++m_depth;
                break;
            case ')':
                if (m_depth > 0) --m_depth;
                break;
            case '}':
                break;
            default:
                if (m_state == State::behind || m_depth > 0) break;
                if (text[at] != '*' && at > 0 && !may_stand_before_result(text[at - 1])) break;
                if (const auto result = result_at(text.substr(at))) {
                    game.has_result = true;
                    m_state = State::behind;
                    at += result.size - 1;
                }
                break;
        }
    }
}

}  // namespace velmora
