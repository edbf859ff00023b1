#include "views/board/chess_board.h"

#include <stdexcept>

#include <gtkmm/dialog.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/views/board_fixture.h"

namespace velmora {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST_F(BoardTest, ReportsDragsAndClicks) {
    board.set_fen(start_fen);
    drag("e2", "e4");
    click("e5");
    click("b1");
    drag("a6", "b1");
    EXPECT_EQ(letter("b1"), 'N') << "nothing is dragged from an empty square";
    drag("e4", "d7");
    EXPECT_THAT(moves, ElementsAre("e2e4", "e5e5", "b1b1", "b1b1", "e4d7"));
    EXPECT_EQ(letter("d7"), 'P') << "the piece stays where it was dropped";
    EXPECT_EQ(letter("e2"), '?');
}

TEST_F(BoardTest, FlippedBoardSpeaksOfRealSquares) {
    board.set_fen(start_fen);
    board.flip();
    EXPECT_EQ(letter("a1"), 'r') << "Black's rook of h8 stands in the lower left corner";
    board.set_fen(start_fen);
    EXPECT_EQ(letter("a1"), 'r');
    EXPECT_EQ(letter("d1"), 'k');
    drag("a1", "a3");
    EXPECT_THAT(moves, ElementsAre("h8h6"));
    board.flip();
    EXPECT_EQ(board.get_move(), std::pair(Square("h8"), Square("h6")));
    EXPECT_FALSE(board.is_flipped());
    EXPECT_EQ(letter("h6"), 'r') << "the dropped piece turns with the board";
    taker().set_piece('Q', Square("c4"));
    EXPECT_EQ(letter("c4"), 'Q');
    board.flip();
    taker().clear_square(Square("c4"));
    EXPECT_EQ(letter("f5"), '?');
}

TEST_F(BoardTest, NothingIsReportedOrLostBesideTheBoard) {
    board.set_fen(start_fen);
    gui::drag(taker(), middle("e2"), {-40, 20});
    EXPECT_THAT(moves, ElementsAre("e2e2"));
    EXPECT_EQ(letter("e2"), 'P');
    for (const auto& [x, y] : {std::pair(-0.5, 20.0), {20.0, -0.5}, {560.0, 20.0}, {20.0, 560.0}}) {
        gui::click(taker(), {x, y});
    }
    EXPECT_EQ(moves.size(), 1U);
    gui::click(taker(), {0, 0});
    gui::click(taker(), {559.9, 559.9});
    EXPECT_THAT(moves, ElementsAre("e2e2", "a8a8", "h1h1"));
}

TEST_F(BoardTest, PressOnAPieceTellsItsSquare) {
    std::vector<std::optional<Square>> picked;
    board.signal_piece_picked().connect([&] { picked.push_back(board.picked_square()); });
    board.set_fen(start_fen);
    board.flip();
    gui::press_button(taker(), middle("d7"));
    EXPECT_THAT(picked, ElementsAre(testing::Optional(Square("e2"))));
    gui::release_button(taker(), middle("d5"));
    EXPECT_EQ(board.picked_square(), std::nullopt);
    click("e5");
    EXPECT_EQ(picked.size(), 1U);
}

TEST_F(BoardTest, DoubleClickAndOtherButtonsKeepThePiece) {
    board.set_fen(start_fen);
    gui::double_click(taker(), middle("e2"));
    gui::click(taker(), middle("e2"), 3);
    EXPECT_THAT(moves, ElementsAre("e2e2", "e2e2"));
    EXPECT_EQ(letter("e2"), 'P');
}

TEST_F(BoardTest, DialogInTheMiddleOfADragPutsThePieceBack) {
    board.set_fen(start_fen);
    gui::press_button(taker(), middle("e2"));
    gui::move_pointer(taker(), middle("e4"));
    Gtk::Dialog dialog("", window, true);
    gui::Answer<Gtk::Dialog> answer([](Gtk::Dialog& shown) {
        shown.response(Gtk::RESPONSE_OK);
        return true;
    });
    dialog.run();
    EXPECT_EQ(board.picked_square(), std::nullopt);
    EXPECT_EQ(letter("e2"), 'P');
    EXPECT_THAT(moves, IsEmpty());
}

TEST_F(BoardTest, BadFenLeavesThePosition) {
    board.set_fen(start_fen);
    EXPECT_THROW(board.set_fen("rnbqkbnr/ppppxppp b"), std::logic_error);
    EXPECT_EQ(letter("e2"), 'P');
    EXPECT_TRUE(board.white_to_move());
}

TEST_F(BoardTest, ArrowsGoWithAFlip) {
    board.set_arrow(Square(12), Square(28), ArrowColor::red);
    board.set_arrow(Square(12), Square(64), ArrowColor::red);
    ASSERT_EQ(board.arrows().size(), 1U);
    EXPECT_EQ(board.arrows()[0].angle, 0);
    board.flip();
    EXPECT_THAT(board.arrows(), IsEmpty());
    board.set_arrow(Square(12), Square(28), ArrowColor::blue);
    ASSERT_EQ(board.arrows().size(), 1U);
    EXPECT_DOUBLE_EQ(board.arrows()[0].angle, 3.14159265) << "up the board is down the screen now";
    board.clear_arrows();
    EXPECT_THAT(board.arrows(), IsEmpty());
}

/// The board alone, as it stands on the screen.
class Picture {
public:
    explicit Picture(ChessBoard& board, int scale = 1)
        : m_cell(board.drawing().cell()), m_scale(scale), m_surface(gui::picture(board.drawing(), scale)) {}

