// What the judging of a game costs apart from the engine's searches: 80 plies from given evaluations, into
// the record and out as text. The moves are drawn by lot from the legal ones, so that most lose much and
// bring a variation.

#include <cstddef>
#include <random>
#include <string>

#include <benchmark/benchmark.h>

#include "analysis/search_info.h"
#include "chess/moves/legal_moves.h"
#include "review/game_review.h"

namespace {

using namespace velmora;

constexpr std::size_t plies = 80;

Game game_by_lot() {
    std::mt19937 random(20);
    Game game;
    for (std::size_t ply = 0; ply < plies; ++ply) {
        const auto moves = legal_moves(game);
        game.add_move(moves[random() % moves.size()]);
    }
    return game;
}

void judge_game(benchmark::State& state) {
    const Game game = game_by_lot();
    std::size_t marked = 0;
    for (auto _ : state) {
        Game record = game;
        GameReview review(record, ReviewSettings(), "Judge");
        std::mt19937 random(21);
        for (const auto ply : review.wanted()) {
            const auto position = review.line().position(ply);
            const auto choice = (*legal_moves(position).begin()).to_string(true);
            const std::string info = "depth 12 score cp " +
                                     std::to_string(static_cast<int>(random() % 1200) - 600) + " pv " +
                                     choice;
            review.take(record, ply, read_search_info(info, position.side_to_move()), choice);
        }
        review.finish(record);
        marked = static_cast<std::size_t>(review.summary(record, Side::white).blunders);
        benchmark::DoNotOptimize(record);
    }
    state.counters["white blunders"] = static_cast<double>(marked);
}
BENCHMARK(judge_game)->Unit(benchmark::kMicrosecond);

}  // namespace

BENCHMARK_MAIN();
