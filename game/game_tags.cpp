#include "game/game_tags.h"

#include <algorithm>
#include <span>
#include <stdexcept>

#include "base/text.h"
#include "game/pgn_limits.h"

namespace velmora {

namespace {

std::string_view printed_name(std::string_view name) { return text::utf8_prefix(name, pgn_limits::tag_name); }

std::string_view printed_value(std::string_view value) {
    return text::utf8_prefix(value, pgn_limits::tag_value);
}

/// Whether readers would take what follows a "]" within the value for movetext: to them it ends the tag.
bool holds_movetext(std::string_view value) {
    const auto behind = value.substr(std::min(value.find(']'), value.size()));
    return std::any_of(behind.begin(), behind.end(), [](char c) {
        return static_cast<unsigned char>(c) >= 0x80 || (c >= '0' && c <= '9') || c == '*' || c == '{' ||
               c == '[';
    });
}

/// Changes what readers would stumble over, byte for byte. Quotes stand as they are.
void make_readable(std::span<char> value) {
    const std::string_view text(value.data(), value.size());
    const bool without_brackets = holds_movetext(text);
    for (char& c : value) {
        if (text::is_control(c)) c = ' ';
        if (without_brackets && c == '[') c = '(';
        if (without_brackets && c == ']') c = ')';
    }
    if (text.ends_with('\\')) value.back() = '/';  // it would escape the closing quote
}

void make_readable_name(std::span<char> name) {
    const auto ends_name = [](char c) {
        return text::is_control(c) || std::string_view(" \"[]").find(c) != std::string_view::npos;
    };
    std::ranges::replace_if(name, ends_name, '_');
}

void append(std::string& text, std::string_view part, void (*make_readable)(std::span<char>)) {
    const auto begin = text.size();
    text += part;
    make_readable(std::span(text).subspan(begin));
}

}  // namespace

GameTags::GameTags(std::string_view header) {
    for (auto open = header.find('['); open < header.size(); open = header.find('[', open)) {
        const auto name_end = std::min(header.find_first_of(" \"", open + 1), header.size());
        const auto name = header.substr(open + 1, name_end - open - 1);
        const auto begin = std::min(header.find_first_not_of(" \"", name_end), header.size());
        const auto end = std::min(header.find('"', begin), header.size());
        const auto value = text::utf8_prefix(header.substr(begin, end - begin), pgn_limits::tag_value);
        if (text::valid_utf8(value) != value) {
            throw std::logic_error("Game::parse_pgn() tag value: utf-8 error");
        }
        set(name, value);
        open = std::min(header.find(']', end), header.size());
    }
}

void GameTags::reset() {
    m_tags.clear();
    m_by_name.clear();
    for (const auto* name : {"Event", "Site"}) set(name, "?");
    set("Date", "????.??.??");
    for (const auto* name : {"Round", "White", "Black"}) set(name, "?");
    set("Result", "*");
    m_fen = standard_fen;
    m_start_color = Side::white;
    m_start_move_number = 1;
}

std::vector<std::uint32_t>::const_iterator GameTags::place_of(std::string_view name) const {
    return std::lower_bound(
        m_by_name.begin(), m_by_name.end(), name,
        [this](std::uint32_t tag, std::string_view wanted) { return m_tags[tag].name < wanted; });
}

const GameTags::Tag* GameTags::find(std::string_view name) const {
    const auto place = place_of(name);
    return place != m_by_name.end() && m_tags[*place].name == name ? &m_tags[*place] : nullptr;
}

void GameTags::set(std::string_view name, std::string_view value) {
    const auto place = place_of(name);
    if (place != m_by_name.end() && m_tags[*place].name == name) {
        m_tags[*place].value = value;
    } else {
        m_by_name.insert(place, static_cast<std::uint32_t>(m_tags.size()));
        m_tags.push_back({std::string(name), std::string(value)});
    }
    if (name == "FEN") set_start(value);
}

void GameTags::set_start(std::string_view fen) {
    m_fen = fen;
    // Board, side, castling, en passant, half-move clock, full-move number.
    text::WordReader fields(fen);
    fields.word();
    m_start_color = fields.word() == "w" ? Side::white : Side::black;
    for (int skipped = 0; skipped < 3; ++skipped) fields.word();
    m_start_move_number = fields.integer<std::int32_t>().value_or(1);
}

std::string GameTags::get(std::string_view name) const {
    const auto* tag = find(name);
    return tag ? tag->value : std::string();
}

bool GameTags::contains(std::string_view name) const { return find(name) != nullptr; }

std::vector<std::string> GameTags::order() const {
    std::vector<std::string> names;
    names.reserve(m_tags.size());
    for (const auto& tag : m_tags) names.push_back(tag.name);
    return names;
}

std::string GameTags::print() const {
    std::string text;
    text.reserve(printed_size());
    for (const auto& tag : m_tags) {
        text += '[';
        append(text, printed_name(tag.name), make_readable_name);
        text += " \"";
        append(text, printed_value(tag.value), make_readable);
        text += "\"]\n";
    }
    return text;
}

std::size_t GameTags::printed_size() const {
    constexpr std::size_t frame = std::string_view("[ \"\"]\n").size();
    std::size_t size = 0;
    for (const auto& tag : m_tags) {
        size += printed_name(tag.name).size() + printed_value(tag.value).size() + frame;
    }
    return size;
}

std::string tag_safe(std::string_view text) {
    std::string safe = text::valid_utf8(text);
    std::ranges::replace(safe, '"', '\'');
    make_readable(safe);
    safe = printed_value(text::trim_leading_blanks(safe));
    make_readable(safe);  // the cut may have left a backslash at the end
    return safe;
}

}  // namespace velmora
