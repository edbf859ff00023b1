// What the board and the PGN view cost. Needs a display and the project's images:
//     tests/support/with-display.sh build/release/bench/views_redraw
// run in the root of the sources.

#include <string>
#include <utility>
#include <vector>

#include <cairomm/context.h>
#include <cairomm/surface.h>
#include <gtkmm/main.h>
#include <gtkmm/offscreenwindow.h>

#include <benchmark/benchmark.h>

#include "views/board/board_painter.h"
#include "views/board/shown_position.h"
#include "views/evaluation/evaluation_graph.h"
#include "views/text/pgn_view.h"

namespace velmora {
namespace {

/// A middle game position with all that the window marks.
struct Scene {
    explicit Scene(int cell_width) : cell{cell_width, cell_width} {
        table.set_pieces(
            read_shown_position("r1bqk2r/pppp1ppp/2n2n2/2b1p3/2B1P3/3P1N2/PPP2PPP/RNBQK2R w").pieces);
        marks.last_move = {Square(61), Square(34)};
        marks.selected = Square(21);
        marks.targets = {Square(6), Square(11), Square(27), Square(38), Square(31)};
        marks.captures = {Square(36)};
    }
    SquareTable table;
    BoardMarks marks;
    std::vector<Arrow> arrows;
    BoardImages images;
    CellSize cell;
};

Cairo::RefPtr<Cairo::ImageSurface> screen(int pixels, int scale) {
    const auto surface = Cairo::ImageSurface::create(Cairo::FORMAT_RGB24, pixels * scale, pixels * scale);
    cairo_surface_set_device_scale(surface->cobj(), scale, scale);
    return surface;
}

/// Argument 0: the board in pixels; argument 1: device pixels a pixel.
void redraw_board(benchmark::State& state) {
    const int pixels = int(state.range(0)), scale = int(state.range(1));
    Scene scene(pixels / 8);
    scene.images.render({pixels / 8 * scale, pixels / 8 * scale});
    const auto surface = screen(pixels, scale);
    for ([[maybe_unused]] auto step : state) {
        paint_board(Cairo::Context::create(surface),
                    {scene.table, scene.marks, scene.arrows, {}, scene.images, scene.cell});
    }
}
BENCHMARK(redraw_board)->Args({560, 1})->Args({560, 2})->Args({1200, 1})->Unit(benchmark::kMicrosecond);

/// One step of a drag: what a piece in the air uncovers and covers.
void redraw_drag(benchmark::State& state) {
    Scene scene(70);
    scene.images.render(scene.cell);
    scene.table.begin_drag(Square(21), {350, 350});
    const auto surface = screen(560, 1);
    for ([[maybe_unused]] auto step : state) {
        const auto cr = Cairo::Context::create(surface);
        cr->rectangle(350, 350, 80, 80);
        cr->clip();
        paint_board(cr, {scene.table, scene.marks, scene.arrows, {}, scene.images, scene.cell});
    }
}
BENCHMARK(redraw_drag)->Unit(benchmark::kMicrosecond);

/// The graph of a game of 300 moves, at the width of a side panel. Argument: device pixels a pixel.
void redraw_graph(benchmark::State& state) {
    struct Shown : EvaluationGraph {
        using EvaluationGraph::on_draw;
    } graph;
    std::vector<GraphPoint> points(600);
    for (std::size_t i = 0; i < points.size(); ++i) {
        points[i] = {.key = int(i),
                     .expected = double(i * 37 % 100) / 100,
                     .label = "",
                     .mark = static_cast<GraphMark>(i % 40 == 0 ? i / 40 % 4 : 0)};
    }
    graph.set_points(std::move(points));
    graph.set_current(300);
    Gtk::OffscreenWindow window;
    window.set_default_size(320, 90);
    window.add(graph);
    window.show_all();
    const auto surface = screen(320, int(state.range(0)));
    for ([[maybe_unused]] auto step : state) graph.on_draw(Cairo::Context::create(surface));
}
BENCHMARK(redraw_graph)->Arg(1)->Arg(2)->Unit(benchmark::kMicrosecond);

/// The fourteen images, as after a change of size.
void render_images(benchmark::State& state) {
    BoardImages images;
    const int width = int(state.range(0));
    for ([[maybe_unused]] auto step : state) images.render({width, width});
}
BENCHMARK(render_images)->Arg(70)->Arg(140)->Unit(benchmark::kMillisecond);

/// A game of 300 moves with annotations, and the same after one move more.
void refresh_pgn_view(benchmark::State& state) {
    std::string before = "[Event \"Velmora battles\"]\n[Site \"the North Sea\"]\n\n";
    for (int move = 1; move <= 300; ++move) {
        before += std::to_string(move) +
                  ".Nf3 {[%eval 0.34][%emt 0:0:3][%acn 123456][%nps 1000000][%depth 17]} Nc6\n";
    }
    const std::string after = before + "301.Bb5 {[%eval 0.3]}";
    PgnView view;
    view.show_all();
    const auto size = std::int64_t(after.size());
    bool longer = false;
    for ([[maybe_unused]] auto step : state) {
        longer = !longer;
        view.set_text((longer ? after : before) + " *\n\n");
        view.highlight(size - 20, size - 17);
        state.PauseTiming();
        while (Gtk::Main::events_pending()) Gtk::Main::iteration(false);
        state.ResumeTiming();
    }
}
BENCHMARK(refresh_pgn_view)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace velmora

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    Gtk::Main toolkit(argc, argv);
    benchmark::RunSpecifiedBenchmarks();
}
