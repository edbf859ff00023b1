#include <gtkmm/radiobutton.h>

#include "dialogs/time/time_control_dialog.h"
#include "dialogs/time/time_control_panel.h"
#include "tests/dialogs/dialog_test.h"

namespace velmora {
namespace {

/// The label of the active mode.
std::string active_mode(Gtk::Widget& root) {
    auto* button = gui::find_widget<Gtk::RadioButton>(root, [](auto& radio) { return radio.get_active(); });
    return button ? button->get_label().raw() : "";
}

/// The texts of all entries, from top to bottom.
std::string entries(Gtk::Widget& root) {
    std::string texts;
    for (auto* entry : in_grid<Gtk::Entry>(root)) texts += "[" + entry->get_text().raw() + "]";
    return texts;
}

TEST(TimeControlPanel, ShowsALevelAndGivesItBack) {
    const struct {
        const char *level, *mode, *entries;
    } rows[] = {
        {"sessions 20 1:30 0", "sessions", "[][][][0:10][0.1][20][1:30][0]"},
        {"sudden_death 0 5 2", "sudden death", "[][][][5][2][40][0:10][0.1]"},
        {"fixed_depth 12", "fixed depth", "[12][][][0:10][0.1][40][0:10][0.1]"},
        {"fixed_nodes 1000", "fixed nodes", "[][1000][][0:10][0.1][40][0:10][0.1]"},
        {"fixed_movetime 500", "fixed movetime (ms)", "[][][500][0:10][0.1][40][0:10][0.1]"},
    };
    for (const auto& row : rows) {
        TimeControlPanel panel{Level(row.level)};
        EXPECT_EQ(active_mode(panel), row.mode) << row.level;
        EXPECT_EQ(entries(panel), row.entries) << row.level;
        EXPECT_EQ(panel.level().text(), row.level);
    }
    EXPECT_EQ(TimeControlPanel().level().text(), "sessions 40 0:10 0.1");
}

TEST(TimeControlPanel, ReadsFreeTextsOfTheActiveMode) {
    const struct {
        const char* mode;
        std::vector<std::pair<std::size_t, const char*>> typed;  // entry from the top, text
        const char* expected;
    } rows[] = {
        {"sessions", {{6, "5"}}, "sessions 40 5 0.1"},
        {"sessions", {{5, "x"}, {6, "y"}, {7, "z"}}, "sessions 0 0 0"},
        {"sudden death", {{3, "1:30:20"}, {4, ""}}, "sudden_death 0 1:30 0"},
        {"fixed depth", {{0, "\xC3\xA4"}}, "fixed_depth 0"},
        {"fixed nodes", {{1, "99999999999999999999"}}, "fixed_nodes 0"},
        {"fixed movetime (ms)", {{2, "250 ms"}}, "fixed_movetime 250"},
    };
    for (const auto& row : rows) {
        TimeControlPanel panel;
        for (const auto& [n, text] : row.typed) in_grid<Gtk::Entry>(panel).at(n)->set_text(text);
        gui::find_labelled<Gtk::RadioButton>(panel, row.mode)->set_active(true);
        EXPECT_EQ(panel.level().text(), row.expected);
    }
}

class TimeControlDialogTest : public DialogTest {
protected:
    std::string ask(const std::function<void(Gtk::Dialog&)>& reply) {
        const auto level =
            answering(reply, [&] { return ask_time_control(m_parent, Level("sudden_death 0 5 2")); });
        return level ? level->text() : "none";
    }
};

TEST_F(TimeControlDialogTest, Answers) {
    EXPECT_EQ(ask(pressing("OK")), "sudden_death 0 5 2");
    EXPECT_EQ(ask(pressing("CANCEL")), "none");
    EXPECT_EQ(ask(escape), "none");
    EXPECT_EQ(ask([](Gtk::Dialog& dialog) {
                  in_grid<Gtk::Entry>(dialog).at(0)->grab_focus();
                  gui::type_text(dialog, "7\n");
              }),
              "fixed_depth 7")
        << "typing picks the mode, Enter answers";
}

}  // namespace
}  // namespace velmora
