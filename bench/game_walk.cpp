// Walks a PGN file in one of the ways that the measurements compare: game_walk <way> <path> [<game>].
//
//   headers  stores the roster tags of all games          trees  builds the tree of each game
//   play     also plays each main line                    game   reads one game by its number
//
// Prints what it counted, and the most memory that it held.

#include <cstddef>
#include <exception>
#include <functional>
#include <iostream>
#include <map>
#include <stdexcept>
#include <string>
#include <sys/resource.h>
#include <vector>

#include "base/text.h"
#include "game/game.h"
#include "game/pgn_file.h"
#include "game/tag_scanner.h"

namespace {

using namespace velmora;

void list_headers(const std::string& path) {
    TagScanner scanner(path);
    std::vector<GameHeader> headers;
    for (GameHeader header; scanner.next(header); header = {}) headers.push_back(std::move(header));
    std::size_t tags = 0;
    for (const auto& header : headers) tags += header.tags.size();
    std::cout << headers.size() << " headers, " << tags << " tags";
}

void walk(const std::string& path, const std::function<void(Game&)>& visit) {
    PgnFile file;
    if (!file.open(path)) throw std::runtime_error("can't be opened");
    Game game;
    std::size_t games = 0;
    std::size_t nodes = 0;
    for (auto text = file.next_game(); !text.empty(); text = file.next_game()) {
        game.parse_pgn(text);
        visit(game);
        ++games;
        nodes += static_cast<std::size_t>(game.tree().end_id());
    }
    std::cout << games << " games, " << nodes << " nodes";
}

void build_trees(const std::string& path) {
    walk(path, [](Game&) {});
}

void play_games(const std::string& path) {
    std::size_t moves = 0;
    walk(path, [&moves](Game& game) {
        game.to_end();
        moves += game.moves().size();
    });
    std::cout << ", " << moves << " moves";
}

void read_game(const std::string& path, const std::string& number) {
    PgnFile file;
    file.open(path);
    std::cout << file.game_at(text::strict_integer<std::int64_t>(number).value_or(1)).size() << " bytes";
}

}  // namespace

int main(int argc, char** argv) {
    const std::vector<std::string> arguments(argv + 1, argv + argc);
    const std::map<std::string, std::function<void(const std::string&)>> ways{
        {"headers", list_headers},
        {"trees", build_trees},
        {"play", play_games},
        {"game",
         [&](const std::string& path) { read_game(path, arguments.size() > 2 ? arguments[2] : "1"); }}};
    if (arguments.size() < 2 || !ways.contains(arguments[0])) {
        std::cerr << "usage: game_walk headers|trees|play|game <path> [<game>]\n";
        return 2;
    }
    try {
        ways.at(arguments[0])(arguments[1]);
    } catch (const std::exception& error) {
        std::cerr << arguments[1] << ": " << error.what() << "\n";
        return 1;
    }
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    std::cout << ", " << usage.ru_maxrss << " KB\n";
    return 0;
}
