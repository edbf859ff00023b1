#include "tournament/tournament.h"

#include <filesystem>
#include <sstream>
#include <stdexcept>

#include <gtest/gtest.h>

#include "tests/support/scratch_directory.h"
#include "tournament/tournament_file.h"
#include "tournament/tournament_store.h"

namespace velmora {
namespace {

namespace fs = std::filesystem;

class TournamentTest : public testing::Test {
protected:
    Tournament make(std::initializer_list<const char*> names) const {
        Tournament tournament(m_directory);
        for (const char* name : names) tournament.add_participant({0, name});
        return tournament;
    }
    std::string file(const std::string& name) const { return m_files.content(name + ".trn"); }
    void write(const std::string& name, const std::string& text) const { m_files.write(name + ".trn", text); }
    /// What the operation throws, with the class of the exception ahead.
    template <class Operation>
    static std::string thrown(Operation operation) {
        try {
            operation();
        } catch (const std::out_of_range&) {
            return "out_of_range";
        } catch (const std::logic_error& error) {
            return std::string("logic_error ") + error.what();
        } catch (const std::runtime_error& error) {
            return std::string("runtime_error ") + error.what();
        }
        return "";
    }
    /// The fields of a tournament's settings, "|" between.
    static std::string settings(const Tournament& of) {
        std::ostringstream text;
        text << of.event() << '|' << of.site() << '|' << of.level().text() << '|'
             << static_cast<int>(of.type()) << '|' << of.rounds() << '|' << of.opening_book() << '|'
             << of.both_colors() << of.random_order() << of.ignore_time_loss();
        return text.str();
    }

    const ScratchDirectory m_files;
    const std::string m_directory = m_files.path("");  // with a trailing slash
};

constexpr auto two_games = R"(event Velmora Battles
site  ?
level sessions 40 0:10 0
type match
rounds 2
bothcolors false
randomorder true
ignoretimeloss false
participant Engine One
participant Engine Two
game       1      1    2  -  1     1-0
game       2      2    1  -  2     *
)";

TEST_F(TournamentTest, LoadsWhatItSavedAndGoesOn) {
    write("battles of may", two_games);
    Tournament tournament(m_directory);
    tournament.load("battles of may");
    EXPECT_EQ(settings(tournament), "Velmora Battles|?|sessions 40 0:10 0|0|2||010");
    EXPECT_EQ(tournament.game_count(), 2);
    EXPECT_EQ(tournament.participants_list(),
              (std::vector<TournamentParticipant>{{1, "Engine One"}, {2, "Engine Two"}}));
    const TournamentGame next = tournament.next_game();
    EXPECT_EQ(next.number, 2);
    EXPECT_EQ(next.white.name + " - " + next.black.name, "Engine One - Engine Two");

    tournament.set_result("1/2-1/2");
    EXPECT_EQ(tournament.next_game().number, 0) << "all games have been played";
    EXPECT_EQ(tournament.next_game().result, "*");
    tournament.set_result("0-1");  // no game left to take it
    tournament.save();
    std::string expected = two_games;
    expected.replace(expected.find("     *\n"), 7, "     1/2-1/2\n");
    EXPECT_EQ(file("battles of may"), expected) << "written under the name that it was loaded under";

    tournament.reset_results();
    EXPECT_EQ(tournament.next_game().number, 1);
    tournament.set_event("other");
    tournament.save();
    EXPECT_EQ(tournament_store::names(m_directory), (std::vector<std::string>{"battles of may", "other"}));
}

TEST_F(TournamentTest, GameTexts) {
    const struct {
        std::int32_t number, round, sub_round, white, black;
        const char* expected;
    } rows[] = {
        {1, 1, 0, 2, 1, "      1      1    2  -  1     *"},
        {12, 3, 4, 10, 9, "     12      3.4    10  -  9     *"},
        {12, 3, 4567, 1, 2, "     12      3.4567 1  -  2     *"},
        // Without a blank of their own these fields would run together and the file could not be read.
        {12, 3, 4567, 10, 100, "     12      3.4567 10  - 100     *"},
        {1000000, 1000000, 0, 2, 1, "1000000 1000000    2  -  1     *"},
    };
    for (const auto& row : rows) {
        TournamentGame game{row.number, row.round, row.sub_round, {row.white, ""}, {row.black, ""}};
        EXPECT_EQ(tournament_file::game_text(game), row.expected);

        TournamentData data;
        for (int i = 0; i < 100; ++i) data.add_participant({});
        std::istringstream line("game " + tournament_file::game_text(game) + "\n");
        std::string fault;
        tournament_file::read(line, data, fault);
        EXPECT_EQ(data.games.at(0), game) << "reads back";
    }
}

TEST_F(TournamentTest, ReaderTakesWordsAndSkipsWhatItDoesNotKnow) {
    write("x",
          "\n   event   A b  c\r\nsite\n\n rounds  7x\ntype the_gauntlet\nbothcolors TRUE\nignoretimeloss "
          "true\n"
          "color blue is nice\nopeningbook  /a b/c.pgn\nlevel fixed_depth 3\n");
    Tournament tournament(m_directory);
    testing::internal::CaptureStderr();
    tournament.load("x");
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "unknown command \"color\"\n");
    EXPECT_EQ(settings(tournament), "A b  c||fixed_depth 3|1|7|/a b/c.pgn|001")
        << "a new tournament has a random order, a file without the line has not";

