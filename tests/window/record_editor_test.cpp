// The person changes the tree of the record: what the game is then, and what the screen is told.

#include "window/session/record_editor.h"

#include <gtest/gtest.h>

#include "tests/window/headless_window.h"

namespace velmora {
namespace {

class RecordEditorTest : public testing::Test, protected test::HeadlessWindow {
protected:
    RecordEditorTest() : HeadlessWindow(Mode::human_human) {
        Game game;
        game.parse_pgn("1. e4 e5 (1... c5 2. Nf3 (2. c3)) 2. Nf3 1-0");
        session.load(std::move(game));
        session.on_change([this](Changes changes) {
            told += changes.has(Change::position) ? 'P' : changes.has(Change::record) ? 'r' : '.';
        });
    }
    std::int32_t node_of(std::string_view san) const {
        const auto& tree = session.record().tree();
        for (std::int32_t id = 0; id < tree.end_id(); ++id) {
            if (tree.has_node(id) && tree.node(id).san == san) return id;
        }
        return -1;
    }
    void go_to(std::string_view san) {
        session.step([id = node_of(san)](Game& game) { return game.go_to(id); });
        told.clear();
    }

    std::string told;  // a letter a notice
    RecordEditor editor{session};
};

TEST_F(RecordEditorTest, OneNoticeForEachChangeAndNoneForNothing) {
    go_to("c3");
    const std::string fen = session.position().fen();
    EXPECT_TRUE(editor.promote(node_of("c3")));
    EXPECT_TRUE(editor.make_main_line(node_of("c3")));
    EXPECT_FALSE(editor.make_main_line(node_of("c3")));
    EXPECT_TRUE(editor.set_symbol(node_of("c3"), "$1"));
    EXPECT_EQ(told, "rrr");
    EXPECT_EQ(session.position().fen(), fen);

    told.clear();
    screen.comment = "typed and not yet stored";
    EXPECT_TRUE(editor.delete_from(node_of("c3")));
    EXPECT_EQ(session.last_move_text(), "Black: c5") << "the board comes to what is left";
    EXPECT_TRUE(editor.delete_variation(node_of("e5")));
    EXPECT_TRUE(editor.undo());
    EXPECT_TRUE(editor.undo());
    EXPECT_TRUE(editor.undo()) << "the promotion to the main line";
    EXPECT_EQ(told, "PrrPr");
    EXPECT_EQ(session.position().fen(), fen);
    EXPECT_EQ(session.record().comment(), "typed and not yet stored");
    EXPECT_EQ(screen.comment, session.record().comment());

    session.new_game();
    EXPECT_FALSE(editor.undo()) << "the game was left";
}

TEST_F(RecordEditorTest, TheResultIsNoStepAwayFromItsMove) {
    go_to("Nf3");
    session.end_game({GameResult::white_wins, "White mates"});
    told.clear();
    EXPECT_TRUE(editor.promote(node_of("c5")));
    EXPECT_EQ(told, "r");
}

TEST_F(RecordEditorTest, ALineOfAnEngineBecomesAVariation) {
    go_to("e5");
    const std::string fen = session.position().fen();
    const auto& board = session.position();
    const std::vector<Move> line = {board.convert_to_move("f1c4"), board.convert_to_move("g8f6")};
    const auto node = session.record().current();
    const auto reached = editor.add_line(node, line).value();
    EXPECT_EQ(editor.add_line(node, line), reached);
    EXPECT_EQ(session.record().tree().node(reached).san, "Nf6");
    EXPECT_EQ(session.position().fen(), fen);
    EXPECT_EQ(told.substr(0, 1), "r");
}

}  // namespace
}  // namespace velmora
