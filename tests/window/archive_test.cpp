// What the program writes into its archive is read back whole, whatever engines and people said meanwhile.

#include <cstdlib>
#include <filesystem>
#include <random>

#include <gtest/gtest.h>

#include "chess/moves/legal_moves.h"
#include "game/pgn_file.h"
#include "tests/support/scratch_directory.h"
#include "tests/window/headless_window.h"
#include "window/session/game_archive.h"

namespace velmora {
namespace {

/// The nodes in printing order: move, comment and result. White space within comments counts as one blank,
/// and none ahead of an annotation: files are wrapped there.
void describe(const GameTree& tree, std::int32_t id, std::string& text) {
    const auto& node = tree.node(id);
    std::string comment;
    for (const char c : node.comment) {
        const bool blank = c == ' ' || c == '\n' || c == '\t';
        if (!blank || (!comment.empty() && comment.back() != ' ')) comment += blank ? ' ' : c;
        if (comment.ends_with(" [%")) comment.erase(comment.size() - 3, 1);
    }
    text += node.san + "{" + std::string(text::trim_blanks(comment)) + "}(";
    for (const auto child : node.children) describe(tree, child, text);
    text += ')';
}

std::string contents(const Game& game) {
    std::string text;
    for (const auto& name : game.tags().order()) text += name + "=" + game.tag(name) + "\n";
    describe(game.tree(), 0, text);
    return text;
}

/// Words of engines and people, well-formed or not.
class RandomTexts {
public:
    explicit RandomTexts(std::uint32_t seed) : m_random(seed) {}

    std::size_t below(std::size_t bound) { return m_random() % bound; }

    /// At most `length` pieces without line ends, as the lines of the channel are.
    std::string words(std::size_t length) {
        static const std::vector<std::string> pieces = {
            " ",    " ",    "a",     "Velmora",   "}",        "{",
            "[",    "]",    "\"",    "\\",        "\xC3\xA9", "\xE2\x99\x94",
            "\xE9", "\x80", "%",     ";",         "(",        ")",
            "*",    "1-0 ", "0-1",   "1/2-1/2",   "\t",       "\x01",
            "\x7f", "12.",  "[%",    "[Event ",   "<",        ">",
            "$1",   "\r",   "mate ", "score cp ", "}1-0{",    "\xF0\x9F\x99\x82"};
        std::string text;
        for (auto count = below(length + 1); count > 0; --count) text += pieces[below(pieces.size())];
        return text;
    }

    /// One line of search output; most have no score.
    std::string search_line() {
        const auto number = [this] { return std::to_string(m_random()); };
        std::string line = " depth " + (below(8) == 0 ? words(60) : std::to_string(below(60)));
        if (below(12) == 0) line += below(2) == 0 ? " score cp -" + number() : " score mate " + number();
        if (below(40) == 0) line += " score lowerbound 3";
        if (below(3) == 0) line += " time " + number();
        if (below(2) == 0) line += " nodes " + number() + " nps " + number();
        if (below(8) == 0) line += " " + words(20);
        return line;
    }

private:
    std::mt19937 m_random;
};

/// A window's record and archive in a directory of their own.
class ArchiveTest : public testing::Test {
protected:
    ArchiveTest() { std::filesystem::current_path(home.path("")); }
    ~ArchiveTest() override { std::filesystem::current_path(m_before); }

    void say(const std::string& line) { window.dispatcher.process(line); }

    /// Plays a match game as random as the texts.
    void play(RandomTexts& texts) {
        say("new");
        say("whitename " + texts.words(120));
        say("blackname " + texts.words(120));
        say("event " + texts.words(150));
        say("site " + texts.words(20));
        say("round " + texts.words(40));
        say("WhiteElo " + texts.words(90));
        for (auto plies = 1 + texts.below(12); plies > 0; --plies) {
            const auto moves = legal_moves(window.session.position());
            if (moves.empty()) break;
            const std::string info =
                window.session.side_to_move() == Side::white ? "white_info" : "black_info";
            const std::size_t lines = texts.below(6) == 0 ? 200 : texts.below(8);
            for (auto count = lines; count > 0; --count) say(info + texts.search_line());
            if (texts.below(6) == 0)
                window.screen.comment += texts.words(texts.below(5) == 0 ? 400 : 10) + "\n%";
            say("move " + moves[texts.below(moves.size())].to_string(false));
            if (texts.below(4) == 0) say("emt " + texts.words(90));
        }
        const std::string result = texts.below(2) == 0 ? "1-0" : "1/2-1/2";
        say(texts.below(4) == 0 ? result : result + " {illegal move: " + texts.words(400) + "}");
    }

