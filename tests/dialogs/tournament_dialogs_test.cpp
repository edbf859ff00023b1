#include <gtkmm/comboboxtext.h>
#include <gtkmm/notebook.h>
#include <gtkmm/radiobutton.h>

#include "dialogs/tournament/tournament_dialog.h"
#include "dialogs/tournament/tournament_list.h"
#include "tests/dialogs/dialog_test.h"
#include "tournament/tournament_file.h"

namespace velmora {
namespace {

class TournamentDialogTest : public DialogTest {
protected:
    TournamentDialogTest() : m_tournament(m_directory) {}
    void choose(std::initializer_list<const char*> names) {
        for (const char* name : names) m_tournament.add_participant({0, name});
    }
    int run(TournamentDialog& dialog, const std::function<void(Gtk::Dialog&)>& reply) {
        return answering(reply, [&] { return dialog.run(); });
    }

    const std::vector<std::string> m_installed{"alpha", "beta", "gamma"};
    Tournament m_tournament;
};

TEST_F(TournamentDialogTest, GivesWhatIsEntered) {
    choose({"gamma", "alpha"});
    TournamentDialog dialog(m_parent, m_tournament, m_installed);
    const auto fill_in = [&](Gtk::Dialog& shown) {
        auto* pages = gui::find_widget<Gtk::Notebook>(shown);
        const auto entries = in_grid<Gtk::Entry>(*pages->get_nth_page(0));
        entries.at(0)->set_text("  May cup ");
        entries.at(1)->set_text("Home");
        entries.at(2)->set_text("2 x");
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
    };
    EXPECT_EQ(run(dialog, fill_in), TournamentDialog::ok);
    EXPECT_EQ(tournament_file::to_text(dialog.entered()), R"(event May cup
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
)");
}

TEST_F(TournamentDialogTest, BeginsWithTheTournamentThatItChanges) {
    choose({"beta", "gone"});
    m_tournament.set_type(TournamentType::gauntlet);
    m_tournament.set_rounds(3);
    m_tournament.set_level(Level("fixed_depth 4"));
    m_tournament.set_ignore_time_loss(true);
    m_tournament.set_opening_book(write("book.pgn", "*"));
    m_tournament.save();
    TournamentDialog dialog(m_parent, m_tournament, m_installed);
    EXPECT_EQ(run(dialog, enter), TournamentDialog::ok);
    EXPECT_EQ(tournament_file::to_text(dialog.entered()), content("Velmora Battles.trn"))
        << "also an engine that is installed no more stays";
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
                const auto says = [](Gtk::Label& label) {
                    return label.get_text().raw().starts_with("“May cup” is another tournament");
                };
                EXPECT_TRUE(gui::find_widget<Gtk::Label>(shown, says));
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
    EXPECT_EQ(dialog.entered().opening_book, m_directory + "gone.pgn");
    run(dialog, [](Gtk::Dialog& shown) {
        press(shown, "No book");
        press(shown, "OK");
    });
    EXPECT_EQ(dialog.entered().opening_book, "");
}

TEST_F(TournamentDialogTest, WaysToLeaveIt) {
    TournamentDialog dialog(m_parent, m_tournament, m_installed);
    EXPECT_EQ(run(dialog, pressing("CANCEL")), TournamentDialog::cancel);
    EXPECT_LT(run(dialog, escape), 0);
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
    EXPECT_EQ(ask(pressing("LOAD")), "load May cup");
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
