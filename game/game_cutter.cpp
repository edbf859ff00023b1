#include "game/game_cutter.h"

#include <array>
#include <cstddef>

#include "game/pgn_error.h"
#include "game/pgn_limits.h"

namespace velmora {

namespace {

constexpr bool is_decimal(unsigned char c) { return c >= '0' && c <= '9'; }

using ByteSet = std::array<bool, 256>;

constexpr ByteSet bytes_of(std::string_view characters) {
    ByteSet table{};
    for (const char c : characters) table[static_cast<unsigned char>(c)] = true;
    return table;
}

constexpr ByteSet with_high_bytes(ByteSet table) {
    for (std::size_t c = 0x80; c < table.size(); ++c) table[c] = true;
    return table;
}

// What is more than text to store, in each state: a percent sign may begin a line to skip. In movetext, where
// the digits of results are frequent, a result is looked for at its hyphen or slash.
constexpr auto special_between = with_high_bytes(bytes_of("[{*0123456789\r%"));
constexpr auto special_in_movetext = with_high_bytes(bytes_of("{*-/\r%"));
constexpr auto special_in_tag = bytes_of("]\r%");
constexpr auto special_in_comment = bytes_of("}\r%");

std::size_t plain_length(std::string_view text, const ByteSet& specials) {
    std::size_t length = 0;
    while (length < text.size() && !specials[static_cast<unsigned char>(text[length])]) ++length;
    return length;
}

bool begins_result(char c) { return c == '0' || c == '1'; }

}  // namespace

void GameCutter::cut(std::string& text) {
    text.clear();
    m_left_open = Open::nothing;
    if (!m_finder.find()) return;
    m_game_offset = m_reader.offset();
    m_text = &text;
    m_looked_at = 0;
    for (auto state = State::between; state != State::finished;) {
        state = state == State::between ? copy_between() : copy_movetext();
    }
}

GameCutter::State GameCutter::end_of_file(Open what) {
    m_left_open = what;
    return State::finished;
}

GameCutter::State GameCutter::copy_between() {
    copy_plain(special_between);
    const int c = next_char();
    if (c == BlockReader::end_of_file) return end_of_file(Open::header);
    const auto byte = static_cast<unsigned char>(c);
    if (byte >= 0x80) return State::between;
    if (byte == '*' || is_decimal(byte)) return copy_result(static_cast<char>(byte));
    *m_text += static_cast<char>(byte);
    if (byte == '[') return copy_enclosed(Enclosed::tag, State::between);
    if (byte == '{') return copy_enclosed(Enclosed::comment, State::between);
    return State::between;
}

GameCutter::State GameCutter::copy_movetext() {
    copy_plain(special_in_movetext);
    if (stands_in_result()) return copy_result_end();
    const int c = next_char();
    if (c == BlockReader::end_of_file) return end_of_file(Open::movetext);
    const auto byte = static_cast<unsigned char>(c);
    if (byte >= 0x80) {
        m_finder.skip_damaged_moves();
        fail("?????\n\n");
    }
    if (byte == '*' || begins_result(static_cast<char>(byte))) return copy_result(static_cast<char>(byte));
    *m_text += static_cast<char>(byte);
    return byte == '{' ? copy_enclosed(Enclosed::comment, State::movetext) : State::movetext;
}

/// From behind an opening bracket or brace to behind the closing one, which is not counted.
GameCutter::State GameCutter::copy_enclosed(Enclosed kind, State behind) {
    const char close = kind == Enclosed::tag ? ']' : '}';
    const auto limit = kind == Enclosed::tag ? pgn_limits::tag : pgn_limits::comment;
    const auto& specials = kind == Enclosed::tag ? special_in_tag : special_in_comment;
    const auto opened = m_reader.offset();
    std::size_t count = 0;
    while (count <= limit) {
        const auto window = m_reader.window().substr(0, limit - count);
        const auto length = plain_length(window, specials);
        m_text->append(window, 0, length);
        m_reader.consume(length);
        const int c = next_char();
        if (c == BlockReader::end_of_file) {
            if (kind == Enclosed::tag) return end_of_file(Open::tag);
            m_finder.skip_damaged_comment(opened);
            return end_of_file(Open::comment);
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

/// Stores what stands ahead of the next special byte.
///
/// Nearly all bytes of a file go this way: a table look-up each, and one append for the whole run.
void GameCutter::copy_plain(const std::array<bool, 256>& specials) {
    for (auto window = m_reader.window(); !window.empty(); window = m_reader.window()) {
        const auto length = plain_length(window, specials);
        m_text->append(window, 0, length);
        m_reader.consume(length);
        if (length < window.size()) return;
    }
}

/// Whether the digit that was stored last may begin a result. Of several digits 0 and 1 in a row the first
/// looks at the second, and so on: only one that isn't looked at begins anything.
bool GameCutter::stands_in_result() const {
    auto begin = m_text->size();
    while (begin > m_looked_at && begins_result((*m_text)[begin - 1])) --begin;
    return (m_text->size() - begin) % 2 == 1;
}

/// Stores the first byte of what may be a result, and looks at what stands behind it.
GameCutter::State GameCutter::copy_result(char first) {
    *m_text += first;
    if (begins_result(first)) return copy_result_end();
    m_looked_at = m_text->size();
    if (first != '*') return State::movetext;
    *m_text += "\n\n";
    return State::finished;
}

/// Stores what has to be read behind a digit 0 or 1 to know whether it begins a result.
GameCutter::State GameCutter::copy_result_end() {
    const auto first = m_text->size() - 1;
    const auto is_result = [this, first] {
        if (!copy_one_of("-/") || !copy_one_of("012")) return false;
        const auto read = std::string_view(*m_text).substr(first);
        if (read != "1/2") return read == "1-0" || read == "0-1";
        return copy_one_of("-") && copy_one_of("1") && copy_one_of("/") && copy_one_of("2");
    };
    const bool found = is_result();
    m_looked_at = m_text->size();
    if (!found) return State::movetext;
    *m_text += "\n\n";
    return State::finished;
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
///
/// The percent sign in the first column is the escape of the PGN standard (section 6), for data that is no
/// chess.
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
