#include "game/torn_tail.h"

#include <algorithm>
#include <cstdint>
#include <optional>
#include <string_view>

#include "game/block_reader.h"
#include "game/game_cutter.h"
#include "game/game_finder.h"
#include "game/pgn_error.h"
#include "game/pgn_tokenizer.h"

namespace velmora {

namespace {

constexpr std::uint64_t first_look_back = 1 << 16;
constexpr std::uint64_t farthest_look_back = 1 << 24;

/// The last line from `begin` on that begins an event tag.
std::optional<std::uint64_t> last_event_line(BlockReader& reader, std::uint64_t begin) {
    std::optional<std::uint64_t> found;
    reader.seek(begin);
    if (begin > 0) reader.skip_line();
    for (; reader.peek() != BlockReader::end_of_file; reader.skip_line()) {
        if (stands_before_event_tag(reader)) found = reader.offset();
    }
    return found;
}

std::uint64_t start_of_last_game(BlockReader& reader) {
    const auto size = reader.file_size();
    for (auto look_back = first_look_back;; look_back *= 4) {
        const auto begin = size - std::min(size, look_back);
        const auto found = last_event_line(reader, begin);
        if (found || begin == 0 || look_back >= farthest_look_back) return found.value_or(begin);
    }
}

/// What a header's last line lacks of `[Name "value"]`.
std::string closing_of_tag(std::string_view line) {
    const auto open = line.find('"');
    if (open == std::string_view::npos) {
        return line.ends_with(']') ? "" : line.ends_with(' ') ? "\"\"]" : " \"\"]";
    }
    auto close = line.find('"', open + 1);
    while (close != std::string_view::npos && line[close - 1] == '\\') close = line.find('"', close + 1);
    if (close != std::string_view::npos) return line.find(']', close) == std::string_view::npos ? "]" : "";
    return line.ends_with('\\') ? " \"]" : "\"]";  // behind a backslash a quote would belong to the value
}

std::string closing_of_variations(std::string_view game) {
    PgnTokenizer tokenizer;
    std::size_t open = 0;
    for (const auto& token : tokenizer.tokenize(game)) {
        if (token.kind == TokenKind::variation_open) ++open;
        if (token.kind == TokenKind::variation_close && open > 0) --open;
    }
    return std::string(open, ')');
}

bool ends_with_line_end(BlockReader& reader) {
    const auto size = reader.file_size();
    if (size == 0) return true;
    reader.seek(size - 1);
    return reader.peek() == '\n';
}

}  // namespace

std::string closing_of_torn_tail(const std::string& path) {
    BlockReader reader;
    if (!reader.open(path)) return {};
    reader.seek(start_of_last_game(reader));
    GameCutter cutter(reader);
    std::string game;
    do {
        try {
            cutter.cut(game);
        } catch (const pgn_error&) {
            // The finder goes on behind it.
        }
    } while (reader.peek() != BlockReader::end_of_file);

    using Open = GameCutter::Open;
    std::string closing;
    const auto open = cutter.left_open();
    if (open == Open::header || open == Open::tag) {
        const auto line = std::string_view(game).substr(game.rfind('\n') + 1);
        if (line.starts_with('[')) closing = closing_of_tag(line);
    } else if (open != Open::nothing) {
        if (open == Open::comment) closing = "}";
        closing += closing_of_variations(game);
    }
    const bool whole_line = closing.empty() && ends_with_line_end(reader);
    if (open == Open::nothing) return whole_line ? "" : "\n\n";
    if (!whole_line) closing += '\n';
    if (open == Open::header || open == Open::tag) closing += '\n';
    return closing + "*\n\n";
}

}  // namespace velmora
