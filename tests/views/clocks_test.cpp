#include "views/clocks.h"

#include <gtkmm/window.h>

#include <gtest/gtest.h>

#include "tests/support/gui_driver.h"

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

}  // namespace
}  // namespace velmora
