// What a person may do with a game beside moving: what the referee is told, and what its answers bring about.

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "base/text.h"
#include "game/game_result.h"
#include "tests/support/scratch_directory.h"
#include "tests/window/headless_window.h"
#include "window/table/captured_pieces.h"

namespace velmora {
namespace {

using Lines = std::vector<std::string>;

constexpr const char* start = "rnbqkbnr/pppppppp/8/8/8/8/PPPPPPPP/RNBQKBNR w KQkq - 0 1";

/// A window with an engine in a directory of its own, where the archive goes.
struct Playing : test::HeadlessWindow {
    explicit Playing(Mode mode) : HeadlessWindow(Mode::human_human) {
        std::filesystem::current_path(home.path(""));
        seat = Protocol::uci;
        say("engine1name Alpha");
        screen.select_mode(mode);
        referee.take();
    }
    ~Playing() { std::filesystem::current_path(before); }

    void say(const std::string& line) {
        link.receive(line, 1'000'000);
        dispatcher.process(line);
    }
    void move(const std::string& text) { moves.on_typed(text); }
    Lines told() {
        Lines lines = referee.take();
        for (auto& line : lines) line = line.substr(line.find(' ') + 1);
        return lines;
    }
    /// The names of the entries that are sensitive.
    Lines possible() {
        table.tick();
        Lines names;
        for (const char* name : {"ClaimDraw", "MoveNow", "NoteResult", "OfferDraw", "Resign", "TakeBack"}) {
            if (screen.sensitive[name]) names.emplace_back(name);
        }
        return names;
    }

