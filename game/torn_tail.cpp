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

/// The first line behind `begin` that begins an event tag.
std::optional<std::uint64_t> next_event_line(BlockReader& reader, std::uint64_t begin) {
    reader.seek(begin);
    for (reader.skip_line(); reader.peek() != BlockReader::end_of_file; reader.skip_line()) {
        if (stands_before_event_tag(reader)) return reader.offset();
    }
    return std::nullopt;
}

/// Where a game begins a little way ahead of the end of the file.
std::uint64_t start_of_last_games(BlockReader& reader) {
    const auto size = reader.file_size();
    for (auto look_back = first_look_back; look_back < size; look_back *= 4) {
        const auto begin = size - look_back;
        const auto found = next_event_line(reader, begin);
        if (found || look_back >= farthest_look_back) return found.value_or(begin);
    }
    return 0;
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

/// The line that has no end, as far as it stands in the last bytes; empty when there is none.
std::string unfinished_line(BlockReader& reader) {
    const auto size = reader.file_size();
    reader.seek(size - std::min(size, first_look_back));
    while (reader.extend()) {
    }
    const auto bytes = reader.window();
    return std::string(bytes.substr(bytes.rfind('\n') + 1));
}

}  // namespace

std::string closing_of_torn_tail(const std::string& path) {
    BlockReader reader;
    if (!reader.open(path)) return {};
    reader.seek(start_of_last_games(reader));
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
        // A tag of another program may go on over lines.
        if (open == Open::tag && !closing.ends_with(']')) closing += ']';
    } else if (open != Open::nothing) {
        if (open == Open::comment) closing = "}";
        closing += closing_of_variations(game);
    }
    const auto last_line = unfinished_line(reader);
    if (open == Open::nothing) return last_line.empty() ? "" : "\n\n";
    // What stands in an escaped line closes nothing.
    if (last_line.starts_with('%') || last_line.starts_with("\r%")) closing.insert(0, "\n");
    if (!closing.empty() || !last_line.empty()) closing += '\n';
    if (open == Open::header || open == Open::tag) closing += '\n';
    return closing + "*\n\n";
}

}  // namespace velmora
