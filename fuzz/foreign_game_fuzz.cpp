// Any bytes as a foreign game: what is written of it is read by the strict reader without loss, from a text
// and from a file, and isn't written anew a second time.

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "game/foreign/foreign_file.h"
#include "game/foreign/game_repair.h"
#include "game/foreign/pasted_text.h"
#include "game/game.h"
#include "game/pgn_file.h"
#include "tests/support/memory_file.h"

namespace {

using namespace velmora;

void require(bool holds) {
    if (!holds) std::abort();
}

/// All moves and comments of a tree, in the order of the ids.
std::string content(const Game& game) {
    std::string text;
    for (std::int32_t id = 0; id < game.tree().end_id(); ++id) {
        if (!game.tree().has_node(id)) continue;
        const auto& node = game.tree().node(id);
        text += node.san + node.nag + "{" + node.comment + "}" + node.result + " ";
    }
    return text;
}

void check_strict(const ForeignGame& foreign) {
    require(!needs_repair(foreign.text));
    Game game;
    game.parse_pgn(foreign.text);
    game.to_end();
    require(game.moves().size() == foreign.plies);

    const test::MemoryFile memory(foreign.text + foreign.text);
    PgnFile file;
    require(file.open(memory.path()));
    for (int i = 0; i < 2; ++i) {
        Game read;
        read.parse_pgn(file.read_game());
        require(content(read) == content(game));
    }
    require(file.read_game().empty());
    const auto again = repair_game(foreign.text);
    require(!again.is_repaired() && again.plies == foreign.plies);
    Game twice;
    twice.parse_pgn(again.text);
    require(content(twice) == content(game));
}

/// Every game of a file that needs the second reader is found again where it was found; in a file without
/// one, games have the text that the strict reader gives.
void check_file(std::string_view bytes) {
    const test::MemoryFile memory(bytes);
    FileSurvey survey(memory.path());
    std::uint64_t end = 0;
    for (SurveyedGame found; survey.next(found); end = found.offset + 1) {
        require(found.offset >= end && found.offset < bytes.size());
        check_strict(found.game);
        if (found.is_repaired) require(read_any_game(memory.path(), found.offset).text == found.game.text);
    }
    PgnFile file;
    ForeignFile foreign;
    require(file.open(memory.path()) && foreign.open(memory.path()));
    std::vector<std::pair<std::uint64_t, std::string>> games;
    bool cuts_alike = end == 0;
    for (ForeignText text; cuts_alike && foreign.next(text);) {
        games.emplace_back(text.offset, file.next_game());
        cuts_alike = !games.back().second.empty() && file.game_offset() == text.offset;
    }
    if (!cuts_alike) return;
    for (const auto& [offset, text] : games) require(read_any_game(memory.path(), offset).text == text);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    needs_repair(text);
    const auto foreign = repair_game(text);
    for (const auto& remark : foreign.remarks) describe(remark);
    check_strict(foreign);
    check_file(text);
    const auto pasted = read_pasted(text);
    require(pasted.fault.empty() == (pasted.kind != PastedText::Kind::nothing));
    return 0;
}
