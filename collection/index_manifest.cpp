#include "collection/index_manifest.h"

#include <sstream>

#include "base/text.h"
#include "collection/checksum.h"

namespace velmora {

namespace {

/// To be counted up with every change of any file of the index.
constexpr std::string_view first_line = "velmora collection index 1\n";
constexpr std::string_view sum_word = "sum ";

/// The names of directories and files are made here, so a path in one is somebody's doing.
bool is_file_name(std::string_view name) {
    return !name.empty() && name.find('/') == std::string_view::npos && !name.starts_with('.');
}

/// Reads the lines one after the other, each with its word; one fault spoils all.
class Lines {
public:
    explicit Lines(std::string_view text) : m_rest(text) {}

    std::string_view text(std::string_view word) {
        const auto end = m_rest.find('\n');
        auto line = m_rest.substr(0, end);
        if (end == std::string_view::npos || !line.starts_with(word) || line.substr(word.size(), 1) != " ") {
            m_good = false;
            return {};
        }
        m_rest.remove_prefix(end + 1);
        return line.substr(word.size() + 1);
    }

    template <class T>
    void number(std::string_view word, T& value) {
        const auto read = text::strict_integer<T>(text(word));
        m_good = m_good && read.has_value();
        value = read.value_or(T());
    }

    bool has(std::string_view word) const { return m_rest.starts_with(word); }
    bool good() const { return m_good; }
    bool at_end() const { return m_rest.empty(); }

private:
    std::string_view m_rest;
    bool m_good = true;
};

}  // namespace

std::string IndexManifest::to_text() const {
    std::ostringstream out;
    out << first_line << "path " << text::one_line(path) << "\nsize " << source.size << "\nmodified "
        << source.modified_ns << "\ndigest " << source.digest << "\ndirectory " << directory << "\nread_to "
        << read_to << "\nends_with_result " << (ends_with_result ? 1 : 0) << "\ngames " << games << "\ntexts "
        << texts << '\n';
    for (const auto count : remarks) out << "remark " << count << '\n';
    for (const auto& segment : segments) out << "segment " << segment.games << ' ' << segment.file << '\n';
    auto text = out.str();
    return text + std::string(sum_word) + std::to_string(checksum(text)) + '\n';
}

std::optional<IndexManifest> IndexManifest::from_text(std::string_view text) {
    const auto sum_at = text.rfind("\n" + std::string(sum_word));
    if (!text.starts_with(first_line) || sum_at == std::string_view::npos) return std::nullopt;
    const auto body = text.substr(0, sum_at + 1);
    if (text.substr(sum_at + 1) != std::string(sum_word) + std::to_string(checksum(body)) + '\n')
        return std::nullopt;

    IndexManifest manifest;
    Lines lines(body.substr(first_line.size()));
    manifest.path = lines.text("path");
    lines.number("size", manifest.source.size);
    lines.number("modified", manifest.source.modified_ns);
    lines.number("digest", manifest.source.digest);
    manifest.directory = lines.text("directory");
    lines.number("read_to", manifest.read_to);
    int ends = 0;
    lines.number("ends_with_result", ends);
    manifest.ends_with_result = ends != 0;
    lines.number("games", manifest.games);
    lines.number("texts", manifest.texts);
    for (auto& count : manifest.remarks) lines.number("remark", count);
    bool names_are_good = is_file_name(manifest.directory);
    while (lines.good() && lines.has("segment ")) {
        text::WordReader words(lines.text("segment"));
        Segment segment;
        segment.games = words.integer<std::uint32_t>().value_or(0);
        segment.file = words.word();
        names_are_good = names_are_good && is_file_name(segment.file);
        manifest.segments.push_back(segment);
    }
    if (!lines.good() || !lines.at_end() || !names_are_good) return std::nullopt;
    return manifest;
}

}  // namespace velmora
