#include <gtkmm/comboboxtext.h>
#include <gtkmm/filechooserbutton.h>
#include <gtkmm/notebook.h>
#include <gtkmm/radiobutton.h>

#include "dialogs/tournament/tournament_dialog.h"
#include "dialogs/tournament/tournament_list.h"
#include "tests/dialogs/dialog_test.h"
#include "tests/support/thrown_text.h"

namespace velmora {
namespace {

class TournamentDialogTest : public DialogTest {
protected:
    TournamentDialogTest() : m_tournament(m_directory) {
        for (const auto& [name, elo] : {std::pair{"alpha", "2700"}, {"beta", "strong"}, {"gamma", ""}}) {
            EngineVariables engine;
            engine.name = name;
            engine.elo = elo;
            m_installed[name] = engine;
        }
    }
    void choose(std::initializer_list<const char*> names) {
        for (const char* name : names) m_tournament.add_participant({0, name});
    }
    int run(TournamentDialog& dialog, const std::function<void(Gtk::Dialog&)>& reply) {
        return answering(reply, [&] { return dialog.run(); });
    }
    std::string saved() {
        m_tournament.save();
        return content(m_tournament.event() + ".trn");
    }

    InstalledEngines::Map m_installed;
    Tournament m_tournament;
};

TEST_F(TournamentDialogTest, WhatIsEnteredIsWhatIsPlayed) {
    choose({"gamma", "alpha"});
    TournamentDialog dialog(m_parent, m_tournament, m_installed);
    EXPECT_EQ(run(dialog,
                  [&](Gtk::Dialog& shown) {
                      EXPECT_EQ(shown.get_title(), "Tournament");
                      auto* pages = gui::find_widget<Gtk::Notebook>(shown);
                      std::string tabs;
                      for (auto* page : pages->get_children()) tabs += pages->get_tab_label_text(*page) + " ";
                      EXPECT_EQ(tabs, "Event Participants TimeControl ");
                      const auto entries = in_grid<Gtk::Entry>(*pages->get_nth_page(0));
                      EXPECT_EQ(entries.at(0)->get_text(), "Velmora Battles");
                      EXPECT_EQ(entries.at(1)->get_text(), "?");
                      EXPECT_EQ(entries.at(2)->get_text(), "0");
                      entries[0]->set_text("  May cup ");
                      entries[1]->set_text("Home");
                      entries[2]->set_text("2 x");
                      gui::find_widget<Gtk::ComboBoxText>(shown)->set_active_text("roundrobin");
                      press(shown, "both colors");
                      press(shown, "openings in random order");
                      pages->set_current_page(1);
                      gui::pump_pending();
                      click_row(list_in(shown), 0);  // the very first click does nothing
                      click_row(list_in(shown), 0);
                      pages->set_current_page(2);
                      gui::find_labelled<Gtk::RadioButton>(shown, "sudden death")->set_active(true);
                      press(shown, "OK");
                  }),
              TournamentDialog::ok);
    dialog.store(m_tournament);
    EXPECT_EQ(saved(), R"(event May cup
site  Home
level sudden_death 0 0:10 0.1
type roundrobin
rounds 2
bothcolors true
randomorder false
ignoretimeloss false
participant gamma
participant alpha
participant beta
game       1      1.1     3  -  2     *
game       2      1.2     2  -  1     *
game       3      2.1     3  -  1     *
game       4      2.2     2  -  3     *
)");
    std::string ratings;
    for (const auto& each : m_tournament.participants_list()) ratings += std::to_string(each.elo) + " ";
    EXPECT_EQ(ratings, "2600 2700 2600 ");
}

TEST_F(TournamentDialogTest, BeginsWithTheTournamentThatItChanges) {
    choose({"beta", "gone"});
    m_tournament.set_type(TournamentType::gauntlet);
    m_tournament.set_rounds(3);
    m_tournament.set_level(Level("fixed_depth 4"));
    m_tournament.set_ignore_time_loss(true);
    m_tournament.set_opening_book(write("book.pgn", "*"));
    m_tournament.make_schedule();
    const std::string before = saved();
    TournamentDialog dialog(m_parent, m_tournament, m_installed);
    EXPECT_EQ(run(dialog, enter), TournamentDialog::ok);
    dialog.store(m_tournament);
    EXPECT_EQ(saved(), before) << "also an engine that is installed no more stays";
}

TEST_F(TournamentDialogTest, ProposesAFreeNameInsteadOfAnothersResults) {
    const std::string played = "participant a\nparticipant b\ngame 1 1 2 - 1 1-0\n";
    for (const char* name : {"Velmora Battles.trn", "May cup.trn"}) write(name, played);
    choose({"alpha", "beta"});
    TournamentDialog dialog(m_parent, m_tournament, m_installed);
    const auto event = [&] { return in_grid<Gtk::Entry>(dialog).at(0)->get_text(); };
    sigc::connection second_answer;
    const auto take_what_is_played = [&](Gtk::Dialog& shown) {
        EXPECT_EQ(event(), "Velmora Battles 2");
        in_grid<Gtk::Entry>(shown).at(0)->set_text("May cup");
        second_answer = Glib::signal_timeout().connect(
            [&] {
                if (event() != "May cup 2") return true;
                EXPECT_TRUE(says(shown, "“May cup” is another tournament"));
                press(shown, "OK");
                return false;
            },
            1);
        press(shown, "OK");
    };
    EXPECT_EQ(run(dialog, take_what_is_played), TournamentDialog::ok);
    second_answer.disconnect();
    EXPECT_EQ(event(), "May cup 2") << "it was asked again";
}

TEST_F(TournamentDialogTest, TheBookCanBeTakenAway) {
    choose({"alpha", "beta"});
    m_tournament.set_opening_book(m_directory + "gone.pgn");
    TournamentDialog dialog(m_parent, m_tournament, m_installed);
    dialog.store(m_tournament);
    EXPECT_EQ(m_tournament.opening_book(), m_directory + "gone.pgn");
    run(dialog, [](Gtk::Dialog& shown) {
        EXPECT_EQ(gui::find_widget<Gtk::FileChooserButton>(shown)->get_title(), "Select  PGN/EPD book");
        press(shown, "No book");
        press(shown, "OK");
    });
    dialog.store(m_tournament);
    EXPECT_EQ(m_tournament.opening_book(), "");
}

TEST_F(TournamentDialogTest, WaysToLeaveIt) {
    TournamentDialog dialog(m_parent, m_tournament, m_installed);
    EXPECT_EQ(run(dialog, pressing("CANCEL")), TournamentDialog::cancel);
    EXPECT_LT(run(dialog, escape), 0);
    EXPECT_LT(run(dialog, [](Gtk::Dialog& shown) { shown.close(); }), 0);
}

TEST_F(TournamentDialogTest, TooFewParticipantsThrowBeforeTheFlagsAreSet) {
    choose({"alpha"});
    TournamentDialog dialog(m_parent, m_tournament, m_installed);
    run(dialog, [](Gtk::Dialog& shown) {
        press(shown, "both colors");
        press(shown, "OK");
    });
    EXPECT_EQ(test::thrown_text([&] { dialog.store(m_tournament); }),
              "Tournament::new_match() wrong number of participants");
    EXPECT_FALSE(m_tournament.both_colors());
    EXPECT_TRUE(m_tournament.random_order());
}

TEST_F(TournamentDialogTest, AnEventThatIsNoFileNameIsRefusedWithAReason) {
    choose({"alpha", "beta"});
    for (const char* event : {"", "   ", "a/b", "../x", ".."}) {
        m_tournament.set_event(event);
        TournamentDialog dialog(m_parent, m_tournament, m_installed);
        EXPECT_THROW(dialog.store(m_tournament), std::logic_error) << event;
        EXPECT_EQ(m_tournament.games().size(), 1U) << "the values are kept for the next try";
    }
}

class TournamentListTest : public DialogTest {
protected:
    std::string ask(const std::function<void(Gtk::Dialog&)>& reply,
                    const std::vector<std::string>& names = {"May cup", "Caf\xE9"}) {
        const auto choice = answering(reply, [&] { return choose_tournament(m_parent, names); });
        const char* actions[] = {"none", "remove", "cancel", "load"};
        return std::string(actions[static_cast<int>(choice.action)]) + " " + choice.name;
    }
};

TEST_F(TournamentListTest, Answers) {
    EXPECT_EQ(ask([](Gtk::Dialog& dialog) {
                  EXPECT_EQ(dialog.get_title(), "Load Tournament");
                  EXPECT_EQ(list_in(dialog).get_column(1)->get_title(), "Tournament");
                  press(dialog, "LOAD");
              }),
              "load May cup");
    const auto second_row = [](const char* label) {
        return [label](Gtk::Dialog& dialog) {
            click_row(list_in(dialog), 1);
            press(dialog, label);
        };
    };
    EXPECT_EQ(ask(second_row("LOAD")), "load Caf\xE9");
    EXPECT_EQ(ask(second_row("DELETE")), "remove Caf\xE9");
    EXPECT_EQ(ask(second_row("CANCEL")), "cancel ");
    EXPECT_EQ(ask(escape), "none ");
    EXPECT_EQ(ask([](Gtk::Dialog& dialog) {
                  gui::double_click(list_in(dialog).get_bin_window(), middle_of_row(list_in(dialog), 1));
              }),
              "load Caf\xE9");
    EXPECT_EQ(ask(pressing("DELETE"), {}), "none ");
    EXPECT_TRUE(stays_open_at_load([&] { ask([](Gtk::Dialog&) {}, {}); }));
    EXPECT_EQ(ask(pressing("CANCEL"), {}), "cancel ");
}

}  // namespace
}  // namespace velmora
