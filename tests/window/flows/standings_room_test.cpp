#include "window/standings/standings_room.h"

#include <filesystem>

#include "tests/window/flows/flows_test.h"

namespace velmora {
namespace {

class StandingsRoomTest : public FlowsTest {
protected:
    StandingsRoomTest() { std::filesystem::create_directory("tournaments"); }

    void write(const std::string& first, const std::string& second) {
        home.write("tournaments/Cup.trn",
                   "event Cup\nlevel sudden_death 0 0:10 0.1\ntype match\nrounds 3\nparticipant alpha\n"
                   "participant beta\ngame 1 1 2 - 1 " +
                       first + "\ngame 2 2 1 - 2 " + second + "\ngame 3 3 2 - 1 *\n");
    }
    void say(const std::string& line) { dispatcher.process(line); }
    std::string scores() const {
        std::string text;
        for (const auto& line : room.sheet().lines) text += line.name + ' ' + line.points + ' ';
        return text + std::to_string(room.sheet().open_count);
    }

    StandingsRoom room{screen, dispatcher};
};

TEST_F(StandingsRoomTest, FollowsTheMatchAndReadsAnewWhatDoesntFit) {
    write("1-0", "*");
    room.load("Cup");
    EXPECT_EQ(scores(), "beta 1 alpha 0 2");
    screen.select_mode(Mode::tournament);
    say("match_progress 2 3 0 - 1");
    say("1/2-1/2 {Stalemate}");
    EXPECT_EQ(scores(), "beta 1.5 alpha 0.5 1");
    const std::string text = text_of(room.sheet());
    EXPECT_EQ(text,
              "Cup\n2 of 3 games played\n\n"
              "   Name   Points  Games  +White  +Black  =  -   Elo  +/-    SB      1      2\n"
              "1  beta      1.5      2       1       0  1  0  +191       0.75      *  1.5/2\n"
              "2  alpha     0.5      2       0       0  1  1  -191       0.75  0.5/2      *\n"
              "\nOpen:\n3: beta - alpha\n");
    // A game that is no match's counts for nobody.
    say("match_progress 3 3 0.5 - 1.5");
    screen.select_mode(Mode::human_computer);
    say("1-0 {White mates}");
    EXPECT_EQ(room.sheet().open_count, 1U);
    // The run begins anew, by the file.
    write("*", "*");
    screen.select_mode(Mode::tournament);
    say("match_progress 1 3 0 - 0");
    EXPECT_EQ(room.sheet().open_count, 3U);
    EXPECT_EQ(room.ended_runs(), 0U);
    say("tournament_finished");
    EXPECT_EQ(room.ended_runs(), 1U);
    room.load("Gone");
    EXPECT_TRUE(room.sheet().lines.empty());
}

}  // namespace
}  // namespace velmora
