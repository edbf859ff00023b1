#include <gtkmm/aboutdialog.h>
#include <gtkmm/checkbutton.h>
#include <gtkmm/comboboxtext.h>
#include <gtkmm/entry.h>
#include <gtkmm/messagedialog.h>
#include <gtkmm/radiobutton.h>

#include "base/program.h"
#include "dialogs/about_dialog.h"
#include "dialogs/engine/protocol_dialog.h"
#include "dialogs/game/result_dialog.h"
#include "dialogs/learn_hints_dialog.h"
#include "dialogs/parts/message_box.h"
#include "tests/dialogs/dialog_test.h"
#include "views/text/fen_entry.h"
#include "views/text/shown_text.h"

namespace velmora {
namespace {

TEST(ShownText, AnyBytesBecomeWhatAWidgetTakes) {
    const struct {
        std::string text;
        std::size_t longest;
        const char* expected;
    } rows[] = {
        {std::string("a\0b", 3), 100, "a?b"},
        {"abcdef", 3, "abc\u2026"},
        {"ab\u20AC", 4, "ab\u2026"},  // a character is not torn apart
        {"abc", 3, "abc"},
    };
    for (const auto& row : rows) EXPECT_EQ(shown_bytes(row.text, row.longest), row.expected) << row.text;
}

class SmallDialogsTest : public DialogTest {};

TEST_F(SmallDialogsTest, MessageBoxShowsBothTextsAndTakesEnterAndEscape) {
    for (const unsigned key : {unsigned(GDK_KEY_Return), unsigned(GDK_KEY_Escape)}) {
        answering<Gtk::MessageDialog>(
            [&](Gtk::MessageDialog& box) {
                EXPECT_EQ(box.property_text().get_value(), "No_such <b>engine</b>");
                EXPECT_EQ(box.property_secondary_text().get_value(), "line 1\nline 2 caf?");
                gui::press_key(box, key);
            },
            [&] {
                message_box(m_parent, "No_such <b>engine</b>", "line 1\nline 2 caf\xE9");
                return true;
            });
    }
}

TEST_F(SmallDialogsTest, AMessageOfAnyLengthFitsOnTheScreen) {
    for (const std::string& text : {std::string(20'000, 'x'), std::string(20'000, '\n'), std::string()}) {
        answering<Gtk::MessageDialog>(
            [&](Gtk::MessageDialog& box) {
                gui::pump_pending();
                EXPECT_LT(box.get_allocated_width(), 700);
                EXPECT_LT(box.get_allocated_height(), 1000);
                enter(box);
            },
            [&] {
                message_box(m_parent, text, text);
                return true;
            });
    }
}

TEST_F(SmallDialogsTest, ProtocolsByTheirButtons) {
    for (const auto& [label, protocol] : {std::pair("uci", Protocol::uci),
                                          {"xboard v1", Protocol::xboard_v1},
                                          {"xboard v2", Protocol::xboard_v2}}) {
        const auto reply = [label = label](Gtk::Dialog& dialog) {
            press(dialog, label);
            press(dialog, "OK");
        };
        EXPECT_EQ(answering(reply, [&] { return choose_protocol(m_parent); }), protocol);
    }
    EXPECT_EQ(answering(enter, [&] { return choose_protocol(m_parent); }), Protocol::autodetect);
    EXPECT_EQ(answering(escape, [&] { return choose_protocol(m_parent); }), std::nullopt);
}

TEST_F(SmallDialogsTest, TheResultOfAGameBeginsWithWhatTheRulesSay) {
    const GameOutcome mate{GameResult::black_wins, "Black mates"};
    EXPECT_EQ(answering(enter, [&] { return ask_result(m_parent, mate); }), mate);
    EXPECT_EQ(answering(escape, [&] { return ask_result(m_parent, mate); }), std::nullopt);
    const auto chosen = [](Gtk::Dialog& dialog) {
        gui::find_widget<Gtk::ComboBoxText>(dialog)->set_active(0);
        gui::find_widget<Gtk::Entry>(dialog)->set_text("on time");
        press(dialog, "Note");
    };
    EXPECT_EQ(answering(chosen, [&] { return ask_result(m_parent, std::nullopt); }),
              (GameOutcome{GameResult::white_wins, "on time"}));
}

TEST_F(SmallDialogsTest, LearnHintsMasks) {
    for (int mask = 0; mask < 4; ++mask) {
        for (const bool ok : {true, false}) {
            const auto reply = [&](Gtk::Dialog& dialog) {
                if ((mask & 1) == 0) press(dialog, "hint white moves");
                if ((mask & 2) == 0) press(dialog, "hint black moves");
                press(dialog, ok ? "OK" : "CANCEL");
            };
            EXPECT_EQ(answering(reply, [&] { return ask_learn_hints(m_parent); }), ok ? mask : 0);
        }
    }
    EXPECT_EQ(answering(escape, [&] { return ask_learn_hints(m_parent); }), 0);
}

TEST_F(SmallDialogsTest, AboutShowsNameVersionAndImage) {
    const std::string image =
        std::string(std::getenv("VELMORA_SOURCE_DIR")) + "/velmora.files/svg/velmora_100x50.svg";
    const auto show = [&](const std::string& path) {
        return [this, path] {
            show_about(m_parent, path);
            return true;
        };
    };
    answering<Gtk::AboutDialog>(
        [](Gtk::AboutDialog& dialog) {
            EXPECT_EQ(dialog.get_version(), program_version);
            EXPECT_EQ(dialog.get_logo()->get_width(), 100);
            escape(dialog);
        },
        show(image));
    testing::internal::CaptureStderr();
    answering<Gtk::AboutDialog>(escape, show(m_directory + "none.svg"));
    EXPECT_NE(testing::internal::GetCapturedStderr().find("none.svg"), std::string::npos);
}

TEST_F(SmallDialogsTest, FenEntryHandsOverItsTextByButtonAndEnter) {
    Gtk::Window window;
    FenEntry strip;
    window.add(strip);
    window.set_default_size(580, -1);  // of a window with a board of the usual size
    gui::show_and_wait(window);
    auto& entry = *gui::find_widget<Gtk::Entry>(strip);
    strip.set_text("r1bqkb1r/pp1n1ppp/2p1pn2/3p4/2PP4/2N1PN2/PP3PPP/R1BQKB1R w KQkq - 10 12");
    int width = 0, height = 0;
    entry.get_layout()->get_pixel_size(width, height);
    EXPECT_LT(width, entry.get_allocated_width() - 10) << "a whole FEN is seen";
    EXPECT_GT(entry.get_allocated_width(), 460) << "and OK stands at the end";
    std::vector<std::string> entered;
    strip.signal_fen_entered().connect([&](const std::string& text) {
        entered.push_back(text);
        strip.set_text("");  // as a listener may
    });
    strip.set_text("8/8 w");
    press(strip, "OK");
    entry.grab_focus();
    gui::type_text(strip, "abc\n");
    EXPECT_EQ(entered, (std::vector<std::string>{"8/8 w", "abc"}));
}

}  // namespace
}  // namespace velmora
