#include "game/foreign/source_lines.h"

#include <algorithm>

namespace velmora {

namespace {

/// A line of UTF-16 that is longer comes in pieces.
constexpr std::size_t longest_decoded_line = BlockReader::block_size;

constexpr std::size_t bytes_for_encoding = 4096;

bool is_high_surrogate(char32_t unit) { return unit >= 0xD800 && unit < 0xDC00; }
bool is_low_surrogate(char32_t unit) { return unit >= 0xDC00 && unit < 0xE000; }

}  // namespace

bool TextLines::next(SourceLine& line) {
    if (m_at == m_text.size()) return false;
    const auto feed = std::min(m_text.find('\n', m_at), m_text.size() - 1);
    line = {m_text.substr(m_at, feed + 1 - m_at), m_at, true};
    m_at = feed + 1;
    return true;
}

bool FileLines::open(const std::string& path) {
    if (!m_reader.open(path)) return false;
    const auto encoding = encoding_of(m_reader.window().substr(0, bytes_for_encoding));
    m_encoding = encoding.encoding;
    seek(encoding.mark);
    return true;
}

void FileLines::seek(std::uint64_t offset) {
    m_reader.seek(offset);
    m_begins_line = true;
}

bool FileLines::next(SourceLine& line) {
    line.begins_line = m_begins_line;
    line.text = m_encoding == Encoding::bytes ? next_bytes() : std::string_view();
    if (m_encoding == Encoding::bytes) {
        line.offset = m_reader.offset() - line.text.size();
    } else {
        line.offset = m_reader.offset();
        line.text = next_utf16();
    }
    m_begins_line = line.ends_line();
    return !line.text.empty();
}

/// The bytes are consumed, and stay where they are until the reader is asked for more.
std::string_view FileLines::next_bytes() {
    auto window = m_reader.window();
    auto feed = window.find('\n');
    for (bool more = true; more && feed == std::string_view::npos;) {
        const auto searched = window.size();
        more = m_reader.extend();
        window = m_reader.window();
        feed = window.find('\n', searched);
    }
    const auto line = window.substr(0, feed == std::string_view::npos ? window.size() : feed + 1);
    m_reader.consume(line.size());
    return line;
}

std::string_view FileLines::next_utf16() {
    m_line.clear();
    char32_t unit = 0;
    while (m_line.size() < longest_decoded_line && next_unit(unit)) {
        if (is_high_surrogate(unit)) {
            const auto behind = m_reader.offset();
            char32_t low = 0;
            if (next_unit(low) && is_low_surrogate(low)) {
                unit = 0x10000 + ((unit - 0xD800) << 10) + (low - 0xDC00);
            } else {
                m_reader.seek(behind);
            }
        }
        append_utf8(m_line, unit);
        if (unit == '\n') break;
    }
    return m_line;
}

/// False at the end, and at half a unit there.
bool FileLines::next_unit(char32_t& unit) {
    const int first = m_reader.get();
    const int second = m_reader.get();
    if (first == BlockReader::end_of_file || second == BlockReader::end_of_file) return false;
    const auto high = static_cast<char32_t>(m_encoding == Encoding::utf16_be ? first : second);
    const auto low = static_cast<char32_t>(m_encoding == Encoding::utf16_be ? second : first);
    unit = high << 8 | low;
    return true;
}

}  // namespace velmora
