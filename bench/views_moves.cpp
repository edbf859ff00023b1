// What the moves of a long game cost: the sheet, the view drawn whole, one move more, one step. Needs a
// display:
//     tests/support/with-display.sh build/release/bench/views_moves

#include <string>

#include <gtkmm/main.h>
#include <gtkmm/window.h>

#include <benchmark/benchmark.h>

#include "game/game.h"
#include "views/moves/moves_view.h"

namespace velmora {
namespace {

/// 300 moves with clocks and evaluations, 100 variations of ten plies, half of them with a comment. Of
/// `plies` of the main line.
Game long_game(int plies) {
    constexpr const char* cycle[] = {"Nf3", "Nf6", "Ng1", "Ng8"};
    constexpr const char* others[] = {"Nc3", "Nc6", "Nb1", "Nb8"};
    std::string text;
    for (int ply = 0; ply < plies; ++ply) {
        if (ply % 2 == 0) text += std::to_string(ply / 2 + 1) + ". ";
        text +=
            std::string(cycle[ply % 4]) + " {[%eval 0." + std::to_string(ply % 90 + 10) + "][%clk 0:05:12]} ";
        if (ply % 6 != 4) continue;
        text += "(";
        for (int side = 0; side < 10; ++side) text += std::string(others[side % 4]) + " ";
        text += ply % 12 == 4 ? "{Slower, but not bad at all in the long run}) " : ") ";
    }
    Game game;
    game.parse_pgn(text + "*");
    return game;
}

constexpr int all_plies = 600;

void make_sheet(benchmark::State& state) {
    const Game game = long_game(all_plies);
    for ([[maybe_unused]] auto step : state) benchmark::DoNotOptimize(MoveSheet(game.tree()).items().size());
}
BENCHMARK(make_sheet)->Unit(benchmark::kMillisecond);

/// The view in a window of the width of a side panel, drawn as far as it is in sight.
struct Shown {
    Shown() {
        window.set_default_size(320, 600);
        window.add(view);
        window.show_all();
        settle();
    }
    /// Lays out and draws all that is due.
    static void settle() {
        while (Gtk::Main::events_pending()) Gtk::Main::iteration(false);
    }
    /// Draws what is in sight, as the next frame would, without waiting for its time.
    void draw() {
        view.size_allocate(view.get_allocation());
        view.get_window()->process_updates(true);
    }
    MovesView view;
    Gtk::Window window;
};

std::int32_t last_move(const Game& game) { return game.tree().end_of_line(0); }

/// Sheet, rows, text and tags of the whole game, and what is in sight drawn; argument 0: whether the rest of
/// the text is laid out within the time, which is else done when there is nothing better to do.
void draw_whole(benchmark::State& state) {
    const Game game = long_game(all_plies);
    Shown shown;
    for ([[maybe_unused]] auto step : state) {
        shown.view.set_sheet(MoveSheet(game.tree()));
        shown.view.set_current(1);
        shown.draw();
        if (state.range(0) != 0) Shown::settle();
        state.PauseTiming();
        shown.view.set_sheet({});
        Shown::settle();
        state.ResumeTiming();
    }
}
BENCHMARK(draw_whole)->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);

/// A move is played, or taken back, at the end of the game.
void draw_one_move_more(benchmark::State& state) {
    const Game games[] = {long_game(all_plies), long_game(all_plies - 1)};
    Shown shown;
    std::size_t which = 0;
    for ([[maybe_unused]] auto step : state) {
        const Game& game = games[which = 1 - which];
        shown.view.set_sheet(MoveSheet(game.tree()));
        shown.view.set_current(last_move(game));
        shown.draw();
        state.PauseTiming();
        Shown::settle();
        state.ResumeTiming();
    }
}
BENCHMARK(draw_one_move_more)->Unit(benchmark::kMillisecond);

/// From one move to the next.
void draw_step(benchmark::State& state) {
    const Game game = long_game(all_plies);
    Shown shown;
    const MoveSheet sheet(game.tree());
    shown.view.set_sheet(sheet);
    Shown::settle();
    std::int32_t node = 0;
    for ([[maybe_unused]] auto step : state) {
        const auto next = game.tree().node(node).child_at(0);
        node = next > 0 ? next : 0;
        shown.view.set_current(node);
        shown.draw();
        state.PauseTiming();
        Shown::settle();
        state.ResumeTiming();
    }
}
BENCHMARK(draw_step)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace velmora

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    Gtk::Main toolkit(argc, argv);
    benchmark::RunSpecifiedBenchmarks();
}
