#include <gdk/gdkkeysyms.h>

#include <gtest/gtest.h>

#include "tests/support/gui_driver.h"
#include "tests/views/board_fixture.h"
#include "views/choice/piece_choice_dialog.h"
#include "views/choice/promo_choice_dialog.h"

namespace velmora {
namespace {

class ChooserTest : public BoardTest {
protected:
    using Reply = std::function<bool(Gtk::Dialog&)>;

    int piece_choice(const Reply& reply) {
        gui::Answer<Gtk::Dialog> answer(reply);
        const PieceChoiceDialog dialog(window, board.drawing().pixbufs());
        EXPECT_TRUE(answer.given());
        last_piece = dialog.piece();
        return dialog.choice();
    }
    PieceKind promotion(const Reply& reply) {
        gui::Answer<Gtk::Dialog> answer(reply);
        const auto& images = board.drawing().pixbufs();
        const PromoChoiceDialog dialog(window, images[5], images[4], images[3], images[2]);
        EXPECT_TRUE(answer.given());
        return dialog.kind();
    }
    /// A click at a place in cells.
    static Reply click_at(double column, double row) {
        return [=](Gtk::Dialog& dialog) {
            auto* event = gui::find_widget<ChoiceEvent>(dialog);
            const CellSize cell = gui::find_widget<ChoiceDraw>(dialog)->cell();
            gui::click(*event, {column * cell.width, row * cell.height});
            return true;
        };
    }
    static Reply keys(std::vector<unsigned> pressed) {
        return [=](Gtk::Dialog& dialog) {
            for (const unsigned key : pressed) gui::press_key(dialog, key);
            return true;
        };
    }

    Piece last_piece;  ///< of the last choice of a piece
};

TEST_F(ChooserTest, EveryPieceHasItsCode) {
    const int expected[4][3] = {{1, 2, 3}, {4, 5, 6}, {8, 9, 10}, {11, 12, 13}};
    std::string letters;
    for (int row = 0; row < 4; ++row) {
        for (int column = 0; column < 3; ++column) {
            EXPECT_EQ(piece_choice(click_at(column + 0.5, row + 0.5)), expected[row][column]);
            letters += last_piece.letter();
        }
    }
    EXPECT_EQ(letters, "PNBRQKpnbrqk");
    EXPECT_EQ(promotion(click_at(0.5, 0.5)), PieceKind::queen);
    EXPECT_EQ(promotion(click_at(1.5, 0.5)), PieceKind::rook);
    EXPECT_EQ(promotion(click_at(0.5, 1.5)), PieceKind::bishop);
    EXPECT_EQ(promotion(click_at(1.5, 1.5)), PieceKind::knight);
}

TEST_F(ChooserTest, NoChoiceIsZero) {
    EXPECT_EQ(promotion([](Gtk::Dialog& dialog) {
                  dialog.close();
                  return true;
              }),
              PieceKind::none);
    EXPECT_EQ(piece_choice(keys({GDK_KEY_Escape})), 0);
    for (const auto& [column, row] : {std::pair(3.0, 3.5), {2.5, 4.0}, {-0.01, 0.5}, {0.5, -0.01}}) {
        EXPECT_EQ(piece_choice(click_at(column, row)), 0) << "beside the grid " << column << " " << row;
    }
    EXPECT_EQ(last_piece, no_piece);
}

TEST_F(ChooserTest, KeyboardChoosesToo) {
    EXPECT_EQ(piece_choice(keys({GDK_KEY_Down, GDK_KEY_Down, GDK_KEY_Right, GDK_KEY_Return})), 5);
    const auto right = GDK_KEY_Right, down = GDK_KEY_Down;
    EXPECT_EQ(promotion(keys({right, right, right, down, down, down, GDK_KEY_Return})), PieceKind::knight)
        << "the borders stop it";
    EXPECT_EQ(promotion(keys({GDK_KEY_Up, GDK_KEY_Up, GDK_KEY_Left, GDK_KEY_KP_Enter})), PieceKind::queen);
    EXPECT_EQ(promotion(keys({GDK_KEY_Return, GDK_KEY_Escape})), PieceKind::none) << "nothing is marked yet";
}

TEST_F(ChooserTest, TheTitleHasRoomOverNarrowCells) {
    Gtk::Window narrow;
    narrow.set_default_size(100, 100);
    ASSERT_TRUE(gui::show_and_wait(narrow));
    gui::Answer<Gtk::Dialog> answer([](Gtk::Dialog& dialog) {
        int width = 0, height = 0;
        dialog.create_pango_layout(dialog.get_title())->get_pixel_size(width, height);
        EXPECT_GT(dialog.get_allocated_width(), width + 100);
        dialog.close();
        return true;
    });
    const auto& images = board.drawing().pixbufs();
    PromoChoiceDialog(narrow, images[5], images[4], images[3], images[2]);
    EXPECT_TRUE(answer.given());
}

TEST_F(ChooserTest, SizesFollowTheParentAndImagesStandInTheirCells) {
    piece_choice([this](Gtk::Dialog& dialog) {
        auto& drawing = *gui::find_widget<ChoiceDraw>(dialog);
        EXPECT_EQ(drawing.get_width(), window.get_width() * 3 / 8);
        EXPECT_EQ(drawing.get_height(), window.get_width() / 2);
        const auto picture = gui::picture(drawing);
        const CellSize cell = drawing.cell();
        // The trunks of the two rooks, in the first column of the second and the fourth row.
        EXPECT_GT(gui::pixel_at(picture, cell.width / 2, cell.height * 8 / 5).blue, 200);
        EXPECT_LT(gui::pixel_at(picture, cell.width / 2, cell.height * 18 / 5).blue, 120);
        dialog.response(Gtk::RESPONSE_CANCEL);
        return true;
    });
}

}  // namespace
}  // namespace velmora
