// Any text as a game: it is loaded or refused, can be walked and printed, and what is printed loads again.

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <stdexcept>
#include <string>

#include "chess/moves/legal_moves.h"
#include "game/game.h"

namespace {

using namespace velmora;

void require(bool holds) {
    if (!holds) std::abort();
}

bool load(Game& game, std::string_view text) {
    try {
        game.parse_pgn(text);
    } catch (const std::logic_error&) {
        return false;
    }
    return true;
}

/// Every node hangs under its parent, and nothing hangs elsewhere.
void check_tree(const GameTree& tree) {
    std::size_t children = 0;
    std::size_t nodes = 0;
    for (std::int32_t id = 0; id < tree.end_id(); ++id) {
        if (!tree.has_node(id)) continue;
        ++nodes;
        const auto& node = tree.node(id);
        children += node.children_count();
        require(node.type != ElementType::end_game || node.children.empty());
        for (const auto child : node.children)
            require(tree.node(child).pid == id && tree.node(child).id == child);
    }
    require(nodes == children + 1);
    require(!tree.has_node(static_cast<std::int32_t>(tree.next_id())));
}

void walk(Game& game) {
    try {
        game.to_end();
    } catch (const std::logic_error&) {
        // A move of the text that can't be made.
    }
    for (int steps = 0; steps < 3 && !game.back().empty(); ++steps) {
    }
    const auto moves = legal_moves(game);
    if (!moves.empty()) game.add_move(moves[moves.size() / 2]);
    std::string result = "1-0 {over}";
    game.set_result(result);
    game.set_comment("here");
    game.strip_annotations();
    check_tree(game.tree());
    const auto text = game.pgn();
    const auto range = game.current_text_range();
    require(range.first <= range.second);
    for (const auto offset : {range.first, range.second, std::uint64_t{text.size() / 2}})
        game.goto_text_offset(offset);
    game.to_start();
    game.back();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string text(reinterpret_cast<const char*>(data), size);
    Game game;
    if (load(game, text)) {
        check_tree(game.tree());
        game.tree().dump();
        Game again;
        load(again, game.pgn());
        check_tree(again.tree());
    }
    walk(game);
    return 0;
}