    write("y", "event y\ntype knockout\n");
    tournament.load("y");
    EXPECT_EQ(settings(tournament), "y||fixed_depth 3|1|7||000") << "what the object held before stays";
    EXPECT_TRUE(tournament.games().empty());
}

TEST_F(TournamentTest, BadFilesThrow) {
    const std::string players = "participant a\nparticipant b\n";
    const std::string error = "logic_error Tournament::load    error";
    const struct {
        const char* name;
        std::string text, expected, place;
    } rows[] = {
        {"missing result", players + "game 1 1 2 - 1\n", error, "line 3: game 1 1 2 - 1"},
        {"bad round", players + "\ngame 1 1.b 2 - 1 *\r\n", error, "line 4: game 1 1.b 2 - 1 * "},
        {"id 0", players + "game 1 1 0 - 1 *\n", "out_of_range", "line 3: game 1 1 0 - 1 *"},
        {"participants below", "game 1 1 2 - 1 *\n" + players, "out_of_range", "line 1: game 1 1 2 - 1 *"},
        {"long line", "game " + std::string(200, 'x'), error, "line 1: game " + std::string(95, 'x')},
    };
    for (const auto& row : rows) {
        write("bad", row.text);
        Tournament tournament(m_directory);
        EXPECT_EQ(thrown([&] { tournament.load("bad"); }), row.expected) << row.name;
        EXPECT_EQ(tournament.load_fault(), m_directory + "bad.trn, " + row.place) << row.name;
        EXPECT_FALSE(tournament.valid());
    }
    Tournament tournament(m_directory);
    EXPECT_EQ(thrown([&] { tournament.load("none"); }),
              "logic_error " + m_directory + "none.trn doesn't exist!");
    EXPECT_EQ(tournament.load_fault(), "");
}

TEST_F(TournamentTest, NobodyElsesResultsAreReplacedAndOnesOwnStayBesideTheFile) {
    std::string unplayed = two_games;
    unplayed.replace(unplayed.find("1-0"), 3, "*");
    write("played", two_games);
    write("played 2", unplayed);
    write("unplayed", unplayed);
    write("damaged", "level soon\n");
    fs::create_directory(m_directory + "directory.trn");
    m_files.write("notes.txt", "no tournament");
    Tournament tournament(m_directory);
    const struct {
        const char *event, *free;
    } rows[] = {{"played", "played 3"},       {"unplayed", "unplayed"}, {"damaged", "damaged 2"},
                {"directory", "directory 2"}, {"new", "new"},           {"a/b", "a/b"}};
    for (const auto& row : rows) EXPECT_EQ(tournament.free_event(row.event), row.free);

    tournament.load("played");
    tournament.reset_results();
    tournament.set_event("played");
    EXPECT_EQ(tournament.free_event("played"), "played") << "its own";
    tournament.save_anew();
    EXPECT_NE(file("played"), two_games);
    EXPECT_EQ(m_files.content("played.trn~"), two_games);
    tournament.set_event("renamed");
    tournament.save_anew();
    EXPECT_FALSE(fs::exists(m_directory + "renamed.trn~"));
    EXPECT_EQ(tournament.free_event("renamed"), "renamed") << "its own as soon as it has been saved";
    EXPECT_EQ(tournament_store::names(m_directory),
              (std::vector<std::string>{"damaged", "played", "played 2", "renamed", "unplayed"}));
    EXPECT_EQ(tournament_store::names(m_directory + "missing/"), std::vector<std::string>{});
}