    const ScratchDirectory home;
    const std::filesystem::path before = std::filesystem::current_path();
};

std::string archive() {
    std::ifstream file(std::string(default_event) + ".pgn");
    return {std::istreambuf_iterator<char>(file), {}};
}

std::size_t count(const std::string& text, const std::string& part) {
    std::size_t found = 0;
    for (auto at = text.find(part); at != std::string::npos; at = text.find(part, at + 1)) ++found;
    return found;
}

TEST(Table, AgainstAnEngineTheRefereeDecides) {
    Playing window(Mode::human_computer);
    EXPECT_EQ(window.possible(), Lines());
    window.move("e4");
    EXPECT_EQ(window.possible(), Lines({"MoveNow", "OfferDraw", "Resign", "TakeBack"}));
    window.told();
    window.table.move_now();
    window.say("move e7e5");
    EXPECT_EQ(window.possible(), Lines({"OfferDraw", "Resign", "TakeBack"}));
    window.table.move_now();
    window.table.offer_draw();
    window.say("draw_declined black");
    EXPECT_EQ(window.table.notice().text(), "The draw was declined.");
    window.say("blackname Alpha");
    window.say("draw_offered black");
    EXPECT_EQ(window.table.notice().text(), "Alpha offers a draw.");
    window.table.notice().accept();
    window.table.resign();
    EXPECT_EQ(window.told(), Lines({"move_now", "offer_draw", "offer_draw", "resign"}));
    window.say("termination normal");
    window.say("0-1 {white resigns}");
    EXPECT_EQ(window.possible(), Lines());
    const std::string archived = archive();
    EXPECT_EQ(count(archived, "[Termination \"normal\"]") + count(archived, "[Result \"0-1\"]"), 2U);
    EXPECT_NE(archived.find("{white resigns}"), std::string::npos) << archived;
}

TEST(Table, WhatIsTakenBackStaysAsAVariationAndTheClocksReturn) {
    Playing window(Mode::human_computer);
    window.screen.clocks = {{3000, 0}, {3000, 0}};
    window.move("e4");
    window.screen.clocks = {{2900, 1}, {2800, 1}};
    window.say("move e7e5");
    window.say("btime 27510");
    window.screen.clocks = {{1000, 1}, {2751, 1}};
    window.move("Nf3");
    window.told();
    window.table.take_back();
    EXPECT_EQ(window.told(), Lines({"take_back"}));
    window.move("Nc6");  // nothing is played until the referee has answered
    window.screen.calls.clear();
    window.say("taken_back 1");
    EXPECT_EQ(window.screen.clocks[Side::white].centiseconds, 2900);
    EXPECT_EQ(window.told(), Lines({"clock 27510 1"}));
    EXPECT_EQ(std::ranges::count(window.screen.calls, "restore clocks white"), 1);
    window.move("Nc3");
    window.say("move b8c6");
    EXPECT_NE(window.session.pgn().find("1.e4 e5 2.Nc3 ( 2.Nf3) Nc6"), std::string::npos)
        << window.session.pgn();
    // That another line leads is no change of the person's that could be undone.
    EXPECT_FALSE(window.session.record().can_undo_edit());
    window.told();
    window.table.take_back();
    EXPECT_EQ(window.told(),
              Lines({std::string("setgame ") + start + " moves e2e4 e7e5 b1c3 b8c6", "take_back"}));
    window.say("taken_back 2");
    EXPECT_EQ(window.session.last_move_text(), "Black: e5");
    EXPECT_EQ(window.possible(), Lines({"OfferDraw", "Resign", "TakeBack"}));
}

TEST(Table, TwoPeopleEndTheirGameThemselves) {
    Playing window(Mode::human_human);
    for (const char* move : {"f3", "e5"}) window.move(move);
    EXPECT_EQ(window.possible(), Lines({"NoteResult", "OfferDraw", "Resign", "TakeBack"}));
    window.told();
    window.table.offer_draw();
    EXPECT_EQ(window.table.notice().text(), "White offers a draw.");
    window.move("g4");
    EXPECT_TRUE(window.table.notice().can_accept()) << "it stands until Black has moved";
    window.move("Qh4");
    EXPECT_EQ(window.table.notice().text(), "Black mates. Game / Result... puts the game into the archive.");
    EXPECT_EQ(archive(), "");
    window.told();
    window.table.note_result();
    window.table.note_result();  // the answer is on its way
    EXPECT_EQ(window.told(), Lines({"result 0-1 normal {Black mates}"}));
    window.say("termination normal");
    window.say("0-1 {Black mates}");
    EXPECT_EQ(count(archive(), "[Result \"0-1\"]"), 1U);
    window.table.resign();
    EXPECT_EQ(window.told(), Lines());

    window.modes.new_game();
    window.screen.select_mode(Mode::human_human);
    for (const char* move : {"Nf3", "Nf6", "Ng1", "Ng8", "Nf3", "Nf6", "Ng1"}) window.move(move);
    window.told();
    window.table.claim_draw();
    window.move("Ng8");
    window.told();
    window.table.claim_draw();
    EXPECT_EQ(window.told(), Lines({"result 1/2-1/2 normal {Draw by threefold repetition}"}));
}

TEST(Table, AFlagFallsOnceWhereSomebodyPlaysForTime) {
    Playing window(Mode::human_computer);
    window.session.set_level(Level("sudden_death 0 5 0"));
    window.move("e4");
    window.say("move e7e5");
    window.screen.clocks = {{0, 1}, {2751, 1}};
    window.told();
    window.table.tick();
    window.table.set_lose_on_time(true);
    window.table.tick();
    window.table.tick();
    EXPECT_EQ(window.told(), Lines({"lose_on_time on", "flag"}));
}

TEST(Premove, IsPlayedWhereItIsLegalThen) {
    const Square e2(12), e4(28), d1(3), f3(21), h5(39), a3(16);
    Playing window(Mode::human_computer);
    window.moves.on_board(e2, e4);
    // By a drag, taken away by a click; then by two clicks, the later one counting.
    window.moves.on_board(d1, h5);
    window.moves.on_board(a3, a3);
    window.moves.on_board(d1, d1);
    window.moves.on_board(h5, h5);
    window.premove.tick();
    Lines arrows;
    for (const auto& call : window.screen.calls) {
        if (call.find("arrow") != std::string::npos) arrows.push_back(call);
    }
    EXPECT_EQ(arrows, Lines({"arrow d1 h5 2", "clear arrows", "arrow d1 h5 2"}));
    window.told();
    window.say("move e7e5");
    window.premove.tick();
    EXPECT_EQ(window.told(), Lines({"usermove d1h5"}));
    // Illegal by then; and gone with what is taken back.
    window.moves.on_board(h5, h5);
    window.moves.on_board(h5, e2);
    window.say("move g7g6");
    window.moves.on_board(e4, f3);
    window.premove.tick();
    EXPECT_EQ(window.told(), Lines({"usermove h5e2"}));
    window.moves.on_board(e2, d1);
    window.table.take_back();
    window.told();
    window.say("taken_back 1");
    window.premove.tick();
    EXPECT_EQ(window.session.last_move_text(), "Black: g6");
}

TEST(CapturedPieces, AreThoseThatAreGoneSinceTheStart) {
    const struct {
        const char *fen, *moves, *text, *words;
    } rows[] = {{"rnbqkbnr/pppppppp/8/8/8/8/PPPPPPPP/RNBQKBNR w KQkq - 0 1", "", "", ""},
                {"rnbqkbnr/pppppppp/8/8/8/8/PPPPPPPP/RNBQKBNR w KQkq - 0 1", "e2e4 d7d5 e4d5 d8d5",
                 "White ♟   Black ♙", "White has taken 1 pawn. Black has taken 1 pawn. Nobody is ahead."},
                {"1n2k3/P6p/8/8/8/8/8/4K3 w - - 0 1", "a7b8q", "White ♞ +8",
                 "White has taken 1 knight. White is 8 ahead."}};
    for (const auto& row : rows) {
        ChessPosition position;
        position.set_fen(row.fen);
        for (const auto word : text::words(row.moves)) play_if_legal(position, parse_move(position, word));
        EXPECT_EQ(CapturedPieces(position).text(), row.text);
        EXPECT_EQ(CapturedPieces(position).words(), row.words);
    }
}

TEST(EarlierGames, AGameThatIsLeftIsTakenUpAsItStood) {
    Playing window(Mode::human_computer);
    window.session.set_level(Level("sudden_death 0 7 0"));
    window.move("e4");
    window.say("whitename Human");
    window.say("blackname Alpha");
    window.say("move e7e5");
    window.move("Nf3");
    window.say("move b8c6");
    window.table.take_back();
    window.say("taken_back 2");
    window.move("d4");
    window.screen.clocks = {{2900, 2}, {2751, 2}};
    window.keeper.tick();
    const auto place = window.session.last_move_text();
    // Nothing is done at its end: what was written with the move stands there when the program is killed.
    window.modes.new_game();
    window.keeper.tick();
    window.session.set_level(Level("sudden_death 0 5 0"));
    window.told();
    window.screen.earlier_game = 0;
    window.keeper.choose();
    ASSERT_EQ(window.screen.earlier_games.size(), 1U);
    EXPECT_EQ(window.screen.earlier_games[0].moves, 3U);
    EXPECT_EQ(window.screen.earlier_games[0].players, "Human - Alpha");
    EXPECT_NE(window.session.pgn().find("1.e4 e5 2.d4 ( 2.Nf3 Nc6) *"), std::string::npos);
    EXPECT_EQ(window.session.last_move_text(), place);
    EXPECT_EQ(window.session.level().text(), Level("sudden_death 0 7 0").text());
    EXPECT_EQ(window.screen.clocks[Side::black].centiseconds, 2751);
    const Lines told = window.told();
    EXPECT_EQ(Lines(told.end() - 3, told.end()),
              Lines({std::string("setgame ") + start + " moves e2e4 e7e5 d2d4", "clock 27510 2", "go"}));

    // It is the one that is kept now; where it comes into the archive, it is kept no more.
    window.keeper.tick();
    window.keeper.choose();
    EXPECT_EQ(window.screen.calls.back(),
              "tell There are no earlier games|Games that are left and stand in no file are kept here.");
    window.say("1-0 {black resigns}");
    window.keeper.tick();
    window.modes.new_game();
    window.keeper.tick();
    EXPECT_TRUE(EarlierGames("earlier_games/").list().empty());
}

TEST(EarlierGames, TheLastHundredAreKept) {
    const ScratchDirectory home;
    const std::string directory = home.path("games/");
    EarlierGames games(directory);
    for (std::size_t game = 0; game < EarlierGames::most_kept + 2; ++game) {
        games.begin();
        LeftGame left;
        left.players = std::to_string(game);
        EXPECT_FALSE(games.keep("[White \"?\"]\n\n1.e4 *\n", left));
    }
    const auto kept = EarlierGames(directory).list();
    EXPECT_EQ(kept.size(), EarlierGames::most_kept);
    EXPECT_EQ(kept.front().players + " " + kept.back().players, "101 2");
    EXPECT_EQ(games.list().size(), kept.size() - 1) << "the one that is being kept isn't offered";
}

}  // namespace
}  // namespace velmora
