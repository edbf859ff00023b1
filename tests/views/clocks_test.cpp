#include "views/clocks/clocks.h"

#include <gtkmm/window.h>

#include <gtest/gtest.h>

#include "tests/support/gui_driver.h"
#include "views/board/board_with_clocks.h"

namespace velmora {
namespace {

class ClocksTest : public testing::Test {
protected:
    ClocksTest() {
        window.add(clocks);
        EXPECT_TRUE(gui::show_and_wait(window));
    }
    /// The labels in their order: "White: ", White's time, "Black: ", Black's time.
    Gtk::Label& label(int n) { return *gui::find_widget<Gtk::Label>(clocks, {}, n); }
    /// The colour that a time label stands on.
    gui::Pixel ground(int n) {
        gui::pump_pending();
        const auto place = label(n).get_allocation();
        const auto outer = clocks.get_allocation();
        return gui::pixel_at(gui::picture(clocks), place.get_x() - outer.get_x() + 8,
                             place.get_y() - outer.get_y() + place.get_height() / 2);
    }
    bool is_bold(int n) {
        const auto style = label(n).get_style_context();
        return style->get_font(style->get_state()).get_weight() == Pango::WEIGHT_BOLD;
    }

    Gtk::Window window;
    Clocks clocks;
    static constexpr gui::Pixel white{255, 255, 255}, green{0, 255, 0}, grey{204, 204, 204};
};

TEST_F(ClocksTest, TextsAndOrder) {
    const char* expected[] = {"White: ", "60:00", "Black: ", "60:00"};
    for (int n = 0; n < 4; ++n) {
        EXPECT_EQ(label(n).get_text(), expected[n]);
        EXPECT_EQ(label(n).get_width_chars(), 7);
    }
    clocks.set_level(Level("sudden_death 0 5:3 0"));
    clocks.set_black_time(9900);
    clocks.update();
    EXPECT_EQ(label(1).get_text(), "5:3");
    EXPECT_EQ(label(3).get_text(), "1:39");
}

TEST_F(ClocksTest, SideToMoveIsSeenWithAndWithoutColour) {
    EXPECT_EQ(ground(1), white);
    EXPECT_EQ(ground(3), white);
    struct Row {
        const char* name;
        void (*action)(Clocks&);
        gui::Pixel white_ground, black_ground;
        bool white_bold, black_bold;
    };
    for (const Row& row : {
             Row{"White runs", [](Clocks& c) { c.start_white(); }, green, grey, true, false},
             Row{"Black runs", [](Clocks& c) { c.start_black(); }, grey, green, false, true},
             Row{"stopped", [](Clocks& c) { c.stop(); }, grey, grey, false, false},
             Row{"Black to move", [](Clocks& c) { c.show_black_to_move(); }, grey, green, false, true},
             Row{"White to move", [](Clocks& c) { c.show_white_to_move(); }, green, grey, true, false},
         }) {
        row.action(clocks);
        EXPECT_TRUE(ground(1) == row.white_ground && ground(3) == row.black_ground) << row.name;
        EXPECT_TRUE(is_bold(1) == row.white_bold && is_bold(3) == row.black_bold) << row.name;
        EXPECT_EQ(label(1).get_accessible()->get_description(), row.white_bold ? "to move" : "") << row.name;
    }
}

TEST(BoardWithClocks, TheBarIsAsLongAsTheBoardAtEverySize) {
    Gtk::Window window;
    Clocks clocks;
    ChessBoard board(400);
    EvaluationBar evaluation;
    BoardWithClocks both(clocks, board, evaluation);
    window.add(both);
    ASSERT_TRUE(gui::show_and_wait(window));
    const auto length_and_place = [&] {
        const auto bar = clocks.get_allocation();
        const auto frame = both.get_allocation();
        const int right = frame.get_x() + frame.get_width() - bar.get_x() - bar.get_width();
        return std::pair(bar.get_width(), right - (bar.get_x() - frame.get_x()));
    };
    const auto text_height = [&] {
        int width = 0, height = 0;
        gui::find_widget<Gtk::Label>(clocks)->get_layout()->get_pixel_size(width, height);
        return height;
    };
    const auto margin = [&] {
        int x = 0, y = 0;
        board.drawing().translate_coordinates(board, 0, 0, x, y);
        return 2 * x + board.drawing().get_allocated_width() - board.get_allocated_width();
    };
    const int least_text = text_height(), least_height = window.get_height(), least_margin = margin();
    window.resize(1500, 1000);
    ASSERT_TRUE(gui::pump_until([&] { return text_height() > least_text * 3 / 2; }));
    const auto [length, off] = length_and_place();
    const int board_width = board.drawing().get_allocated_width() * 28 / 27;
    EXPECT_NEAR(length, board_width, 16);
    EXPECT_LE(std::abs(off), 1) << "in the middle, as the board";
    EXPECT_GT(margin(), least_margin * 3 / 2) << "for letters and digits";
    window.resize(10, 10);
    EXPECT_TRUE(gui::pump_until([&] { return window.get_height() == least_height; })) << "at once";
    EXPECT_TRUE(gui::pump_until([&] { return text_height() == least_text; }));
}

}  // namespace
}  // namespace velmora
