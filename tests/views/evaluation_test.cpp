#include <algorithm>
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include <gdk/gdkkeysyms.h>
#include <gtkmm/box.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/support/gui_driver.h"
#include "views/evaluation/evaluation_bar.h"
#include "views/evaluation/evaluation_graph.h"

namespace velmora {
namespace {

class EvaluationTest : public testing::Test {
protected:
    EvaluationTest() {
        box.pack_start(bar, Gtk::PACK_SHRINK);
        box.pack_start(graph, Gtk::PACK_EXPAND_WIDGET);
        window.add(box);
        window.set_default_size(420, 200);
        graph.signal_chosen().connect([this](std::int32_t key) {
            chosen.push_back(key);
            graph.set_current(key);
        });
        EXPECT_TRUE(gui::show_and_wait(window));
    }
    /// The place of a point of the five, as a fraction of the height from above.
    gui::Point at(int index, double down = 0.5) {
        return {graph.get_allocated_width() * index / 4.0, graph.get_allocated_height() * down};
    }
    bool is_light(Gtk::Widget& widget, gui::Point place) {
        const int x = std::min(int(place.x), widget.get_allocated_width() - 1);
        return gui::pixel_at(gui::picture(widget), x, int(place.y)).red > 0xc0;
    }

    Gtk::Box box;
    EvaluationBar bar;
    EvaluationGraph graph;
    Gtk::Window window;
    std::vector<std::int32_t> chosen;
    const std::vector<GraphPoint> points = {{10, 0.9, "Start, +3.00"},
                                            {11, 0.9, "1. e4"},
                                            {12, {}, "1... e5"},
                                            {13, 0.1, "2. Nf3"},
                                            {14, 0.1, "2... Nc6"}};
};

TEST_F(EvaluationTest, GraphReportsThePointThatMouseOrKeysChoose) {
    gui::click(graph, at(1));
    EXPECT_TRUE(chosen.empty()) << "no points yet";
    graph.set_points(points);
    gui::click(graph, {at(3).x + 30, 5});
    gui::drag(graph, {at(3).x + 30, 5}, at(0));
    EXPECT_THAT(chosen, testing::ElementsAre(13, 12, 10)) << "the nearest, each once";
    const struct {
        unsigned key;
        std::int32_t expected;
    } rows[] = {{GDK_KEY_Right, 11}, {GDK_KEY_End, 14},  {GDK_KEY_Right, 14},
                {GDK_KEY_Left, 13},  {GDK_KEY_Home, 10}, {GDK_KEY_Left, 10}};
    for (const auto& row : rows) {
        gui::press_key(graph, row.key);
        EXPECT_EQ(chosen.back(), row.expected);
    }
    EXPECT_EQ(graph.get_accessible()->get_description(), "Start, +3.00");
    graph.set_current(99);
    EXPECT_EQ(graph.get_accessible()->get_description(), "") << "no point of the graph";
}

TEST_F(EvaluationTest, GraphShowsWhitesShareAndLeavesGaps) {
    graph.set_points(points);
    const double quarter = at(1).x / 2;
    EXPECT_TRUE(is_light(graph, {quarter, at(0, 0.3).y}));
    EXPECT_FALSE(is_light(graph, {quarter, 4}));
    EXPECT_FALSE(is_light(graph, {at(2).x, at(2, 0.95).y})) << "no value there";
    EXPECT_FALSE(is_light(graph, {at(4).x - quarter, at(4, 0.7).y}));
    EXPECT_TRUE(is_light(graph, {at(4).x - quarter, at(4, 0.93).y}));
}

TEST_F(EvaluationTest, BarGrowsFromWhitesSideAndSaysItsValue) {
    // Within the shares and away from the text at the end.
    const double middle = EvaluationBar::width / 2.0, height = bar.get_allocated_height();
    const auto ends = [&] {
        return std::pair(is_light(bar, {middle, height * 0.36}), is_light(bar, {middle, height * 0.64}));
    };
    bar.set_evaluation(0.6, "+2.10");
    EXPECT_EQ(ends(), std::pair(false, true));
    EXPECT_EQ(bar.get_accessible()->get_name(), "Evaluation +2.10");
    bar.set_flipped(true);
    EXPECT_EQ(ends(), std::pair(true, false));
    bar.set_evaluation({}, "stale");
    EXPECT_EQ(bar.get_accessible()->get_name(), "No evaluation");
}

}  // namespace
}  // namespace velmora