TEST_F(TournamentTest, ASaveThatFailsSaysSoAndLosesNothing) {
    Tournament tournament = make({"a", "b"});
    tournament.set_event("no/such directory");
    EXPECT_EQ(thrown([&] { tournament.save(); }), "runtime_error Tournament::save()  open tournament failed");
    EXPECT_TRUE(fs::is_empty(m_directory));
}

TEST_F(TournamentTest, PastedLineFeedsDoNotBreakTheFile) {
    Tournament tournament = make({"a", "b"});
    tournament.set_event("x");
    tournament.set_site("one\ngame\ntwo");
    tournament.save();
    tournament.load("x");
    EXPECT_EQ(tournament.site(), "one game two");
}

TEST_F(TournamentTest, MakeScheduleReplacesTheGamesAndNeedsTwoParticipants) {
    Tournament tournament = make({"a", "b", "c"}), lonely = make({"alone"});
    tournament.set_rounds(1);
    const struct {
        TournamentType type;
        std::size_t games;
        const char* operation;
    } rows[] = {{TournamentType::match, 1, "new_match"},
                {TournamentType::gauntlet, 2, "new_gauntlet"},
                {TournamentType::round_robin, 2, "new_roundrobin"}};
    for (const auto& row : rows) {
        tournament.set_type(row.type);
        tournament.make_schedule();
        EXPECT_EQ(tournament.games().size(), row.games);
        EXPECT_TRUE(tournament.valid());
        lonely.set_type(row.type);
        EXPECT_EQ(
            thrown([&] { lonely.make_schedule(); }),
            std::string("logic_error Tournament::") + row.operation + "() wrong number of participants");
        EXPECT_FALSE(lonely.valid());
    }
    tournament.set_type(static_cast<TournamentType>(3));
    tournament.make_schedule();
    EXPECT_FALSE(tournament.valid());
}

TEST_F(TournamentTest, ClearKeepsRoundsTypeSiteAndLevel) {
    write("battles", two_games);
    Tournament tournament(m_directory);
    tournament.load("battles");
    tournament.set_type(TournamentType::round_robin);
    tournament.clear();
    EXPECT_EQ(settings(tournament), "?|?|sessions 40 0:10 0|2|2||000");
    EXPECT_TRUE(tournament.participants_list().empty());
    EXPECT_EQ(tournament.next_game().number, 0);
}

TEST(TournamentParticipant, FreeTextsOfAnEngineBecomeNumbers) {
    const struct {
        const char *elo, *handicap;
        std::int32_t expected_elo, expected_handicap;
    } rows[] = {{"2750", "10", 2750, 10},
                {"", "", 2600, 0},
                {"strong", "none", 2600, 0},
                {"99999999999", "-5", 2600, -5}};
    for (const auto& row : rows) {
        EngineVariables engine;
        engine.name = "Alpha";
        engine.elo = row.elo;
        engine.handicap = row.handicap;
        const TournamentParticipant expected{0, "Alpha", row.expected_elo, row.expected_handicap};
        EXPECT_EQ(participant_of(engine), expected) << row.elo;
    }
}

TEST(TournamentStore, EventsThatAreNoFileNames) {
    const struct {
        std::string event;
        bool good;
    } rows[] = {{"May cup 2.", true},
                {"Große Schlacht", true},
                {std::string(251, 'x'), true},
                {"", false},
                {"a/b", false},
                {"..", false},
                {std::string(252, 'x'), false}};
    for (const auto& row : rows) EXPECT_EQ(!tournament_store::name_fault(row.event), row.good) << row.event;
}

}  // namespace
}  // namespace velmora
