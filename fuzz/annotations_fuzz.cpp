// Any text as a comment, a tag and an ending: without annotations it is a part of what it was, and what is
// written can be read back from a file.

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

#include "game/annotations.h"
#include "game/game.h"
#include "game/game_tags.h"
#include "game/pgn_file.h"
#include "tests/support/memory_file.h"

namespace {

using namespace velmora;

void require(bool holds) {
    if (!holds) std::abort();
}

bool is_part_of(std::string_view part, std::string_view whole) {
    auto next = whole.begin();
    return std::all_of(part.begin(), part.end(), [&](char c) {
        next = std::find(next, whole.end(), c);
        return next++ != whole.end();
    });
}

/// The game from a file that holds it twice: its end must be found, too.
Game read_back(Game& game) {
    const auto printed = game.pgn();
    const test::MemoryFile memory(printed + printed);
    PgnFile file;
    require(file.open(memory.path()));
    const auto first = file.read_game();
    require(!first.empty() && file.read_game() == first && file.read_game().empty());
    Game read;
    read.parse_pgn(first);
    return read;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string text(reinterpret_cast<const char*>(data), size);
    const auto rest = without_annotations(text);
    require(is_part_of(rest, text));
    require(rest.empty() || std::string_view(" \t\n;").find(rest.back()) == std::string_view::npos);

    Game game;
    game.set_root_comment(comment_from_user(text));
    game.set_tag("White", tag_safe(text));
    const Game read = read_back(game);
    require(read.is_empty() == false && read.result() == "*" && read.tag("White") == tag_safe(text));
    require(read.comment().size() + 1 >=  // a line end that the wrapper puts ahead of an annotation
            std::min<std::size_t>(size, 800));

    // What no function has made readable ahead of the writer.
    game.set_root_comment(text);
    game.set_tag("Annotator" + text.substr(0, size / 2), tag_safe(text));
    std::string ending = ending_text(text, "0-1");
    game.set_result(ending);
    game.set_tag("Result", "0-1");
    require(read_back(game).result() == "0-1");
    return 0;
}