    /// The colour at a place of a shown square, in cells from its upper left corner.
    gui::Pixel at(std::int32_t square, double x, double y) const {
        const Place corner = corner_of(Square(square), m_cell);
        return gui::pixel_at(m_surface, int((corner.x + x * m_cell.width) * m_scale),
                             int((corner.y + y * m_cell.height) * m_scale));
    }
    const Cairo::RefPtr<Cairo::ImageSurface>& surface() const { return m_surface; }

private:
    CellSize m_cell;
    int m_scale;
    Cairo::RefPtr<Cairo::ImageSurface> m_surface;
};

constexpr int clearly = 40;  // a difference that is no matter of grain or smoothing

TEST_F(BoardTest, PiecesStandOnTheirSquaresAtEverySize) {
    for (const int size : {360, 563, 800, 1200}) {
        Gtk::Window frame;
        ChessBoard sized(size);
        frame.add(sized);
        ASSERT_TRUE(gui::show_and_wait(frame));
        sized.set_fen("8/8/8/8/8/8/8/R6k w");
        for (const int scale : {1, 2}) {
            const Picture picture(sized, scale);
            EXPECT_EQ(sized.drawing().pixbufs()[0]->get_width(), board_size(size) / 8 * scale)
                << "the device pixels of a cell decide the rendering";
            const auto rook = picture.at(0, 0.5, 0.6), king = picture.at(7, 0.5, 0.75);
            EXPECT_GT(rook.red + rook.green + rook.blue, 600) << size;
            EXPECT_LT(king.red, 120) << size;
            EXPECT_GT(gui::distance(rook, picture.at(18, 0.5, 0.6)), clearly)
                << "a dark square without a piece";
            EXPECT_GT(picture.at(28, 0.5, 0.5).red, picture.at(27, 0.5, 0.5).red + clearly) << "a1 is dark";
        }
    }
}

TEST_F(BoardTest, EveryArrowHasItsColour) {
    board.set_fen("8/8/8/8/8/8/8/8 w");
    board.set_arrow(Square(0), Square(40), ArrowColor::red);
    board.set_arrow(Square(2), Square(42), ArrowColor::green);
    board.set_arrow(Square(4), Square(44), ArrowColor::blue);
    const Picture picture(board);
    const auto red = picture.at(16, 0.5, 0.5), green = picture.at(18, 0.5, 0.5),
               blue = picture.at(20, 0.5, 0.5);
    EXPECT_TRUE(red.red > 200 && red.green < 80 && red.blue < 80);
    EXPECT_TRUE(green.green > 200 && green.red < 80 && green.blue < 80);
    EXPECT_TRUE(blue.blue > 200 && blue.red < 80 && blue.green < 80);
    EXPECT_LT(gui::distance(picture.at(17, 0.5, 0.5), picture.at(19, 0.5, 0.5)), clearly);
}

TEST_F(BoardTest, MarksTintTheSquareAroundItsPiece) {
    board.set_fen("8/8/8/8/8/8/8/R7 w");
    const Picture before(board);
    BoardMarks marks;
    marks.last_move = {Square(0), Square(24)};
    marks.selected = Square(2);
    marks.targets = {Square(40), Square(99)};
    marks.captures = {Square(27)};
    marks.checked_king = Square(63);
    board.set_marks(marks);
    const Picture after(board);
    EXPECT_GT(gui::distance(before.at(0, 0.05, 0.05), after.at(0, 0.05, 0.05)), 20);
    EXPECT_EQ(before.at(0, 0.5, 0.6), after.at(0, 0.5, 0.6)) << "the piece keeps its colour";
    EXPECT_GT(gui::distance(before.at(24, 0.5, 0.5), after.at(24, 0.5, 0.5)), 20);
    EXPECT_GT(gui::distance(before.at(2, 0.5, 0.5), after.at(2, 0.5, 0.5)), 20);
    EXPECT_GT(gui::distance(before.at(40, 0.5, 0.5), after.at(40, 0.5, 0.5)), clearly) << "a dot";
    EXPECT_EQ(before.at(40, 0.1, 0.1), after.at(40, 0.1, 0.1));
    EXPECT_GT(gui::distance(before.at(27, 0.5, 0.06), after.at(27, 0.5, 0.06)), clearly) << "a ring";
    EXPECT_EQ(before.at(27, 0.5, 0.5), after.at(27, 0.5, 0.5));
    EXPECT_GT(after.at(63, 0.5, 0.5).red, 200) << "a glow";
    board.flip();
    board.set_fen("8/8/8/8/8/8/8/R7 w");
    const Picture flipped(board);
    for (const int square : {0, 2, 24, 27, 40, 63}) {
        EXPECT_EQ(flipped.at(63 - square, 0.5, 0.06), after.at(square, 0.5, 0.06)) << square;
        EXPECT_EQ(flipped.at(63 - square, 0.5, 0.5), after.at(square, 0.5, 0.5)) << square;
    }
    board.set_marks({});
    EXPECT_EQ(Picture(board).at(63, 0.05, 0.05), before.at(0, 0.05, 0.05));
}

TEST_F(BoardTest, PieceInTheAirIsPaintedAtThePointer) {
    board.set_fen("8/8/8/8/8/8/8/R7 w");
    gui::press_button(taker(), middle("a1"));
    gui::move_pointer(taker(), middle("d4"));
    const Picture picture(board);
    EXPECT_GT(gui::distance(picture.at(27, 0.5, 0.6), picture.at(9, 0.5, 0.6)), clearly);
    EXPECT_LT(gui::distance(picture.at(0, 0.5, 0.6), picture.at(9, 0.5, 0.6)), clearly);
    gui::release_button(taker(), middle("d4"));
    EXPECT_EQ(gui::differing_pixels(picture.surface(), Picture(board).surface()), 0);
}

TEST_F(BoardTest, PartialRedrawsLeaveWhatAFullOneWould) {
    board.set_fen(start_fen);
    gui::pump_pending();
    gui::press_button(taker(), middle("e2"));
    for (const char* square : {"e3", "f4", "g5", "h6", "e4"}) {
        gui::move_pointer(taker(), middle(square));
        gui::pump_pending();
    }
    BoardMarks marks;
    marks.targets = {Square(16), Square(17)};
    marks.captures = {Square(18)};
    board.set_marks(marks);
    gui::pump_pending();
    marks = {.last_move = std::pair(Square(12), Square(28)),
             .selected = Square(2),
             .targets = {Square(17), Square(18)},
             .captures = {Square(19)},
             .checked_king = Square(60)};
    board.set_marks(marks);
    board.set_fen("rnbqkbnr/pppp1ppp/8/4p3/4P3/8/PPPP1PPP/RNBQKBNR w");
    gui::release_button(taker(), middle("e4"));
    gui::pump_pending();
    const Glib::RefPtr<Gdk::Window> shown = window.get_window();
    const auto screen = Gdk::Pixbuf::create(shown, 0, 0, shown->get_width(), shown->get_height());
    int left = 0, top = 0;
    board.drawing().translate_coordinates(window, 0, 0, left, top);
    const Picture memory(board);
    int differences = 0;
    for (int y = 0; y < 560; ++y) {
        for (int x = 0; x < 560; ++x) {
            const guint8* p = screen->get_pixels() + (y + top) * screen->get_rowstride() +
                              (x + left) * screen->get_n_channels();
            differences +=
                gui::distance({p[0], p[1], p[2]}, gui::pixel_at(memory.surface(), x, y)) > 1 ? 1 : 0;
        }
    }
    EXPECT_EQ(differences, 0);
}

TEST_F(BoardTest, BoardFillsAGrowingWindowWithWholeCells) {
    window.resize(1103, 920);
    ASSERT_TRUE(gui::pump_until([&] { return board.drawing().get_width() > 800; }));
    gui::pump_pending();
    EXPECT_EQ(board.drawing().get_width(), board.drawing().get_height());
    EXPECT_EQ(board.drawing().get_width() % 8, 0);
    EXPECT_EQ(board.drawing().cell().width, board.drawing().get_width() / 8);
    EXPECT_TRUE(gui::pump_until([&] {
        return board.drawing().pixbufs()[3]->get_width() == board.drawing().cell().width;
    })) << "rendered for the new size once it has settled";
    board.set_fen(start_fen);
    drag("e2", "e4");
    EXPECT_THAT(moves, ElementsAre("e2e4"));
}

TEST_F(BoardTest, MissingImagesAreReportedOnceAndLettersShown) {
    const auto nowhere = std::filesystem::path(::testing::TempDir()) / "velmora_no_images";
    std::filesystem::create_directories(nowhere);
    std::filesystem::current_path(nowhere);
    if (std::filesystem::exists("/usr/games/velmora.files") ||
        std::filesystem::exists("/usr/local/games/velmora.files")) {
        GTEST_SKIP() << "the images are installed on this machine";
    }
    testing::internal::CaptureStderr();
    for (const int scale : {2, 3}) {
        board.set_fen("8/8/8/8/8/8/8/Q6q w");
        const Picture picture(board, scale);
        EXPECT_GT(gui::distance(picture.at(27, 0.5, 0.5), picture.at(28, 0.5, 0.5)), clearly);
        const auto bare = picture.at(27, 0.5, 0.5);
        EXPECT_EQ(bare, picture.at(27, 0.2, 0.9)) << "plain";
        const auto differs = [&](int square) {
            int count = 0;
            for (int i = 1; i < 20; ++i) {
                count += gui::distance(picture.at(square, i / 20.0, 0.5), picture.at(square, 0.01, 0.01)) >
                         clearly;
            }
            return count;
        };
        EXPECT_GT(differs(0), 3) << "a letter";
        EXPECT_GT(differs(7), 3);
        gui::pump_pending();
    }
    const std::string report = testing::internal::GetCapturedStderr();
    EXPECT_NE(report.find("WhiteQueen.svg"), std::string::npos);
    EXPECT_EQ(report.find("WhiteQueen.svg"), report.rfind("WhiteQueen.svg"));
}

}  // namespace
}  // namespace velmora
