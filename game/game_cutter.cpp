#include "game/game_cutter.h"

#include <algorithm>

#include "game/pgn_error.h"

namespace velmora {

namespace {

constexpr bool is_digit(unsigned char c) { return c >= '0' && c <= '9'; }

/// Bytes that are more than text in any state: what is not ASCII, and what may be skipped.
constexpr std::array<bool, 256> special_bytes(std::string_view others) {
    std::array<bool, 256> table{};
    for (std::size_t c = 0x80; c < table.size(); ++c) table[c] = true;
    for (const char c : others) table[static_cast<unsigned char>(c)] = true;
    table['\r'] = table['%'] = true;
    return table;
}

constexpr auto special_between = special_bytes("[{*0123456789");
constexpr auto special_in_movetext = special_bytes("{*01");

/// The length of the text ahead of `close` and of what may be skipped.
std::size_t plain_length(std::string_view text, char close) {
    for (const char c : {close, '%', '\r'}) text = text.substr(0, text.find(c));
    return text.size();
}

}  // namespace

void GameCutter::cut(std::string& text) {
    text.clear();
    if (!m_finder.find()) return;
    m_game_offset = m_reader.offset();
    m_text = &text;
    for (auto state = State::between; state != State::finished;) {
        state = state == State::between ? copy_between() : copy_movetext();
    }
}

GameCutter::State GameCutter::copy_between() {
    copy_run(special_between);
    const int c = next_char();
    if (c == BlockReader::end_of_file) return State::finished;
    const auto byte = static_cast<unsigned char>(c);
    if (byte >= 0x80) return State::between;
    if (byte == '*' || is_digit(byte)) {
        return copy_result(static_cast<char>(byte)) ? State::finished : State::movetext;
    }
    *m_text += static_cast<char>(byte);
    if (byte == '[') return copy_enclosed(Enclosed::tag, State::between);
    if (byte == '{') return copy_enclosed(Enclosed::comment, State::between);
    return State::between;
}

GameCutter::State GameCutter::copy_movetext() {
    copy_run(special_in_movetext);
    const int c = next_char();
    if (c == BlockReader::end_of_file) return State::finished;
    const auto byte = static_cast<unsigned char>(c);
    if (byte >= 0x80) {
        m_finder.skip_damaged_moves();
        fail("?????\n\n");
    }
    if (byte != '{') return copy_result(static_cast<char>(byte)) ? State::finished : State::movetext;
    *m_text += '{';
    return copy_enclosed(Enclosed::comment, State::movetext);
}

/// From behind an opening bracket or brace to behind the closing one, which is not counted.
GameCutter::State GameCutter::copy_enclosed(Enclosed kind, State behind) {
    const char close = kind == Enclosed::tag ? ']' : '}';
    const auto limit = kind == Enclosed::tag ? tag_limit : comment_limit;
    const auto opened = m_reader.offset();
    std::size_t count = 0;
    while (count <= limit) {
        const auto window = m_reader.window().substr(0, limit - count);
        const auto length = plain_length(window, close);
        m_text->append(window, 0, length);
        m_reader.consume(length);
        const int c = next_char();
        if (c == BlockReader::end_of_file) {
            if (kind == Enclosed::comment) m_finder.skip_damaged_comment(opened);
            return State::finished;
        }
        *m_text += static_cast<char>(c);
        if (c == close) return behind;
        count += length + 1;
    }
    if (kind == Enclosed::tag) {
        m_finder.skip_damaged_header();
        fail("ERROR] \n\n * \n\n");
    }
    m_finder.skip_damaged_comment(opened);
    fail("ERROR} *\n\n");
}

void GameCutter::copy_run(const ByteSet& specials) {
    for (auto window = m_reader.window(); !window.empty(); window = m_reader.window()) {
        const auto end = std::find_if(window.begin(), window.end(), [&specials](char c) {
            return specials[static_cast<unsigned char>(c)];
        });
        const auto length = static_cast<std::size_t>(end - window.begin());
        m_text->append(window, 0, length);
        m_reader.consume(length);
        if (length < window.size()) return;
    }
}

/// Stores `first` and what it had to read behind it; true when that is a result.
bool GameCutter::copy_result(char first) {
    *m_text += first;
    if (first != '*') {
        if ((first != '0' && first != '1') || !copy_one_of("-/") || !copy_one_of("012")) return false;
        const auto result = std::string_view(*m_text).substr(m_text->size() - 3);
        if (result == "1/2") {
            if (!copy_one_of("-") || !copy_one_of("1") || !copy_one_of("/") || !copy_one_of("2"))
                return false;
        } else if (result != "1-0" && result != "0-1") {
            return false;
        }
    }
    *m_text += "\n\n";
    return true;
}

/// Stores the next byte, whatever it is; true when it is one of `wanted`. A brace is left where it is, or the
/// comment that it opens would be read as moves.
bool GameCutter::copy_one_of(std::string_view wanted) {
    const int c = m_reader.peek();
    if (c == BlockReader::end_of_file || c == '{') return false;
    *m_text += static_cast<char>(m_reader.get());
    return wanted.find(m_text->back()) != std::string_view::npos;
}

/// The next byte that is neither a carriage return nor part of a line that begins with a percent sign.
int GameCutter::next_char() {
    int c = m_reader.get();
    if (c == '\r') c = m_reader.get();
    while (c == '%' && m_text->back() == '\n') {
        do c = m_reader.get();
        while (c != '\n' && c != BlockReader::end_of_file);
        c = m_reader.get();
        if (c == '\r') c = m_reader.get();
    }
    return c;
}

void GameCutter::fail(std::string_view marker) { throw pgn_error(std::string(*m_text).append(marker)); }

}  // namespace velmora
