// The session and the rooms of the window without a display: lines from the referee, the person's moves,
// modes, set-up and navigation, against what goes to the referee and what the game is then.

#include <filesystem>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/support/positions.h"
#include "tests/support/scratch_directory.h"
#include "tests/window/headless_window.h"

namespace velmora {
namespace {

using Lines = std::vector<std::string>;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

const std::string after_e4 = "rnbqkbnr/pppppppp/8/8/4P3/8/PPPP1PPP/RNBQKBNR b KQkq - 0 1";

class SessionTest : public testing::Test, protected test::HeadlessWindow {
protected:
    SessionTest() : HeadlessWindow(Mode::human_human) {
        std::filesystem::current_path(m_home.path(""));
        screen.on_show_position = [this] { m_shown_fen = session.position().fen(); };
        screen.on_show_game = [this] { m_shown_node = session.record().current(); };
    }
    ~SessionTest() override { std::filesystem::current_path(m_before); }

    /// Whatever has happened: the views show the game as it is.
    void TearDown() override {
        EXPECT_EQ(m_shown_fen, fen());
        EXPECT_EQ(m_shown_node, session.record().current());
        EXPECT_EQ(screen.comment, session.record().comment());
    }

    /// Lines that the referee has written when it had taken all that was sent.
    void lines(std::initializer_list<const char*> texts) { process(texts, referee.count()); }
    /// Lines that it had written when its window sent the last command.
    void crossed_lines(std::initializer_list<const char*> texts) { process(texts, referee.count() - 1); }
    void process(std::initializer_list<const char*> texts, std::uint64_t taken) {
        for (const char* text : texts) {
            link.receive(text, taken);
            dispatcher.process(text);
        }
    }
    void drag(const char* from, const char* to) {
        moves.on_board(Square(std::string(from)), Square(std::string(to)));
    }
    void click(const char* square) { drag(square, square); }

    std::string fen() const { return session.position().fen(); }
    Piece piece_on(const char* square) const {
        return session.position().piece_on(Square(std::string(square)));
    }
    /// The values of tags of the game, "|" between.
    std::string tags(std::initializer_list<const char*> names) {
        std::string values;
        for (const char* name : names) {
            if (!values.empty()) values += '|';
            values += session.record().tag(name);
        }
        return values;
    }
    /// Whose moves White's and Black's are.
    std::string players() const {
        std::string text;
        for (const Side side : {Side::white, Side::black})
            text += session.seats().engine_plays(side) ? "engine " : "person ";
        return text;
    }
    /// Selects a mode and forgets what that brought about.
    void select(Mode mode) {
        screen.select_mode(mode);
        referee.take();
        screen.calls.clear();
    }
    void load_engine(const char* name, Protocol asked_for) {
        link.send(to_referee::Load());
        engine.begin_load(name, asked_for);
    }
    void load_game(const char* pgn) {
        Game game;
        game.parse_pgn(pgn);
        session.load(std::move(game));
    }

