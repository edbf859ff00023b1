#include "collection/game_spans.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <system_error>
#include <unistd.h>

#include "collection/header_tags.h"

namespace velmora {

namespace {

constexpr std::string_view border_line = "\n[Event \"";
constexpr std::size_t first_block = std::size_t{1} << 20;
/// Enough to see whether a bracket begins a tag.
constexpr std::size_t tag_front = 512;

}  // namespace

GameSpans::GameSpans(int descriptor, std::uint64_t begin, std::uint64_t end, std::uint64_t file_size,
                     Front front)
    : m_descriptor(descriptor),
      m_part_end(end),
      m_file_size(file_size),
      // The line end ahead of a border is the byte ahead of the part.
      m_offset(front == Front::any_tag || begin == 0 ? begin : begin - 1),
      m_started(front == Front::any_tag || begin == 0) {}

std::optional<GameSpan> GameSpans::next() {
    if (!m_started && !go_to_first_game()) return std::nullopt;
    if (!find_tag() || (m_offset + m_at >= m_part_end && stands_at_border())) return std::nullopt;
    auto end = find_border(m_at);
    while (end == std::string_view::npos && m_size - m_at < longest && read_more()) end = find_border(m_at);
    const bool is_cut = end == std::string_view::npos && m_size - m_at >= longest;
    if (is_cut) m_started = false;
    end = std::min(end, m_size);
    return GameSpan{m_offset + m_at, std::string_view(m_bytes.data() + m_at, end - m_at), is_cut};
}

/// A part that doesn't begin the file begins with its first border.
bool GameSpans::go_to_first_game() {
    m_started = true;
    while (true) {
        const auto border = find_border(m_at);
        if (border != std::string_view::npos) {
            m_at = border;
            return true;
        }
        // What has been searched is let go of, but for what may be the front of a border.
        m_at = m_size - std::min(m_size, border_line.size());
        if (m_offset + m_at >= m_part_end || !read_more()) return false;
    }
}

/// Brings m_at to the next tag.
bool GameSpans::find_tag() {
    while (true) {
        const auto* const found =
            m_at < m_size ? static_cast<const char*>(std::memchr(m_bytes.data() + m_at, '[', m_size - m_at))
                          : nullptr;
        m_at = found == nullptr ? m_size : static_cast<std::size_t>(found - m_bytes.data());
        if (m_size - m_at < tag_front && read_more()) continue;
        if (m_at >= m_size) return false;
        if (begins_tag({m_bytes.data() + m_at, m_size - m_at})) return true;
        ++m_at;
    }
}

/// The place of the bracket of the first border behind `from`; npos when none is at hand.
std::size_t GameSpans::find_border(std::size_t from) {
    if (m_has_border && m_border > from) return m_border;
    m_has_border = false;
    const auto begin = std::max(from, m_searched);
    const std::string_view bytes(m_bytes.data(), m_size);
    const auto* const found =
        static_cast<const char*>(begin < m_size ? ::memmem(bytes.data() + begin, m_size - begin,
                                                           border_line.data(), border_line.size())
                                                : nullptr);
    if (found == nullptr) {
        m_searched = std::max(begin, m_size - std::min(m_size, border_line.size()));
        return std::string_view::npos;
    }
    m_has_border = true;
    m_border = static_cast<std::size_t>(found - bytes.data()) + 1;
    m_searched = m_border;
    return m_border;
}

bool GameSpans::stands_at_border() const {
    const std::string_view bytes(m_bytes.data(), m_size);
    return m_at > 0 && bytes.substr(m_at - 1).starts_with(border_line);
}

/// Lets go of what lies ahead of m_at, but for one byte, and reads on; false at the end of the file.
bool GameSpans::read_more() {
    // Nothing of a part is kept longer than its games, so the bytes at hand are moved once a block.
    if (m_at > 1) {
        const auto gone = m_at - 1;
        std::memmove(m_bytes.data(), m_bytes.data() + gone, m_size - gone);
        m_offset += gone;
        m_size -= gone;
        m_searched -= std::min(m_searched, gone);
        m_border -= m_has_border ? gone : 0;
        m_at = 1;
    }
    if (m_bytes.size() < m_size + first_block)
        m_bytes.resize(std::max(2 * m_bytes.size(), m_size + first_block));
    const auto place = m_offset + m_size;
    const auto wanted = static_cast<std::size_t>(
        std::min<std::uint64_t>(first_block, m_file_size - std::min(place, m_file_size)));
    if (wanted == 0) return false;
    ssize_t count = 0;
    do {
        count = ::pread(m_descriptor, m_bytes.data() + m_size, wanted, static_cast<off_t>(place));
    } while (count < 0 && errno == EINTR);
    if (count < 0) throw std::system_error(errno, std::generic_category());
    if (count == 0) {
        m_fell_short = true;
        m_file_size = place;
        return false;
    }
    m_size += static_cast<std::size_t>(count);
    return true;
}

}  // namespace velmora
