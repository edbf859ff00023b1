#include "window/flows/tournament_flows.h"

#include <cstdlib>
#include <sys/stat.h>

#include "tests/window/flows/flows_test.h"

namespace velmora {
namespace {

class TournamentFlowsTest : public FlowsTest {
protected:
    TournamentFlowsTest() {
        home.write("engines.cfg",
                   "name alpha\nelo 2700\nhandicap 10\n\nname beta\nelo strong\n\nname gamma\n");
        std::filesystem::create_directory("tournaments");
    }
    void enter(const std::string& event, std::initializer_list<const char*> participants) {
        dialogs.tournament = {TournamentEdit::Action::ok, {}};
        TournamentData& entered = dialogs.tournament.entered;
        entered.event = event;
        entered.site = "Home";
        entered.rounds = 1;
        entered.type = TournamentType::round_robin;
        entered.level = Level("sudden_death 0 0:10 0.1");
        entered.random_order = false;
        entered.both_colors = entered.ignore_time_loss = true;
        for (const char* name : participants) entered.add_participant({.name = name});
        tournaments.edit();
    }
    void choose(TournamentChoice::Action action, const std::string& name = "") {
        dialogs.chosen_tournament = {action, name};
        tournaments.load();
    }

    TournamentFlows tournaments{session, screen, dialogs, link};
};

TEST_F(TournamentFlowsTest, WhatIsEnteredIsWhatIsPlayed) {
    enter("May cup", {"gamma", "alpha", "gone"});
    const std::string saved = R"(event May cup
site  Home
level sudden_death 0 0:10 0.1
type roundrobin
rounds 1
bothcolors true
randomorder false
ignoretimeloss true
participant gamma
participant alpha
participant gone
game       1      1.1     3  -  2     *
game       2      1.2     2  -  1     *
)";
    EXPECT_EQ(home.content("tournaments/May cup.trn"), saved);
    EXPECT_THAT(dialogs.installed, ElementsAre("alpha", "beta", "gamma"));
    EXPECT_THAT(referee.take(), ElementsAre("0 load_tournament May cup"));
    home.write("tournaments/May cup.trn", "results");
    enter("May cup", {"gamma", "alpha", "gone"});
    EXPECT_EQ(home.content("tournaments/May cup.trn"), saved);
    EXPECT_EQ(home.content("tournaments/May cup.trn~"), "results");
    std::string ratings;
    for (const auto& each : dialogs.shown_tournament->participants_list()) {
        ratings += std::to_string(each.elo) + "-" + std::to_string(each.handicap) + " ";
    }
    EXPECT_EQ(ratings, "2600-0 2700-10 2600-0 ");
}

TEST_F(TournamentFlowsTest, WhatCannotBeATournamentIsToldAndNotSaved) {
    testing::internal::CaptureStderr();
    for (int time = 0; time < 2; ++time) enter("One alone", {"alpha"});
    EXPECT_EQ(dialogs.shown_tournament->event(), "One alone") << "the values are kept for the next try";
    EXPECT_FALSE(dialogs.shown_tournament->both_colors()) << "the flags come behind the schedule";
    for (const char* event : {"", "a/b", ".."}) enter(event, {"alpha", "beta"});
    std::filesystem::remove("engines.cfg");
    ::mkfifo("engines.cfg", 0600);
    enter("No list", {"alpha", "beta"});
    EXPECT_THAT(
        testing::internal::GetCapturedStderr(),
        HasSubstr("new tournament failed Tournament::new_roundrobin() wrong number of participants\n"));
    EXPECT_THAT(dialogs.told, testing::SizeIs(6));
    EXPECT_THAT(dialogs.told, testing::Each(testing::StartsWith("new tournament failed|")));
    EXPECT_THAT(dialogs.told[3], HasSubstr("must not contain a slash"));
    EXPECT_THAT(dialogs.told[4], HasSubstr("must not consist of dots"));
    EXPECT_TRUE(std::filesystem::is_empty("tournaments"));
    EXPECT_THAT(referee.take(), IsEmpty());
}

TEST_F(TournamentFlowsTest, ALoadedTournamentBringsItsTimeControl) {
    enter("May cup", {"alpha", "beta"});
    referee.take();
    choose(TournamentChoice::Action::load, "May cup");
    EXPECT_THAT(referee.take(), ElementsAre("0 level sudden_death 0 0:10 0.1", "0 load_tournament May cup"));
    EXPECT_THAT(screen.calls, ElementsAre("reset clocks sudden_death 0 0:10 0.1"));
    testing::internal::CaptureStderr();
    choose(TournamentChoice::Action::load, "none");
    EXPECT_THAT(testing::internal::GetCapturedStderr(), HasSubstr("none.trn doesn't exist!"));
    EXPECT_THAT(referee.take(), ElementsAre("0 load_tournament none")) << "the referee tells the person";
}

TEST_F(TournamentFlowsTest, CancelGoesBackToTwoPeople) {
    for (const bool edits : {true, false}) {
        for (const bool cancels : {false, true}) {
            select(Mode::tournament);
            dialogs.tournament.action =
                cancels ? TournamentEdit::Action::cancel : TournamentEdit::Action::none;
            dialogs.chosen_tournament.action =
                cancels ? TournamentChoice::Action::cancel : TournamentChoice::Action::none;
            edits ? tournaments.edit() : tournaments.load();
            EXPECT_EQ(screen.mode(), cancels ? Mode::human_human : Mode::tournament);
            EXPECT_EQ(referee.take().empty(), !cancels);
        }
    }
}

TEST_F(TournamentFlowsTest, WhatIsDeletedCanBeHadBack) {
    // The toolkit looks once where the trash is, in whatever is there at the time.
    static const ScratchDirectory person;
    ::setenv("HOME", person.path("").c_str(), 1);
    ::setenv("XDG_DATA_HOME", person.path("data").c_str(), 1);
    for (const char* name : {"First", "Second"})
        home.write(std::string("tournaments/") + name + ".trn", name);
    choose(TournamentChoice::Action::remove, "First");
    EXPECT_EQ(person.content("data/Trash/files/First.trn"), "First");
    std::filesystem::remove_all(person.path("data/Trash"));
    person.write("data/Trash", "no directory");
    choose(TournamentChoice::Action::remove, "Second");
    EXPECT_EQ(home.content("tournaments/Second.trn~"), "Second");
    choose(TournamentChoice::Action::remove, "Third");
    EXPECT_THAT(dialogs.told, ElementsAre(HasSubstr("The tournaments can't be listed|")));
    EXPECT_THAT(referee.take(), IsEmpty());
}

}  // namespace
}  // namespace velmora
