#include "game/tag_scanner.h"

#include <algorithm>
#include <utility>

namespace velmora {

namespace {

constexpr std::string_view byte_order_mark = "\xEF\xBB\xBF";
constexpr std::string_view event_word = "Event";
constexpr std::size_t roster_size = 7;

std::string_view without_line_end(std::string_view line) {
    while (line.ends_with('\r')) line.remove_suffix(1);
    return line;
}

std::string_view without_mark(std::string_view line) {
    if (line.starts_with(byte_order_mark)) line.remove_prefix(byte_order_mark.size());
    return line;
}

bool begins_header(std::string_view line) {
    return is_header_line(line) && line.find(event_word) != std::string_view::npos;
}

/// Where the header of a first line begins: at the bracket of its event tag if it has one.
std::size_t header_bracket(std::string_view line) {
    const auto bracket = line.rfind('[', line.find(event_word));
    return bracket == std::string_view::npos ? line.find('[') : bracket;
}

/// The lines of a stream.
class StreamLines {
public:
    explicit StreamLines(std::istream& stream) : m_stream(stream) {}

    /// The next line; the view holds until the next call.
    std::optional<std::string_view> operator()() {
        if (!std::getline(m_stream, m_line)) return std::nullopt;
        return without_line_end(m_line);
    }

private:
    std::istream& m_stream;
    std::string m_line;
};

/// Adds the tags of a header from its first line on, up to a line without a "[".
template <class ReadLine>
void collect_tags(std::optional<std::string_view> line, ReadLine&& read_line, TagPairs& tags) {
    for (; line && is_header_line(*line); line = read_line()) add_roster_tag(*line, tags);
}

}  // namespace

TagPairs first_tags(std::istream& stream) {
    stream.clear();
    stream.seekg(0);
    StreamLines lines(stream);
    auto line = lines();
    if (line) line = without_mark(*line);
    while (line && !is_header_line(*line)) line = lines();
    TagPairs tags;
    collect_tags(line, lines, tags);
    return tags.empty() && line ? next_tags(stream) : tags;
}

TagPairs next_tags(std::istream& stream) {
    StreamLines lines(stream);
    TagPairs tags;
    while (tags.empty()) {
        // A comment may hold both, and no tag: an empty list would end the listing.
        auto line = lines();
        while (line && !begins_header(*line)) line = lines();
        if (!line) break;
        collect_tags(line, lines, tags);
    }
    return tags;
}

std::string_view GameHeader::tag(std::string_view name) const {
    const auto found =
        std::find_if(tags.begin(), tags.end(), [name](const auto& pair) { return pair.first == name; });
    return found == tags.end() ? std::string_view() : found->second;
}

TagScanner::TagScanner(const std::string& path) { m_reader.open(path); }

bool TagScanner::next(GameHeader& header) {
    const bool is_first = !std::exchange(m_started, true);
    auto line = is_first ? find_first_line() : find_event_line();
    bool has_any_tag = is_first && line && line->front() == '[';
    for (; line; line = find_event_line(), has_any_tag = false) {
        header.tags.clear();
        header.tags.reserve(roster_size);
        header.offset = m_line_offset + header_bracket(*line);
        collect_tags(
            line, [this] { return read_line(); }, header.tags);
        if (has_any_tag || !header.tags.empty()) return true;
    }
    return false;
}

std::optional<std::string_view> TagScanner::find_first_line() {
    auto line = read_line();
    if (line && line->starts_with(byte_order_mark)) {
        line->remove_prefix(byte_order_mark.size());
        m_line_offset += byte_order_mark.size();
    }
    while (line && !is_header_line(*line)) line = read_line();
    return line;
}

std::optional<std::string_view> TagScanner::find_event_line() {
    for (auto window = m_reader.window(); !window.empty(); window = m_reader.window()) {
        // The word is rare in movetext, which passes in one search for each block.
        const auto word = window.find(event_word);
        const auto line_end = window.rfind('\n', word);
        m_reader.consume(line_end == std::string_view::npos ? 0 : line_end + 1);
        if (word != std::string_view::npos) {
            const auto line = read_line();
            if (line && begins_header(*line)) return line;
        } else if (!m_reader.extend()) {
            m_reader.consume(m_reader.window().size());
        }
    }
    return std::nullopt;
}

/// The next line. One that is longer than a block comes in pieces.
std::optional<std::string_view> TagScanner::read_line() {
    auto window = m_reader.window();
    auto end = window.find('\n');
    for (bool more = true; more && end == std::string_view::npos;) {
        const auto searched = window.size();
        more = m_reader.extend();
        window = m_reader.window();
        end = window.find('\n', searched);
    }
    if (window.empty()) return std::nullopt;
    m_line_offset = m_reader.offset();
    m_reader.consume(end == std::string_view::npos ? window.size() : end + 1);
    return without_line_end(window.substr(0, end));
}

}  // namespace velmora
