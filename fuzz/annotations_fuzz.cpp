// Any text as a comment: without annotations it is a part of what it was, and a user's can be read back.

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

#include "game/annotations.h"
#include "game/game.h"
#include "game/game_tags.h"

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

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string text(reinterpret_cast<const char*>(data), size);
    const auto rest = without_annotations(text);
    require(is_part_of(rest, text));
    require(rest.empty() || std::string_view(" \t\n;").find(rest.back()) == std::string_view::npos);

    Game game;
    game.set_root_comment(comment_from_user(text));
    game.set_tag("White", tag_safe(text.substr(0, 60)));
    Game read;
    read.parse_pgn(game.pgn());
    require(read.is_empty() == false && read.forward().empty() && read.result() == "*");
    require(read.comment().size() + static_cast<std::size_t>(std::count(text.begin(), text.end(), '\r')) +
                1 >=  // a line end that the wrapper puts ahead of an annotation
            std::min<std::size_t>(size, 800));
    return 0;
}
