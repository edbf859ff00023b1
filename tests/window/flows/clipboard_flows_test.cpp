#include "window/flows/clipboard_flows.h"

#include "tests/window/flows/flows_test.h"

namespace velmora {
namespace {

struct FakeClipboard : Clipboard {
    std::string text;
    void put(const std::string& copied) override { text = copied; }
    void ask(std::function<void(const std::string&)> take) override { take(text); }
};

class ClipboardFlowsTest : public FlowsTest {
protected:
    /// Pastes, and gives what is said of it.
    std::string paste(const std::string& text) {
        said.clear();
        clipboard.text = text;
        flows.paste();
        return said;
    }
    std::string main_line() {
        navigation.to_end();
        return session.position().moves_text();
    }

    std::string said;
    FakeClipboard clipboard;
    FileFlows files{session, screen, screen, dialogs, link, modes};
    ClipboardFlows flows{session, screen,    dialogs,
                         files,   clipboard, [this](const std::string& text) { said = text; }};
};

TEST_F(ClipboardFlowsTest, PastesWhateverHoldsAGameOrAPosition) {
    EXPECT_EQ(paste("1. e4 e5 2. Nf3"), "");
    EXPECT_EQ(main_line(), "e2e4 e7e5 g1f3");
    flows.copy_position();
    EXPECT_EQ(clipboard.text, "rnbqkbnr/pppp1ppp/8/4p3/4P3/5N2/PPPP1PPP/RNBQKB1R b KQkq - 1 2");
    EXPECT_EQ(paste("7k/8/6K1/8/8/8/8/5Q2 w - - bm Qf8; id \"x\";"), "");
    EXPECT_EQ(session.position().fen(), "7k/8/6K1/8/8/8/8/5Q2 w - - 0 1");
    EXPECT_EQ(paste("[White \"A [b]\"]\n\n1. d4 0-1"), "");
    EXPECT_EQ(session.record().tag("White"), "A [b]");
    flows.copy_game();
    EXPECT_NE(clipboard.text.find("1.d4"), std::string::npos);

    // What comes after a move that isn't legal is said with its place.
    EXPECT_NE(paste("1. e4 e5 2. Ke4").find("2."), std::string::npos) << said;
    EXPECT_EQ(main_line(), "e2e4 e7e5");
    EXPECT_EQ(paste("no chess at all").find("Nothing was pasted: "), 0U) << said;
    EXPECT_EQ(main_line(), "e2e4 e7e5");
    // Of several games one is chosen.
    dialogs.game = 0;
    EXPECT_EQ(paste("[White \"A\"]\n\n1. c4 *\n\n[White \"B\"]\n\n1. b4 *\n"), "");
    EXPECT_EQ(main_line(), "c2c4");
    screen.select_mode(Mode::tournament);
    EXPECT_EQ(paste("1. e4"), "A match is being played: leave it to paste.");
    EXPECT_EQ(session.record().tag("White"), "A");
}

TEST_F(ClipboardFlowsTest, TagsAreSafeWhateverIsTyped) {
    paste(R"([Event "X"]
[SetUp "1"]
[FEN "7k/8/6K1/8/8/8/8/5Q2 w - - 0 1"]

1. Qf8# 1-0)");
    dialogs.tags = TagList{
        {"White", "A \"B\" [c\\"}, {"Result", "1/2-1/2"}, {"My tag]", "x\ny"}, {"!", "z"}, {"FEN", "other"}};
    flows.edit_tags();
    EXPECT_EQ(dialogs.shown_tags.front().second, "X");
    flows.copy_game();
    Game game;
    game.parse_pgn(clipboard.text);
    EXPECT_EQ(game.tag("White"), "A 'B' [c/");
    EXPECT_EQ(game.tag("Mytag"), "x y");
    EXPECT_EQ(game.tag("FEN"), "7k/8/6K1/8/8/8/8/5Q2 w - - 0 1");
    EXPECT_NE(clipboard.text.find("1/2-1/2\n\n"), std::string::npos) << clipboard.text;
    dialogs.tags = TagList{{"Result", "*"}};
    flows.edit_tags();
    EXPECT_EQ(session.record().result(), "*");
    EXPECT_EQ(session.text_to_save().find("1/2"), std::string::npos);
}

}  // namespace
}  // namespace velmora
