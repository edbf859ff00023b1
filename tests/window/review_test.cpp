#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "tests/window/headless_window.h"

namespace velmora {
namespace {

using Lines = std::vector<std::string>;

/// A window with an engine, between a referee whose lines are given and a screen that is asked.
struct Reviewing : test::HeadlessWindow {
    explicit Reviewing(const std::string& text) : HeadlessWindow(Mode::human_human) {
        seat = Protocol::uci;
        say("engine1name Searcher 2");
        load(text);
    }

    void load(const std::string& text) {
        Game game;
        game.parse_pgn("[Event \"?\"]\n[Result \"*\"]\n\n" + text + " *\n");
        session.load(std::move(game));
    }

    void say(const std::string& line) {
        link.receive(line, 1'000'000);
        dispatcher.process(line);
    }

    /// The commands about reviews since the last call.
    Lines asked() {
        Lines lines;
        for (const std::string& line : referee.take()) {
            const auto begin = line.find("review");
            if (begin != std::string::npos) lines.push_back(line.substr(begin, line.find('\n') - begin));
        }
        return lines;
    }

    const MoveSectionElement& node(std::int32_t id) const { return session.record().tree().node(id); }
};

constexpr const char* start = "rnbqkbnr/pppppppp/8/8/8/8/PPPPPPPP/RNBQKBNR w KQkq - 0 1";

TEST(Review, BringsWhatTheEngineFindsIntoTheRecord) {
    Reviewing window("1.f3 e5 2.g4");
    window.review.run().begin();
    EXPECT_EQ(window.asked(),
              Lines{std::string("review 1 fixed_movetime 500 3,2,1 ") + start + " moves f2f3 e7e5 g2g4"});
    EXPECT_TRUE(window.review.awaits_engine());
    EXPECT_EQ(window.review.run().progress(), (ReviewProgress{0, 3, 1.5}));
    window.say("reviewed 1 3 d8h4 depth 9 score mate 1 pv d8h4");
    // The person looks elsewhere and writes meanwhile, in a place that is about to be judged, too.
    window.navigation.to_node(2);
    window.screen.comment = "a plan";
    window.say("reviewed 1 2 d2d4 depth 8 score cp -50 pv d2d4 e5d4");
    EXPECT_EQ(window.session.record().current(), 2);
    EXPECT_EQ(window.screen.comment, "[%eval -0.5][%depth 8]a plan");
    EXPECT_EQ(window.node(3).nag, "$4");
    EXPECT_EQ(window.node(3).comment, "[%eval #-1][%depth 9]");
    window.say("review_left_out 1 1");
    EXPECT_EQ(window.review.run().progress(), (ReviewProgress{3, 3, 0.0}));
    window.say("review_finished 1 done");
    EXPECT_EQ(window.review.run().left_out(), Lines{"1. f3"});
    EXPECT_FALSE(window.review.run().progress());
    EXPECT_FALSE(window.review.awaits_engine());
    const auto summary = find_review_summary(window.node(0).comment);
    ASSERT_TRUE(summary);
    EXPECT_EQ(summary->by, "Searcher 2, 0.5 s a move");
    EXPECT_EQ(summary->of[Side::white]->blunders, 1);

    // What is known isn't asked for again.
    window.review.run().begin();
    ASSERT_EQ(window.asked().size(), 1U);
    window.review.run().cancel();
    EXPECT_EQ(window.asked(), Lines{"review_stop"});
}

TEST(Review, LeavesAGameAloneThatIsNotTheOneUnderReview) {
    Reviewing window("1.f3 e5 2.g4");
    window.review.run().begin();
    window.asked();
    window.load("1.f3 e5 2.g4 Qh4#");
    EXPECT_EQ(window.asked(), Lines{"review_stop"});
    window.say("reviewed 1 3 d8h4 depth 9 score mate 1 pv d8h4");
    window.say("review_finished 1 stopped");
    EXPECT_EQ(window.node(3).comment + window.node(0).comment, "");

    // The same where its moves change under it; a move that is added changes nothing of it.
    window.review.run().begin();
    window.navigation.to_node(3);
    window.session.play(window.session.position().convert_to_move("d7d5"));
    EXPECT_TRUE(window.review.run().progress());
    window.asked();
    window.session.edit([](Game& game) { return game.delete_from(3); });
    EXPECT_EQ(window.asked(), Lines{"review_stop"});
    EXPECT_FALSE(window.review.run().progress());
}

TEST(Review, SaysWhyThereIsNothingToDo) {
    Reviewing window("");
    window.review.run().begin();
    window.load("1.e4 Qx9 2.d4");
    window.review.run().begin();
    window.screen.review.emplace(std::nullopt);
    window.review.run().begin();  // the question is left without an answer
    window.seat.reset();
    window.say("engine1name ");
    window.review.run().begin();
    std::erase_if(window.screen.calls, [](const std::string& call) { return !call.starts_with("tell "); });
    EXPECT_EQ(
        window.screen.calls,
        (Lines{"tell There is no game to review|Play one, or load one by the menu File.",
               "tell 1... Qx9 can't be played|The moves ahead of it are reviewed.",
               "tell No engine is loaded|Load the engine that is to review the game by the menu Engine."}));
    EXPECT_EQ(window.asked(), Lines{std::string("review 1 fixed_movetime 500 1 ") + start + " moves e2e4"});
}

TEST(Review, GoesFromMistakeToMistake) {
    Reviewing window("1.e4 $6 ( 1.f3 $4 e5 ) 1...e5 2.Nf3 ( 2.f3 d5 ) 2...f6 $2 3.Nxe5");
    const auto current = [&] { return window.node(window.session.record().current()).san; };
    const auto next = [&] { return window.review.to_next_mistake(), current(); };
    const auto previous = [&] { return window.review.to_previous_mistake(), current(); };
    EXPECT_EQ(Lines({next(), next(), next(), previous(), previous()}), Lines({"e4", "f6", "e4", "f6", "e4"}));
    // A variation stands where the move stands that it replaces.
    const auto variation = window.node(0).child_at(1);
    window.navigation.to_node(variation);
    EXPECT_EQ(next(), "f6");
    window.navigation.to_node(variation);
    EXPECT_EQ(previous(), "e4");
}

/// A game whose third ply is a mistake, with a review's words.
constexpr const char* marked =
    "{Review by Searcher 2, depth 9. White: 0 inaccuracies, 0 mistakes, 1 blunder. "
    "[%review 0-3 fixed_depth 9 Searcher 2]} 1.f3 {[%eval -0.4]} e5 {[%eval -0.5]} "
    "2.g4 $4 {[%eval #-1]} ( 2.d4 exd4 )";

TEST(BetterMove, JudgesAnswersAndLeavesTheRecordAlone) {
    Reviewing window(marked);
    BetterMove& question = window.review.better_move();
    EXPECT_FALSE(question.can_ask()) << "the next move isn't marked";
    window.navigation.to_end();
    ASSERT_TRUE(question.can_ask());
    question.ask();
    const std::string record = window.session.pgn();
    const auto place = window.session.record().current();
    EXPECT_EQ(question.text(), "White to move: find a better move than 2. g4.");
    EXPECT_EQ(question.covered(), place);
    window.asked();

    EXPECT_EQ(window.moves.on_typed("g4"), "");
    EXPECT_EQ(question.text(), "g4 was played. Look for a better move.");
    // Each is told whether it loses 0.05 of the chances that White had with -0.50.
    const auto try_move = [&](const std::string& move, const std::string& found) {
        window.moves.on_typed(move);
        const std::string ask = window.asked().back();
        const auto run = ask.substr(ask.find(' ') + 1, 1);
        window.say("reviewed " + run + " 3 d7d5 depth 9 " + found + " pv d7d5");
        window.say("review_finished " + run + " done");
        return ask;
    };
    EXPECT_EQ(try_move("h4", "score cp 80"),
              std::string("review 1 fixed_depth 9 3 ") + start + " moves f2f3 e7e5 h2h4");
    EXPECT_EQ(question.text(), "h4 (-0.80) isn't good enough. Try another move.");
    EXPECT_TRUE(question.is_asking());
    try_move("e3", "score cp 76");
    EXPECT_EQ(question.text(), "e3 (-0.76) is good, too. The engine's choice is 2. d4.");
    EXPECT_EQ(question.covered(), -1);
    EXPECT_EQ(window.session.pgn(), record);

    question.ask();
    window.moves.on_typed("d4");
    EXPECT_EQ(question.text(), "d4 is the engine's choice.");
    question.ask();
    window.moves.on_typed("e4");
    EXPECT_EQ(window.asked().size(), 1U);
    window.say("review_left_out 3 3");
    window.say("review_finished 3 done");
    EXPECT_EQ(question.text(), "The engine gives no answer about e4.");
    question.give_up();
    EXPECT_EQ(question.text(), "The engine's choice is 2. d4.");
    EXPECT_EQ(window.session.pgn(), record);

    // Looking elsewhere ends the question, and moves are played again.
    question.ask();
    window.navigation.back();
    EXPECT_EQ(question.text(), "");
    window.moves.on_typed("d5");
    EXPECT_EQ(window.node(window.session.record().current()).san, "d5");
}

}  // namespace
}  // namespace velmora
