// Every word that the window shows, as it stands on the screen: the menus, what opens from them, and the
// messages.

#include <filesystem>
#include <sstream>

#include <gdk/gdkkeysyms.h>
#include <glibmm/miscutils.h>
#include <gtkmm/comboboxtext.h>
#include <gtkmm/entry.h>
#include <gtkmm/filechooserdialog.h>
#include <gtkmm/label.h>
#include <gtkmm/messagedialog.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/support/gui_driver.h"
#include "tests/support/workplace.h"
#include "window/file_chooser.h"
#include "window/interface.h"

namespace velmora {
namespace {

using Texts = std::vector<std::string>;

/// What stands in a window: labels (those of buttons, tabs and columns, too), entries in angle brackets,
/// the choices of a combo box.
Texts texts(Gtk::Widget& root) {
    Texts found;
    for (Gtk::Widget* const widget : gui::descendants(root)) {
        if (!widget->get_visible()) continue;
        if (const auto* const label = dynamic_cast<Gtk::Label*>(widget)) {
            if (!label->get_text().empty()) found.push_back(label->get_text());
        } else if (const auto* const entry = dynamic_cast<Gtk::Entry*>(widget)) {
            found.push_back("<" + entry->get_text() + ">");
        } else if (auto* const combo = dynamic_cast<Gtk::ComboBoxText*>(widget)) {
            for (const auto& row : combo->get_model()->children()) {
                Glib::ustring choice;
                row.get_value(combo->get_entry_text_column(), choice);
                found.push_back(choice);
            }
        }
    }
    return found;
}

/// What stands between the "|" of a text.
Texts parts(const std::string& text) {
    Texts found;
    std::istringstream stream(text);
    for (std::string part; std::getline(stream, part, '|');) found.push_back(part);
    return found;
}

/// The window with its referee in a directory of its own, and a person who opens and leaves dialogs.
class WordsTest : public testing::Test {
protected:
    WordsTest() {
        std::filesystem::create_directory_symlink(Glib::getenv("VELMORA_SOURCE_DIR") + "/velmora.files",
                                                  "velmora.files");
        m_window = std::make_unique<Interface>("velmora", 480);
        gui::pump_until([&] {
            m_window->show();
            return m_window->get_mapped();
        });
    }

    void load_engine() {
        m_window->send_to_manager(
            "load 1 filename " +
            m_place.add_engine("alpha",
                               "name Alpha\noption name Hash type spin default 16 min 1 max 64\n"
                               "option name Own Book type check default true\n"
                               "option name Log type string default none\nplay uci"));
        ASSERT_TRUE(
            gui::pump_until([&] { return m_window->get_title() == "Alpha"; }, std::chrono::seconds(30)));
    }

    void activate(const std::string& menu, const std::string& label) {
        for (const auto& entry : menus()) {
            if (entry.menu == menu && entry.label == label) return entry.item->activate();
        }
        FAIL() << "no entry " << menu << " / " << label;
    }

    std::vector<gui::MenuEntry> menus() {
        return gui::menu_entries(dynamic_cast<Gtk::MenuShell&>(*m_window->actions().menu_bar()));
    }

    /// The title and the texts of what a menu entry opens; it is left unanswered.
    Texts opened_by(const std::string& menu, const std::string& label) {
        Texts found;
        gui::Answer<Gtk::Dialog> answer([&](Gtk::Dialog& dialog) {
            found = texts(dialog);
            found.push_back(dialog.get_title());
            dialog.response(Gtk::RESPONSE_DELETE_EVENT);
            return true;
        });
        activate(menu, label);
        EXPECT_TRUE(answer.given()) << menu << " / " << label;
        return found;
    }

