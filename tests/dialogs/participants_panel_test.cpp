#include "dialogs/tournament/participants_panel.h"

#include "tests/dialogs/dialog_test.h"

namespace velmora {
namespace {

using Names = std::vector<std::string>;
using Force = DeleteSelection::Force;

/// A clock that stands still until a test moves it on. Static: a time source is a plain function.
struct HandClock {
    static inline std::chrono::nanoseconds time{0};
    static std::chrono::nanoseconds now() { return time; }
    static void move_on(int milliseconds) { time += std::chrono::milliseconds(milliseconds); }
};

TEST(DeleteSelection, AddsAndRemovesByClickOrByForce) {
    DeleteSelection list(HandClock::now);
    EXPECT_FALSE(list.add("a", Force::no)) << "the very first call does nothing";
    EXPECT_TRUE(list.add("b", Force::yes));
    EXPECT_TRUE(list.add("c", Force::no));
    EXPECT_FALSE(list.remove("b", Force::no)) << "too early";
    EXPECT_TRUE(list.add("b", Force::yes)) << "force does not ask";
    EXPECT_EQ(list.selected(), (Names{"b", "c", "b"}));
    HandClock::move_on(101);
    EXPECT_TRUE(list.remove("b", Force::no));
    EXPECT_EQ(list.selected(), (Names{"c", "b"})) << "the first of that name goes";
}

class ParticipantsPanelTest : public DialogTest {
protected:
    ParticipantsPanelTest() : m_panel({"a", "b", "c"}, {}, HandClock::now) {
        m_window.add(m_panel);
        m_window.set_default_size(500, 300);
        gui::show_and_wait(m_window);
    }
    /// The names of a list, 0 the left one.
    Names names(int list) {
        Names found;
        for (const auto& row : list_in(m_panel, list).get_model()->children()) {
            Glib::ustring name;
            row.get_value(0, name);
            found.push_back(name);
        }
        return found;
    }
    void click(int list, int row) {
        click_row(list_in(m_panel, list), row);
        gui::pump_pending();
    }

    Gtk::Window m_window;
    ParticipantsPanel m_panel;
};

TEST_F(ParticipantsPanelTest, AClickMovesANameToTheOtherList) {
    click(0, 1);
    EXPECT_EQ(m_panel.chosen(), Names{}) << "the very first click does nothing";
    HandClock::move_on(500);
    click(0, 0);
    EXPECT_EQ(m_panel.chosen(), Names{"a"});
    EXPECT_EQ(names(0), (Names{"b", "c"}));
    HandClock::move_on(100);
    click(0, 0);
    EXPECT_EQ(m_panel.chosen(), Names{"a"}) << "two clicks within 100 ms move one name";
    HandClock::move_on(1);
    click(0, 0);
    EXPECT_EQ(m_panel.chosen(), (Names{"a", "b"}));
    HandClock::move_on(200);
    click(1, 0);
    EXPECT_EQ(m_panel.chosen(), Names{"b"});
    EXPECT_EQ(names(0), (Names{"c", "a"}));
}

TEST_F(ParticipantsPanelTest, TheFirstClickIntoTheOtherListTakesTheRowThatWasClicked) {
    click(0, 0);
    for (int i = 0; i < 3; ++i) {
        HandClock::move_on(500);
        click(0, 0);
    }
    HandClock::move_on(500);
    click(1, 2);
    EXPECT_EQ(m_panel.chosen(), (Names{"a", "b"})) << "not the row to which the list goes with the keyboard";
}

TEST_F(ParticipantsPanelTest, TheKeyboardMovesNamesToo) {
    Gtk::TreeView& list = list_in(m_panel);
    give_keyboard(m_window);
    list.grab_focus();
    HandClock::move_on(500);
    gui::press_key(list, GDK_KEY_Return);
    EXPECT_EQ(m_panel.chosen(), Names{}) << "the very first does nothing";
    gui::press_key(list, GDK_KEY_Return);
    EXPECT_EQ(m_panel.chosen(), Names{"a"});
    HandClock::move_on(500);
    gui::press_key(list, GDK_KEY_Down);
    EXPECT_EQ(m_panel.chosen(), (Names{"a", "c"})) << "each move of the cursor to a row counts";
}

TEST(ParticipantsPanel, NamesOfAnyBytesComeBackAsTheyWere) {
    const Names names{"Caf\xE9", "Gr\xC3\xBC\xC3\x9F"};
    EXPECT_EQ(ParticipantsPanel(names, names).chosen(), names);
}

}  // namespace
}  // namespace velmora
