#include <array>
#include <string>

#include <atk/atk.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/views/board_fixture.h"

namespace velmora {
namespace {

class AccessibleBoardTest : public BoardTest {
protected:
    AtkObject* accessible() { return gtk_widget_get_accessible(GTK_WIDGET(board.drawing().gobj())); }
    /// The accessible object of a square of the position. Owned by the board.
    AtkObject* square(int number) {
        AtkObject* object = atk_object_ref_accessible_child(accessible(), number);
        g_object_unref(object);
        return object;
    }
    std::string name(int number) { return atk_object_get_name(square(number)); }
};

TEST_F(AccessibleBoardTest, SquaresTellTheirContent) {
    board.set_fen(start_fen);
    for (const Gtk::Widget* widget : gui::descendants(board)) {
        EXPECT_FALSE(widget->get_has_tooltip()) << "words over the squares";
    }
    ASSERT_EQ(atk_object_get_n_accessible_children(accessible()), 64);
    EXPECT_STREQ(atk_object_get_name(accessible()), "Chess board");
    EXPECT_EQ(atk_object_get_role(accessible()), ATK_ROLE_DRAWING_AREA);
    EXPECT_EQ(name(12), "e2, white pawn");
    EXPECT_EQ(name(63), "h8, black rook");
    board.flip();
    EXPECT_EQ(name(12), "e2, white pawn") << "squares are those of the position";
    EXPECT_EQ(atk_object_get_index_in_parent(square(12)), 12);
    EXPECT_EQ(atk_object_get_role(square(12)), ATK_ROLE_PUSH_BUTTON);
    EXPECT_EQ(atk_object_ref_accessible_child(accessible(), 64), nullptr);
    int changes = 0;
    const auto count = +[](AtkObject*, GParamSpec*, int* counter) { ++*counter; };
    g_signal_connect(square(28), "notify::accessible-name", G_CALLBACK(count), &changes);
    drag("d7", "d5");
    EXPECT_EQ(name(12), "e2, empty");
    EXPECT_EQ(name(28), "e4, white pawn");
    EXPECT_EQ(changes, 1);
    board.set_fen("4k3/8/8/8/8/8/8/8 w");
    EXPECT_STREQ(atk_object_get_description(accessible()), "White: no pieces. Black: king e8.");
    board.set_fen("4k3/8/8/8/8/8/4P2P/R3K2R w");
    EXPECT_STREQ(atk_object_get_description(accessible()),
                 "White: king e1, rooks a1, h1, pawns e2, h2. Black: king e8.");
}

TEST_F(AccessibleBoardTest, SquaresCanBePressed) {
    board.set_fen(start_fen);
    board.flip();
    EXPECT_TRUE(atk_action_do_action(ATK_ACTION(square(12)), 0));
    EXPECT_FALSE(atk_action_do_action(ATK_ACTION(square(12)), 1));
    EXPECT_THAT(moves, testing::ElementsAre("e2e2"));
}

TEST_F(AccessibleBoardTest, SquaresKnowTheirPlace) {
    const auto place = [](AtkObject* object) {
        std::array<int, 4> box{};  // left, top, width, height
        atk_component_get_extents(ATK_COMPONENT(object), &box[0], &box[1], &box[2], &box[3], ATK_XY_WINDOW);
        return box;
    };
    const auto whole = place(accessible());
    EXPECT_THAT(place(square(1)), testing::ElementsAre(whole[0] + 70, whole[1] + 490, 70, 70));
    board.flip();
    EXPECT_THAT(place(square(1)), testing::ElementsAre(whole[0] + 420, whole[1], 70, 70));
}

TEST_F(AccessibleBoardTest, SquaresOutliveTheirBoard) {
    AtkObject* kept = nullptr;
    {
        ChessBoard other(360);
        kept =
            atk_object_ref_accessible_child(gtk_widget_get_accessible(GTK_WIDGET(other.drawing().gobj())), 5);
    }
    EXPECT_EQ(atk_object_get_name(kept), nullptr);
    EXPECT_FALSE(atk_action_do_action(ATK_ACTION(kept), 0));
    g_object_unref(kept);
}

TEST_F(AccessibleBoardTest, LastMoveIsSaid) {
    std::string said;
    const auto note = +[](AtkObject*, const char* text, std::string* target) { *target = text; };
    if (g_signal_lookup("announcement", ATK_TYPE_OBJECT) != 0) {
        g_signal_connect(accessible(), "announcement", G_CALLBACK(note), &said);
        board.announce("White plays knight to f3");
        EXPECT_EQ(said, "White plays knight to f3");
    }
    board.announce("check");
    EXPECT_EQ(board.get_accessible()->get_description(), "check");
}

}  // namespace
}  // namespace velmora
