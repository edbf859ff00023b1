#include "game/game_finder.h"

#include <algorithm>
#include <string_view>
#include <utility>

namespace velmora {

bool stands_before_event_tag(BlockReader& reader) {
    constexpr std::string_view event_tag = "[Event \"";
    const auto start = reader.offset();
    const bool found =
        std::all_of(event_tag.begin(), event_tag.end(), [&reader](char c) { return reader.get() == c; });
    reader.seek(start);
    return found;
}

void GameFinder::skip_damaged_comment(std::uint64_t opened) {
    m_search = Search::event_in_comment;
    m_comment_begin = opened;
    m_comment_end = m_reader.offset();
}

bool GameFinder::find() {
    switch (std::exchange(m_search, Search::any_bracket)) {
        case Search::bracket_on_line:
            go_to_line_start();
            return find_bracket_on_line();
        case Search::behind_header:
            m_reader.skip_line();
            while (m_reader.peek() == '[') m_reader.skip_line();
            return find_bracket_on_line();
        case Search::event_in_comment:
            if (find_event_in_comment()) return true;
            go_to_line_start();
            return find_bracket_on_line();
        case Search::any_bracket:
            break;
    }
    return find_bracket();
}

bool GameFinder::find_bracket() {
    for (auto window = m_reader.window(); !window.empty(); window = m_reader.window()) {
        const auto bracket = window.find('[');
        m_reader.consume(std::min(bracket, window.size()));
        if (bracket != std::string_view::npos) return true;
    }
    return false;
}

/// REQUIRES: the reader stands at the start of a line.
bool GameFinder::find_bracket_on_line() {
    while (m_reader.peek() != BlockReader::end_of_file) {
        if (stands_before_bracket()) return true;
        m_reader.skip_line();
    }
    return false;
}

bool GameFinder::find_event_in_comment() {
    m_reader.seek(m_comment_begin);
    for (m_reader.skip_line(); m_reader.offset() < m_comment_end; m_reader.skip_line()) {
        if (stands_before_event_tag(m_reader)) return true;
    }
    m_reader.seek(m_comment_end);
    return false;
}

/// Stays where a line end was read last.
void GameFinder::go_to_line_start() {
    m_reader.seek(m_reader.offset() - 1);
    m_reader.skip_line();
}

/// A "[" that doesn't open an annotation.
bool GameFinder::stands_before_bracket() {
    if (m_reader.peek() != '[') return false;
    const auto start = m_reader.offset();
    m_reader.get();
    const bool found = m_reader.peek() != '%';
    m_reader.seek(start);
    return found;
}

}  // namespace velmora