    const ScratchDirectory home;
    const std::filesystem::path m_before = std::filesystem::current_path();
    const std::string archive = std::string(default_event) + ".pgn";

    test::HeadlessWindow window{Mode::tournament};
};

TEST_F(ArchiveTest, WhatIsWrittenIsReadBackWhole) {
    // For longer: VELMORA_ARCHIVE_GAMES=1000000
    const char* const wanted = std::getenv("VELMORA_ARCHIVE_GAMES");
    const int games = wanted != nullptr ? std::atoi(wanted) : 300;
    constexpr int games_a_file = 10;
    for (int first = 0; first < games; first += games_a_file) {
        std::filesystem::remove(archive);
        std::vector<std::string> written;
        for (int seed = first; seed < first + games_a_file; ++seed) {
            RandomTexts texts(static_cast<std::uint32_t>(seed));
            play(texts);
            // The comment of the ending comes back as part of the last move's.
            Game game = window.session.record();
            const auto ending = game.tree().node(game.current()).result;
            const auto close = ending.rfind('}');
            if (close != std::string::npos) game.append_comment(" " + ending.substr(1, close - 1));
            written.push_back(contents(game));
        }
        PgnFile file;
        ASSERT_TRUE(file.open(archive));
        for (const auto& game : written) {
            Game read;
            read.parse_pgn(file.read_game());
            ASSERT_EQ(contents(read), game) << "seeds from " << first;
        }
        ASSERT_EQ(file.read_game(), "");
    }
}

TEST_F(ArchiveTest, TheNextGameIsWholeWhereverTheTailWasTorn) {
    const std::string torn_game =
        "[Event \"a ]b(\\\"c\"]\n[Site \"\xC3\xA9\"]\n[Result \"1/2-1/2\"]\n\n"
        "{root (1-0) \"} \n1.e4 {[%eval 0.3][%acn 5]} e5 $1 ( 1... c5 {(\xC3\xA9 [x] \"} 2.Nf3 ( 2.c3\n "
        "d5))\n"
        "2.Nf3 Nc6 {Draw} 1/2-1/2\n\n";
    Game game;
    for (int ply = 0; ply < 6; ++ply) game.add_move(legal_moves(game)[0]);
    const auto first = game.pgn();
    game.set_tag("Black", "an opponent");
    const auto next = game.pgn();
    for (std::size_t size = 0; size <= torn_game.size(); ++size) {
        const auto old = first + torn_game.substr(0, size);
        home.write(archive, old);
        ASSERT_FALSE(GameArchive(archive).append(next));
        const auto text = home.content(archive);
        ASSERT_TRUE(text.starts_with(old) && text.ends_with(next));
        const bool is_whole = size == 0 || size + 1 >= torn_game.size();
        EXPECT_EQ(text.size() == old.size() + next.size(), is_whole) << old;

        PgnFile file;
        file.open(archive);
        const auto is_next = [&](const std::string& expected) {
            Game read;
            read.parse_pgn(file.read_game());
            return read.pgn() == expected;
        };
        EXPECT_TRUE(is_next(first)) << old;
        if (size > 0) {
            Game torn;
            torn.parse_pgn(file.read_game());
            EXPECT_EQ(torn.tag("Black"), "?") << "two games have become one: " << text;
            const bool has_moves = old.find("1.e4 ") != std::string::npos;
            EXPECT_EQ(has_moves && !torn.forward().empty(), has_moves) << text;
        }
        EXPECT_TRUE(is_next(next)) << text;
        EXPECT_EQ(file.read_game(), "");
    }
}

}  // namespace
}  // namespace velmora