    test::Workplace m_place;
    std::unique_ptr<Interface> m_window;
};

TEST_F(WordsTest, TheMenus) {
    std::string menu, shown;
    for (const auto& entry : menus()) {
        if (entry.menu != menu) shown += "\n" + entry.menu + ":";
        menu = entry.menu;
        shown += entry.label.empty() ? "--" : "|" + entry.label;
    }
    EXPECT_EQ(shown, R"(
_File:|New game--|Load game|Save game--|Load position|Load next position|Load previous position|Save position--|Polyglot book--|Quit
View:|Flip View|Show Engine Output|Show PGN|Show Comment Editor|Show EPD Code|Show FEN
Mode:|Setup|Human - human|Human - computer|Analysis|Learn Opening|Tournament--|Start thinking
Tournament:|New / Edit|Load
Engine:|Load engine...|Install engine...|Load installed engine...
Options:|Time Control...|Engine...|Ponder|Debug
Info:|About...)");
}

TEST_F(WordsTest, TheWindows) {
    EXPECT_EQ(m_window->get_title(), "Velmora (no engine loaded)");
    activate("View", "Show FEN");
    EXPECT_THAT(texts(*m_window), testing::IsSupersetOf({"White: ", "Black: ", "FEN ", "OK"}));
    // The keyboard goes where the pointer presses, and steps through the game wherever no text is edited.
    Board& board = *gui::find_widget<Board>(*m_window);
    const double cell = board.drawing().cell().width;
    const auto steps_back = [&](Gtk::Window& window) {
        gui::press_key(window, GDK_KEY_Left);
        const bool stepped = !m_window->session().can_go_back();
        if (stepped) gui::press_key(window, GDK_KEY_End);
        return stepped;
    };
    auto& fen_field = *gui::find_widget<Gtk::Entry>(*gui::find_widget<FenEntry>(*m_window));
    fen_field.grab_focus();
    EXPECT_TRUE(gui::pump_until([&] {  // the first presses after the start don't count
        gui::drag(board, {4.5 * cell, 6.5 * cell}, {4.5 * cell, 4.5 * cell});
        return m_window->session().can_go_back();
    }));
    EXPECT_TRUE(steps_back(*m_window));
    fen_field.grab_focus();
    EXPECT_FALSE(steps_back(*m_window));
    const struct {
        const char *label, *title, *texts;
        bool steps = true;
    } rows[] = {{"Show Engine Output", "Engines: output", "Black|White"},
                {"Show PGN", "PGN", ""},
                {"Show Comment Editor", "Comment", "", false},
                {"Show EPD Code", "EPD", ""}};
    for (const auto& row : rows) {
        activate("View", row.label);
        Gtk::Window* shown = nullptr;
        for (Gtk::Window* const window : Gtk::Window::list_toplevels()) {
            if (window->get_title() == row.title && window->get_visible()) shown = window;
        }
        ASSERT_NE(shown, nullptr) << row.title;
        EXPECT_THAT(texts(*shown), testing::ElementsAreArray(parts(row.texts)));
        EXPECT_EQ(steps_back(*shown), row.steps) << row.title;
    }
    // A typed move covers neither squares nor clocks, and ends with the window.
    m_window->unset_focus();
    gui::press_key(*m_window, GDK_KEY_e);
    Gtk::Widget* const move = m_window->get_focus();
    ASSERT_EQ(move->get_accessible()->get_name(), "Move");
    const auto bottom_in_window = [this](Gtk::Widget& widget) {
        int x = 0, y = 0;
        widget.translate_coordinates(*m_window, 0, widget.get_allocated_height(), x, y);
        return y;
    };
    const auto is_in_place = [&] {
        const int bottom = bottom_in_window(*move);
        return bottom <= m_window->get_allocated_height() &&
               bottom - move->get_allocated_height() >= bottom_in_window(*gui::find_widget<Board>(*m_window));
    };
    EXPECT_TRUE(gui::pump_until(is_in_place));
    gui::press_key(*m_window, GDK_KEY_Escape);
    load_engine();
    // All of them go with the main window, also the one that the keyboard is in.
    for (Gtk::Window* const window : Gtk::Window::list_toplevels()) {
        if (window->get_title() != "Comment") continue;
        window->get_window()->focus(GDK_CURRENT_TIME);
        EXPECT_TRUE(gui::pump_until([&] { return window->has_toplevel_focus(); }));
    }
    m_window.reset();
    gui::pump_pending();
}

TEST(Words, TheFileChoosers) {
    constexpr auto fen = "('FEN files', [(0, '*.fen'), (0, '*.epd')])";
    constexpr auto pgn = "('PGN files', [(0, '*.pgn')])";
    const struct {
        FileKind kind;
        const char* first_filter;
        bool saves;
    } rows[] = {{FileKind::load_position, fen, false},
                {FileKind::save_position, fen, true},
                {FileKind::load_game, pgn, false},
                {FileKind::tournament_openings, "('PGN/EPD files', [(0, '*.pgn'), (0, '*.epd')])", false},
                {FileKind::save_game, pgn, true},
                {FileKind::engine, "('engine', [(1, 'application/octet-stream')", false},
                {FileKind::polyglot_book, "('Polyglot books', [(0, '*.bin')])", false}};
    Gtk::Window parent;
    FileChooser chooser(parent);
    for (const auto& row : rows) {
        const gui::Answer<Gtk::FileChooserDialog> answer([&](Gtk::FileChooserDialog& dialog) {
            EXPECT_EQ(dialog.get_title(), "Choose File");
            EXPECT_EQ(dialog.get_action() == Gtk::FILE_CHOOSER_ACTION_SAVE, row.saves);
            Texts filters;
            for (const auto& filter : dialog.list_filters()) {
                GVariant* const form = g_variant_ref_sink(gtk_file_filter_to_gvariant(filter->gobj()));
                char* const text = g_variant_print(form, FALSE);
                filters.push_back(text);
                g_free(text);
                g_variant_unref(form);
            }
            EXPECT_THAT(filters, testing::ElementsAre(testing::StartsWith(row.first_filter),
                                                      "('Text files', [(1, 'text/plain')])",
                                                      "('Any files', [(0, '*')])"));
            dialog.response(Gtk::RESPONSE_CANCEL);
            return true;
        });
        EXPECT_EQ(chooser.choose(row.kind), "");
    }
}

TEST_F(WordsTest, TheDialogs) {
    load_engine();
    // Stands in two dialogs.
    const std::string time_control =
        "fixed depth|<>|fixed nodes|<>|fixed movetime (ms)|<>|sudden death| Base (mm:ss): |<0:10>| Inc "
        "(sec): "
        "|<0.1>|sessions| Moves: |<40>| Base (mm:ss): |<0:10>| Inc (sec): |<0.1>|CANCEL|OK";
    const struct {
        const char *menu, *label;
        std::string shown;
    } rows[] = {
        {"Mode", "Learn Opening", "Learn Openings Hints|hint white moves|hint black moves|CANCEL|OK"},
        {"Options", "Time Control...", "Time control|" + time_control},
        {"Options", "Engine...", "Set Options|Own Book|Hash|<16>|Log|<none>|OK"},
        {"Engine", "Install engine...",
         "Install engine|name|<Alpha>|Elo: |<>|handicap (%): |<>|Hash:  16|Log:  none|Own Book:  "
         "yes|CANCEL|OK"},
        {"Engine", "Load installed engine...",
         "Choose Engine|ID|Engine|An engine that is uninstalled still stands in the list of before, the file "
         "“engines.cfg~”.|UNINSTALL|CANCEL|LOAD"},
        {"Tournament", "New / Edit",
         "Tournament|Event: |<Velmora Battles>|Site:  |<?>|Rounds: |<0>|Type: |match|gauntlet|roundrobin|"
         "Opening book: |(None)|No book|openings in random order|both colors|ignore loss on time|Event|"
         "Installed engines|Engine|Participants|Engine|A click on an engine moves it to the other list.|"
         "Participants|TimeControl|" +
             time_control},
        {"Tournament", "Load",
         "Load Tournament|ID|Tournament|DELETE puts a tournament into the trash; where there is none, its "
         "file "
         "stays under its name with “~” at the end.|DELETE|CANCEL|LOAD"},
    };
    for (const auto& row : rows) {
        // In which order a grid keeps its cells is the toolkit's affair.
        EXPECT_THAT(opened_by(row.menu, row.label), testing::UnorderedElementsAreArray(parts(row.shown)));
    }
    EXPECT_THAT(opened_by("Info", "About..."), testing::Contains("Velmora GUI"));
}

TEST_F(WordsTest, AnEngineThatDiesIsToldOfWithoutANewLineFromIt) {
    load_engine();
    Texts shown;
    gui::Answer<Gtk::MessageDialog> answer([&](Gtk::MessageDialog& box) {
        shown = {box.get_title(), box.property_text().get_value(), box.property_secondary_text().get_value(),
                 texts(box).back()};
        box.response(Gtk::RESPONSE_OK);
        return true;
    });
    activate("Mode", "Analysis");
    m_place.kill_engine("alpha");
    EXPECT_TRUE(gui::pump_until([&] { return answer.given(); }, std::chrono::seconds(30)));
    EXPECT_THAT(shown, testing::ElementsAre("Message:", "engine1", " crashed", "OK"));
}

}  // namespace
}  // namespace velmora
