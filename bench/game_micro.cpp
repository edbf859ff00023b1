// Single steps of game records and opening knowledge. The book is that of the package gnuchess-book.

#include <cstdint>
#include <random>
#include <string>
#include <vector>

#include <benchmark/benchmark.h>

#include "chess/moves/legal_moves.h"
#include "game/game.h"
#include "openings/eco.h"
#include "openings/polyglot_book.h"

namespace {

using namespace velmora;

constexpr const char* book_path = "/usr/share/games/gnuchess/book.bin";

/// The keys of random games: those of the first plies are in books and in the ECO table, the others are not.
std::vector<std::uint64_t> game_keys() {
    std::mt19937 random(1);
    std::vector<std::uint64_t> keys;
    const PolyglotBook book(book_path);
    while (keys.size() < 10000) {
        ChessPosition position;
        position.new_game();
        for (int ply = 0; ply < 20; ++ply) {
            keys.push_back(position.key());
            const auto known = book.moves(position.key());
            if (known.empty()) break;
            const auto move = known[random() % known.size()];
            position.do_move(position.convert_to_move(move.to_string()));
        }
    }
    return keys;
}

void book_lookup(benchmark::State& state) {
    const auto keys = game_keys();
    const PolyglotBook book(book_path);
    std::size_t at = 0;
    std::size_t moves = 0;
    for (auto _ : state) {
        moves += book.moves(keys[at]).size();
        at = at + 1 == keys.size() ? 0 : at + 1;
    }
    state.SetItemsProcessed(state.iterations());
    state.counters["moves"] = static_cast<double>(moves) / static_cast<double>(state.iterations());
}
BENCHMARK(book_lookup);

void eco_lookup(benchmark::State& state) {
    const auto keys = game_keys();
    const Eco eco;
    std::size_t at = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(eco.opening(keys[at]));
        at = at + 1 == keys.size() ? 0 : at + 1;
    }
    state.SetItemsProcessed(state.iterations());
}
BENCHMARK(eco_lookup);

/// A game of 600 plies with an annotation at every move.
Game long_game() {
    Game game;
    std::mt19937 random(2);
    for (int ply = 0; ply < 600; ++ply) {
        const auto moves = legal_moves(game);
        game.add_move(moves[random() % moves.size()]);
        game.set_comment("[%eval 0.34][%emt 0:0:5][%acn 123456][%nps 1234567][%depth 17]");
    }
    return game;
}

void print_300_moves(benchmark::State& state) {
    auto game = long_game();
    for (auto _ : state) benchmark::DoNotOptimize(game.pgn());
    state.SetLabel(std::to_string(game.pgn().size()) + " bytes");
}
BENCHMARK(print_300_moves)->Unit(benchmark::kMicrosecond);

void parse_300_moves(benchmark::State& state) {
    const auto text = long_game().pgn();
    Game game;
    for (auto _ : state) game.parse_pgn(text);
}
BENCHMARK(parse_300_moves)->Unit(benchmark::kMicrosecond);

void go_to_the_last_of_300_moves_by_its_offset(benchmark::State& state) {
    auto game = long_game();
    game.pgn();
    const auto last = game.current_text_range().first;
    for (auto _ : state) {
        game.to_start();
        benchmark::DoNotOptimize(game.goto_text_offset(last));
    }
}
BENCHMARK(go_to_the_last_of_300_moves_by_its_offset)->Unit(benchmark::kMicrosecond);

}  // namespace

BENCHMARK_MAIN();
