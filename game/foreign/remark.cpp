#include "game/foreign/remark.h"

#include <algorithm>
#include <array>

#include "base/text.h"

namespace velmora {

namespace {

/// In the order of RemarkKind.
constexpr auto sentences = std::to_array<std::string_view>({
    "text in another encoding than UTF-8",
    "a tag in a form of its own",
    "no tags",
    "a comment behind a semicolon",
    "a comment of more than 1,024 bytes, which goes on in variations",
    "a comment that isn't closed",
    "a comment where a move can't have one",
    "figurines for piece letters",
    "castling in another spelling",
    "a promotion in another spelling",
    "\"e.p.\" behind a move",
    "a move in another spelling",
    "a sign for a numeric glyph",
    "a null move, which ends the line; the rest of it is a comment",
    "a variation that is empty, isn't closed or holds a result",
    "the result in another spelling",
    "no result",
    "a word among the moves, which is a comment now",
    "a tag of more than 100 bytes, which is cut",
    "more tags than are read",
    "a start position that can't be read",
    "no move that can be made, which ends the line; the rest of it is a comment",
    "a move that several pieces can make, which ends the line; the rest of it is a comment",
    "a comment that is too long for a game without moves, which is cut",
    "a game that is too long, which is cut",
});
static_assert(sentences.size() == static_cast<std::size_t>(RemarkKind::too_long) + 1);

constexpr std::size_t longest_detail = 60;  // bytes

bool begins_character(char c) { return (static_cast<unsigned char>(c) & 0xC0) != 0x80; }

}  // namespace

std::string describe(const Remark& remark) {
    std::string text = "line " + std::to_string(remark.line) + ", column " + std::to_string(remark.column);
    if (!remark.move.empty()) text += ", move " + remark.move;
    text.append(": ").append(sentences[static_cast<std::size_t>(remark.kind)]);
    if (!remark.detail.empty()) text += ": " + remark.detail;
    if (remark.count > 1) text += " (" + std::to_string(remark.count) + " times)";
    return text;
}

void RemarkList::add(RemarkKind kind, std::size_t offset, std::string_view move, std::string_view detail) {
    for (auto& remark : m_remarks) {
        if (remark.kind != kind) continue;
        ++remark.count;
        return;
    }
    const auto ahead = m_text.substr(0, offset);
    const auto lines = std::count(ahead.begin(), ahead.end(), '\n');
    const auto line = ahead.substr(ahead.rfind('\n') + 1);
    const auto columns = std::count_if(line.begin(), line.end(), begins_character);
    m_remarks.push_back({kind, m_first_line + static_cast<std::uint64_t>(lines),
                         static_cast<std::uint64_t>(columns) + 1, 1, std::string(move),
                         text::record_text(detail, longest_detail)});
}

bool RemarkList::has(RemarkKind kind) const {
    return std::ranges::any_of(m_remarks, [kind](const Remark& remark) { return remark.kind == kind; });
}

}  // namespace velmora