    const ScratchDirectory m_home;
    const std::filesystem::path m_before = std::filesystem::current_path();
    std::string m_shown_fen = test::start_fen;
    std::int32_t m_shown_node = 0;
};

// -- Lines from the referee

TEST_F(SessionTest, AnEngineMoveCarriesItsAnnotationAndStartsTheOtherClock) {
    select(Mode::tournament);
    lines({"white_info  depth 5 score cp 20", "white_info  currmove e2e4 currmovenumber 1", "move e2e4"});
    EXPECT_EQ(fen(), after_e4);
    EXPECT_EQ(session.record().comment(), "[%eval 0.2][%depth 5]");
    EXPECT_EQ(screen.comment, "[%eval 0.2][%depth 5]");
    EXPECT_THAT(screen.calls, ElementsAre("analysis white  depth 5 score cp 20\n", "start clock black"));
    EXPECT_EQ(tags({"ECO", "Opening"}), "B00|King's pawn opening");
    lines({"emt 1234"});
    EXPECT_EQ(session.record().comment(), "[%eval 0.2][%depth 5][%time 1234]");
}

TEST_F(SessionTest, AMoveThatDoesNotFitChangesNothing) {
    select(Mode::tournament);
    lines({"move e2e5", "move", "move xyz", "move e7e5"});
    EXPECT_TRUE(session.record().is_empty());
}

TEST_F(SessionTest, LinesThatCrossedAStepOfThePersonAreDropped) {
    // Each fits the board that is shown, but the referee has the person's step still to come.
    select(Mode::human_computer);
    drag("e2", "e4");
    navigation.to_start();
    const auto shown = fen();
    crossed_lines({"move d2d4", "setboard 4k3/8/8/8/8/8/8/4KR2 b - - 0 1", "takeback", "new"});
    EXPECT_EQ(fen(), shown);
    EXPECT_FALSE(session.record().is_empty());
    // The echo of a new game in which the person has moved already.
    seat = Protocol::uci;
    lines({"engine1name Some Engine"});
    modes.new_game();
    session.seat(Seats::with_engine(Side::black));
    drag("d2", "d4");
    crossed_lines({"new"});
    EXPECT_EQ(session.position().moves_text(), "d2d4");
    lines({"move d7d5"});
    EXPECT_EQ(session.position().moves_text(), "d2d4 d7d5");
    // The engine has answered already when it is told to move: it takes the other side, too.
    drag("c2", "c4");
    modes.start_thinking();
    crossed_lines({"move d5c4"});
    lines({"move e2e3"});
    EXPECT_EQ(session.position().moves_text(), "d2d4 d7d5 c2c4 d5c4 e2e3");
    EXPECT_EQ(players(), "engine person ");
    // An answer to the game before, when the person has gone back and played on; the names come with "go".
    modes.start_thinking();
    navigation.to_start();
    select(Mode::human_computer);
    drag("e2", "e4");
    crossed_lines({"blackname Human", "whitename Some Engine", "move e7e5"});
    EXPECT_EQ(session.position().moves_text(), "e2e4");
    lines({"move c7c5"});
    EXPECT_EQ(session.position().moves_text(), "e2e4 c7c5");
}

TEST_F(SessionTest, LinesOfTheMatchBeforeAreDroppedWhereTournamentIsChosenAgain) {
    select(Mode::tournament);
    lines({"move d2d4"});
    const auto of_first = referee.count();
    select(Mode::human_human);
    process({"move e7e5", "emt 10"}, of_first);
    drag("d7", "d5");
    select(Mode::tournament);
    process({"move c2c4", "emt 20", "1-0 {Black resigns}", "new", "setboard 4k3/8/8/8/8/8/8/4K2R w K - 17 40",
             "tournament_finished"},
            of_first);
    EXPECT_EQ(session.position().moves_text(), "d2d4 d7d5");
    EXPECT_EQ(tags({"Result"}) + session.record().comment(), "*");
    EXPECT_EQ(screen.mode(), Mode::tournament);
    lines({"new", "move c2c4"});
    EXPECT_EQ(session.position().moves_text(), "c2c4");
    // The end of the game that is on the board still when its player begins a match.
    select(Mode::human_human);
    drag("e7", "e5");
    select(Mode::tournament);
    crossed_lines({"1-0 {Black resigns}"});
    EXPECT_EQ(tags({"Result"}), "1-0");
}

TEST_F(SessionTest, AStartThatCrossedAPositionOfOursIsToldTheRefereeAgain) {
    constexpr const char* chess960 = "setboard bbqnnrkr/pppppppp/8/8/8/8/PPPPPPPP/BBQNNRKR w FHfh - 0 1";
    seat = Protocol::uci;
    lines({"engine1name Alpha"});
    select(Mode::human_computer);
    modes.new_game();
    EXPECT_THAT(referee.take(), ElementsAre("0 new"));
    lines({"new", chess960});
    EXPECT_THAT(referee.take(), IsEmpty());
    select(Mode::human_human);
    modes.new_game();
    EXPECT_THAT(referee.take(), ElementsAre("0 new", "0 setboard " + fen(), "0 playother"));
    process({"new", chess960}, referee.count() - 2);
    EXPECT_THAT(referee.take(), ElementsAre("0 " + std::string(chess960)));
    EXPECT_EQ("setboard " + fen(), chess960);
    // The start of the first of two new games.
    modes.new_game();
    modes.new_game();
    referee.take();
    crossed_lines({"new", chess960});
    EXPECT_THAT(referee.take(), ElementsAre("0 " + std::string(chess960)));
    crossed_lines({"new", "setboard bbnqnrkr/pppppppp/8/8/8/8/PPPPPPPP/BBNQNRKR w HFhf - 0 1"});
    EXPECT_EQ("setboard " + fen(), chess960);
}

TEST_F(SessionTest, TheClockOfASetBoardIsThatOfTheSideNotToMove) {
    select(Mode::tournament);
    lines({"setboard 4k3/8/8/8/8/8/8/4K2R w K - 17 40"});
    EXPECT_EQ(fen(), "4k3/8/8/8/8/8/8/4K2R w K - 0 1");
    EXPECT_EQ(tags({"SetUp", "FEN"}), "1|4k3/8/8/8/8/8/8/4K2R w K - 0 1");
    EXPECT_THAT(screen.calls, Contains("start clock black"));
}

TEST_F(SessionTest, TakingBackGoesNoFurtherThanTheStart) {
    select(Mode::learn_openings);
    drag("e2", "e4");
    lines({"takeback", "takeback"});
    EXPECT_EQ(fen(), test::start_fen);
}

TEST_F(SessionTest, AFinishedGameIsArchivedWithNamesTimeControlAndEnding) {
    select(Mode::tournament);
    lines({"level sessions 40 5 2", "whitename  A \"quoted\" name ", "blackname", "WhiteElo 2600",
           "move f2f3", "move e7e5", "move g2g4", "move d8h4", "0-1 {Black mates}"});
    EXPECT_EQ(screen.title, "A \"quoted\" name  ???");
    EXPECT_THAT(screen.calls, Contains("stop clocks"));
    const auto archive = m_home.content("Velmora battles.pgn");
    EXPECT_EQ(archive, session.pgn());
    for (const char* part : {"[White \"A 'quoted' name\"]", "[Black \"???\"]", "[WhiteElo \"2600\"]",
                             "[TimeControl \"40/300+2\"]", "[Result \"0-1\"]", "{Black mates} 0-1"}) {
        EXPECT_THAT(archive, HasSubstr(part));
    }
    lines({"new", "1-0 {black resigns}"});
    EXPECT_EQ(m_home.content("Velmora battles.pgn"), archive) << "a game without moves is not archived";
}

TEST_F(SessionTest, NewGivesTheDefaultTextsWhateverTheTournamentWasCalled) {
    select(Mode::tournament);
    lines({"event  Big one", "site  Here", "round 3.2", "white_info score cp 5"});
    EXPECT_EQ(tags({"Event", "Site", "Round"}), "Big one|Here|3.2");
    lines({"new"});
    EXPECT_EQ(tags({"Event", "Site", "Round"}), "Velmora battles|the North Sea|3.2");
    lines({"move e2e4"});
    EXPECT_EQ(session.record().comment(), "") << "what was said in the game before is forgotten";
    EXPECT_FALSE(session.clocks_held());
}

TEST_F(SessionTest, WhatIsShownAroundTheBoard) {
    lines({"telluser Polyglotbook: no more moves", "set_arrow 12 28 g", "set_arrow 1 2 r", "set_arrow 3 4 b",
           "clear_arrows", "engine1name  Alpha 1.0 ", "level fixed_depth 7", "quit"});
    EXPECT_THAT(screen.calls,
                ElementsAre("tell Polyglotbook:| no more moves", "arrow e2 e4 1", "arrow b1 c1 0",
                            "arrow d1 e1 2", "clear arrows", "reset clocks fixed_depth 7", "close"));
    EXPECT_EQ(screen.title, "Alpha 1.0");
    screen.calls.clear();
    link.send(to_referee::Quit());
    lines({"telluser too late", "white_info too late"});
    EXPECT_THAT(screen.calls, IsEmpty()) << "nothing holds up the end";
}

// -- Modes

TEST_F(SessionTest, WhatEachModeSends) {
    seat = Protocol::uci;
    const std::string board = "0 setboard " + fen();
    EXPECT_FALSE(modes.awaits_engine());
    screen.select_mode(Mode::human_computer);
    EXPECT_THAT(referee.take(), ElementsAre(board, "0 playother"));
    EXPECT_EQ(players(), "person engine ");
    EXPECT_FALSE(modes.awaits_engine());
    EXPECT_TRUE(screen.sensitive["StartThinking"] && screen.sensitive["Ponder"]);
    session.start_from(after_e4);  // from elsewhere: whichever side is to move there is the person's
    modes.follow_position();
    EXPECT_THAT(referee.take(), ElementsAre("0 setboard " + after_e4, "0 playother"));
    EXPECT_EQ(players(), "engine person ");
    session.new_game();
    modes.start_thinking();
    EXPECT_THAT(referee.take(), ElementsAre("0 go"));
    EXPECT_TRUE(players() == "engine person " && modes.awaits_engine());
    screen.select_mode(Mode::analyze_position);
    lines({"reset board"});
    EXPECT_TRUE(modes.awaits_engine());
    EXPECT_THAT(referee.take(), ElementsAre(board, "0 analyzeposition"));
    EXPECT_FALSE(screen.sensitive["StartThinking"] || screen.sensitive["Ponder"]);
    screen.hints_answer = 0;
    screen.select_mode(Mode::learn_openings);
    EXPECT_EQ(screen.mode(), Mode::human_human);
    EXPECT_THAT(referee.take(), ElementsAre("0 learnopenings 0", "0 human_human"));
    screen.hints_answer = 3;
    screen.select_mode(Mode::learn_openings);
    EXPECT_THAT(referee.take(), ElementsAre("0 learnopenings 3", board));
    EXPECT_FALSE(modes.awaits_engine());
    screen.select_mode(Mode::tournament);
    EXPECT_THAT(referee.take(), ElementsAre("0 learnopenings 0", "0 start_tournament"));
    EXPECT_TRUE(players() == "engine engine " && !session.clocks_held() && modes.awaits_engine());
    lines({"reset mode"});
    EXPECT_THAT(referee.take(), ElementsAre("0 human_human"));
    EXPECT_TRUE(session.clocks_held());
    modes.start_thinking();
    EXPECT_THAT(referee.take(), IsEmpty());
    // A match without a game to play leaves nobody in the seat.
    select(Mode::tournament);
    seat.reset();
    lines({"tournament_finished"});
    EXPECT_EQ(screen.title, no_engine_title);
}

TEST_F(SessionTest, TitleAndMenuTellOfTheEngineThatIsLookedFor) {
    const auto menu = [&] {
        std::string all;
        for (const auto* action : {"Install", "Engine1_options", "HumanComputer", "AnalyzePosition"})
            all += screen.sensitive[action] ? '+' : '-';
        return all;
    };
    engine.show();
    EXPECT_EQ(menu(), "++--");
    load_engine("alpha", Protocol::uci);
    EXPECT_EQ(screen.title, "Loading alpha...");
    crossed_lines({"engine1name Earlier", "whitename Earlier", "telluser engine1 crashed"});
    EXPECT_EQ(screen.title, "Loading alpha...");
    EXPECT_EQ(menu(), "----");
    seat = Protocol::uci;
    lines({"engine1name Alpha"});
    EXPECT_EQ(screen.title, "Alpha");
    EXPECT_EQ(menu(), "++++");
    // A load that fails leaves nobody, and no mode that needs somebody.
    for (const Mode mode : {Mode::human_computer, Mode::analyze_position, Mode::setup}) {
        select(mode);
        load_engine("beta", Protocol::uci);
        EXPECT_FALSE(screen.sensitive["StartThinking"]);
        seat.reset();
        lines({"engine1name ???", "telluser beta failed"});
        EXPECT_EQ(menu(), "++--");
        EXPECT_EQ(screen.mode(), mode == Mode::setup ? mode : Mode::human_human);
        seat = Protocol::uci;
        lines({"engine1name Alpha"});
    }
    // What went wrong in a way of its own ends the search as well.
    load_engine("gamma", Protocol::uci);
    lines({"telluser Error: no more threads"});
    EXPECT_EQ(screen.title, "Alpha");
    // A match looks for two engines, and one name is not the end of it.
    select(Mode::tournament);
    crossed_lines({"whitename Alpha"});
    EXPECT_EQ(screen.title, "Loading engines...");
    lines({"new", "engine1name Beta"});
    EXPECT_EQ(screen.title, "Loading engines...");
    EXPECT_EQ(menu(), "----");
    lines({"engine2name Gamma", "whitename Beta", "blackname Gamma"});
    EXPECT_EQ(screen.title, "Beta  Gamma");
    EXPECT_EQ(menu(), "++++");
}

TEST_F(SessionTest, AProgramThatGivesNoAnswerIsSaidToBeOne) {
    for (const auto& [asked_for, found] : {std::pair(Protocol::autodetect, Protocol::xboard_v1),
                                           {Protocol::autodetect, Protocol::xboard_v2},
                                           {Protocol::xboard_v1, Protocol::xboard_v1}}) {
        seat = found;
        load_engine("cat", asked_for);
        lines({"engine1name "});
        EXPECT_TRUE(screen.sensitive["HumanComputer"]) << "somebody sits there, by whatever name";
    }
    EXPECT_THAT(screen.calls, ElementsAre(testing::StartsWith("tell No answer from cat|")));
}

TEST_F(SessionTest, NewGameGoesAgainstTheEngineOnlyWhenThereIsOne) {
    select(Mode::tournament);
    modes.new_game();
    EXPECT_EQ(screen.mode(), Mode::human_human);
    screen.calls.clear();
    modes.new_game();
    EXPECT_THAT(screen.calls, ElementsAre("stop clocks", "clear arrows",
                                          "reset clocks " + session.level().text(), "mark clock white"))
        << "the game before may have been one against the clock";
    seat = Protocol::uci;
    lines({"engine1name Alpha", "move e2e4"});
    referee.take();
    modes.new_game();
    EXPECT_EQ(screen.mode(), Mode::human_computer);
    EXPECT_EQ(players(), "person engine ");
    EXPECT_TRUE(session.record().is_empty());
    EXPECT_THAT(referee.take(), ElementsAre("0 new", "0 setboard " + fen(), "0 playother"));
}

// -- The person at the board

TEST_F(SessionTest, ADragOrTwoClicksPlayLegalMoves) {
    drag("e2", "e5");
    click("e7");
    EXPECT_FALSE(session.selected());
    click("e2");
    EXPECT_EQ(session.selected(), Square("e2"));
    click("d2");
    EXPECT_EQ(session.selected(), Square("d2"));
    click("a5");
    EXPECT_FALSE(session.selected()) << "a click elsewhere lets go";
    drag("e2", "e4");
    click("e7");
    click("e5");
    EXPECT_THAT(referee.take(), ElementsAre("0 usermove e2e4", "0 usermove e7e5"));
    EXPECT_THAT(screen.calls, ElementsAre("mark clock black", "mark clock white"))
        << "between people no clock runs";
}

TEST_F(SessionTest, CastlingByTheRookOrByTheKingsSquare) {
    for (const char* to : {"g1", "h1"}) {
        session.start_from("4k3/8/8/8/8/8/8/R3K2R w KQ - 0 1");
        drag("e1", to);
        EXPECT_THAT(referee.take(), ElementsAre("0 usermove e1g1")) << to;
    }
    for (const char* rights : {"KQ", "-"}) {
        session.start_from("4k3/8/8/8/8/8/8/R3K2R w " + std::string(rights) + " - 0 1");
        click("e1");
        click("a1");
    }
    EXPECT_THAT(referee.take(), ElementsAre("0 usermove e1c1"));
    EXPECT_EQ(session.selected(), Square("a1")) << "a rook that can't castle is picked up";
}

TEST_F(SessionTest, PromotionTakesTheChoosersAnswer) {
    for (const PieceKind answer : {PieceKind::queen, PieceKind::rook, PieceKind::bishop, PieceKind::knight,
                                   PieceKind::none}) {  // a closed chooser makes no move
        session.start_from("8/P3k3/8/8/8/8/8/4K3 w - - 0 1");
        screen.promotion_answer = answer;
        drag("a7", "a8");
    }
    EXPECT_THAT(referee.take(),
                ElementsAre("0 usermove a7a8q", "0 usermove a7a8r", "0 usermove a7a8b", "0 usermove a7a8n"));
}

TEST_F(SessionTest, TypedMovesAreReadInEachForm) {
    const char* const start = test::start_fen.c_str();
    const char* const rooks = "r3k2r/8/8/8/8/8/8/R3K2R w KQkq - 0 1";
    const char* const pawn = "7k/P7/8/8/8/8/8/4K3 w - - 0 1";
    const struct {
        const char *fen, *typed;
        const char* sent;  // nothing when the move is refused
    } rows[] = {
        {start, "e2e4", "0 usermove e2e4"},
        {start, " Nf3 ", "0 usermove g1f3"},
        {start, "nf3", "0 usermove g1f3"},
        {start, "Ng1-f3", "0 usermove g1f3"},
        {start, "e5", nullptr},
        {start, "", nullptr},
        {rooks, "O-O", "0 usermove e1g1"},
        {rooks, "0-0-0", "0 usermove e1c1"},
        {"4k3/8/8/3p4/2P1B3/8/8/4K3 b - - 0 1", "dxc4", "0 usermove d5c4"},
        {"4k3/8/8/3p4/2B5/1P6/8/4K3 w - - 0 1", "bxd5", "0 usermove c4d5"},
        {pawn, "a8=N", "0 usermove a7a8n"},
        {pawn, "a7a8", nullptr},
    };
    for (const auto& row : rows) {
        session.start_from(row.fen);
        const std::string complaint = moves.on_typed(row.typed);
        EXPECT_EQ(complaint, row.sent ? "" : "\"" + std::string(row.typed) + "\" is no legal move here");
        EXPECT_THAT(referee.take(), row.sent ? Lines{row.sent} : Lines{}) << row.typed;
    }
    session.start_from("4k3/8/8/8/8/8/8/4K3 w - - 0 1");
    session.seat(Seats::with_engine(Side::white));
    EXPECT_EQ(moves.on_typed("Kd1"), "It is not your move");
    select(Mode::setup);
    EXPECT_EQ(moves.on_typed("Kd1"), "The board is being set up");
}

TEST_F(SessionTest, WhatAnEnginePlaysIsNotThePersons) {
    drag("e2", "e4");
    session.seat(Seats::of_engines());
    referee.take();
    screen.calls.clear();
    drag("e7", "e5");
    EXPECT_THAT(screen.calls, ElementsAre("mark clock black"));
    navigation.back();
    EXPECT_EQ(fen(), after_e4) << "in a match the buttons rest";
    EXPECT_THAT(referee.take(), IsEmpty());
}

TEST_F(SessionTest, TypedCommentsStayWithTheirMoves) {
    drag("e2", "e4");
    screen.comment = "best {by test}";
    drag("e7", "e5");
    EXPECT_EQ(screen.comment, "");
    screen.comment = "solid";
    navigation.back();
    EXPECT_EQ(screen.comment, "best (by test)");
    select(Mode::tournament);
    lines({"move e7e5"});
    EXPECT_EQ(screen.comment, "solid") << "an engine without a word leaves it alone";
}

// -- Set-up

TEST_F(SessionTest, SetUpBuildsAPositionThatThenPlays) {
    screen.select_mode(Mode::setup);
    referee.take();
    EXPECT_EQ(session.position().rights(), 0);
    click("e2");  // a white piece while White is to move: the side changes
    EXPECT_EQ(fen(), "rnbqkbnr/pppppppp/8/8/8/8/PPPP1PPP/RNBQKBNR b - - 0 1");
    EXPECT_THAT(referee.take(), ElementsAre("0 setboard " + fen()));
    click("e1");  // kings stay
    drag("d1", "e8");
    EXPECT_THAT(referee.take(), IsEmpty());
    screen.piece_answer = Piece(PieceKind::king, Side::black);  // the black king moves instead of doubling
    click("e5");
    EXPECT_EQ(fen(), "rnbq1bnr/pppppppp/8/4k3/8/8/PPPP1PPP/RNBQKBNR w - - 0 1");
    screen.piece_answer = Piece(PieceKind::pawn, Side::white);  // no pawn on the last rank
    click("e8");
    EXPECT_EQ(piece_on("e8"), no_piece);
    drag("a7", "a1");  // the target goes, the pawn may not stand there, the source is emptied
    EXPECT_EQ(fen(), "rnbq1bnr/1ppppppp/8/4k3/8/8/PPPP1PPP/1NBQKBNR w - - 0 1");
    EXPECT_EQ(tags({"SetUp", "FEN"}), "1|" + fen());
    screen.select_mode(Mode::human_human);
    referee.take();
    drag("d2", "d4");
    EXPECT_THAT(referee.take(), ElementsAre("0 usermove d2d4"));
    navigation.to_start();
    EXPECT_EQ(fen(), "rnbq1bnr/1ppppppp/8/4k3/8/8/PPPP1PPP/1NBQKBNR w - - 0 1");
}

TEST_F(SessionTest, RightsThatTheSetUpTookComeBackWithTheRecord) {
    drag("e2", "e4");
    select(Mode::setup);
    select(Mode::human_human);
    drag("e7", "e5");
    EXPECT_EQ(fen(), "rnbqkbnr/pppp1ppp/8/4p3/4P3/8/PPPP1PPP/RNBQKBNR w - - 0 2");
    EXPECT_EQ(session.last_move().to_string(false), "e7e5");
    navigation.back();
    EXPECT_EQ(fen(), after_e4);
    select(Mode::setup);
    EXPECT_TRUE(session.last_move().empty()) << "no move has led to this board";
}

// -- Navigation

TEST_F(SessionTest, SteppingKeepsTheRefereeInStep) {
    drag("e2", "e4");
    drag("e7", "e5");
    navigation.back();
    drag("c7", "c5");
    navigation.to_start();
    referee.take();
    navigation.forward();
    EXPECT_THAT(referee.take(), ElementsAre("0 setboard " + after_e4));
    navigation.to_end();
    EXPECT_EQ(piece_on("e5"), Piece(PieceKind::pawn, Side::black))
        << "the main line is the first move played";
    navigation.to_end();
    EXPECT_FALSE(session.can_go_forward());
    screen.select_mode(Mode::analyze_position);
    referee.take();
    navigation.back();
    EXPECT_THAT(referee.take(), ElementsAre("0 setboard " + after_e4, "0 analyzeposition"));
    EXPECT_EQ(screen.mode(), Mode::analyze_position);
    EXPECT_EQ(session.record().tag("Opening"), "King's pawn opening");
    const auto offset = session.pgn().find("c5");
    navigation.to_text_offset(offset + 1);
    EXPECT_EQ(piece_on("c5"), Piece(PieceKind::pawn, Side::black));
}

TEST_F(SessionTest, AMoveThatCannotBePlayedIsReported) {
    load_game("1. e4 e5 2. Qxe5 *");
    navigation.to_end();
    EXPECT_THAT(screen.calls, Contains("tell 2. Qxe5 can't be played here|"));
    EXPECT_EQ(fen(), session.record().fen());
    EXPECT_EQ(piece_on("e5"), Piece(PieceKind::pawn, Side::black));
    referee.take();
    navigation.forward();
    EXPECT_THAT(referee.take(), IsEmpty()) << "where no step is made, nobody is moved";
    load_game("[SetUp \"1\"]\n[FEN \"4k3/8/8/8/8/8/8/4K3 b - - 0 30\"]\n\n30... Qh8 *");
    navigation.forward();
    EXPECT_EQ(screen.calls.back(), "tell 30... Qh8 can't be played here|");
}

TEST(RecordNames, DatesAndTimeControlsAsTags) {
    using namespace std::chrono;
    EXPECT_EQ(pgn_date(sys_days(year(2024) / 3 / 7) + 23h), "2024.3.7");
    const std::pair<const char*, const char*> rows[] = {
        {"sessions 40 0:10 0.1", "40/10+0.1"}, {"sessions 40 0:10 0", "40/10"}, {"sudden_death 0 5 0", "300"},
        {"sudden_death 0 5 2", "300+2"},       {"fixed_depth 12", "-"},         {"fixed_movetime 500", "-"}};
    for (const auto& [level, tag] : rows) EXPECT_EQ(pgn_time_control(Level(level)), tag) << level;
}

}  // namespace
}  // namespace velmora
