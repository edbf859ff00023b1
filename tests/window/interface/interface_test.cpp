// The window as it is put together: its menus, what opens from them, and where the keys of a person go.

#include "window/interface.h"

#include <filesystem>

#include <gdk/gdkkeysyms.h>
#include <glibmm/miscutils.h>
#include <gtkmm/entry.h>
#include <gtkmm/filechooserdialog.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/support/gui_driver.h"
#include "tests/support/workplace.h"
#include "window/file_chooser.h"

namespace velmora {
namespace {

/// The window with its referee in a directory of its own, and a person who opens and leaves dialogs.
class InterfaceTest : public testing::Test {
protected:
    InterfaceTest() {
        std::filesystem::create_directory_symlink(Glib::getenv("VELMORA_SOURCE_DIR") + "/velmora.files",
                                                  "velmora.files");
        m_window = std::make_unique<Interface>("velmora", 480);
        gui::pump_until([&] {
            m_window->show();
            return m_window->get_mapped();
        });
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

    /// The title of what a menu entry opens; it is left unanswered.
    std::string opened_by(const std::string& menu, const std::string& label) {
        std::string title;
        const gui::Answer<Gtk::Dialog> answer([&](Gtk::Dialog& dialog) {
            title = dialog.get_title();
            dialog.response(Gtk::RESPONSE_DELETE_EVENT);
            return true;
        });
        activate(menu, label);
        return title;
    }

    test::Workplace m_place;
    std::unique_ptr<Interface> m_window;
};

TEST_F(InterfaceTest, TheMenus) {
    std::string menu, shown;
    for (const auto& entry : menus()) {
        if (entry.menu != menu) shown += "\n" + entry.menu + ":";
        menu = entry.menu;
        shown += entry.label.empty() ? "--" : "|" + entry.label;
    }
    EXPECT_EQ(shown, R"(
_File:|New game--|Load game|Save game--|Load position|Load next position|Load previous position|Save position--|Polyglot book--|Quit
View:|Flip View|Show Engine Output|Show PGN|Show Comment Editor|Show EPD Code|Show FEN--|Show Side Panel|Show Best Move
Mode:|Setup|Human - human|Human - computer|Analysis|Learn Opening|Tournament--|Start thinking
Game:|Review game...|Next mistake|Previous mistake|Find the better move--|Resign|Offer draw|Take back|Move now|Claim draw|Result...|Lose on time--|Earlier games...--|Copy position|Copy game|Paste|Tags...
Tournament:|New / Edit|Load--|Standings
Engine:|Load engine...|Install engine...|Load installed engine...--|Find engines...|Strength...
Options:|Time Control...|Engine...|Ponder|Debug
Info:|About...)");
}

TEST_F(InterfaceTest, TheWindows) {
    activate("View", "Show FEN");
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
        const char *label, *title;
        bool steps = true;
    } rows[] = {{"Show Engine Output", "Engines: output"},
                {"Show PGN", "PGN"},
                {"Show Comment Editor", "Comment", false},
                {"Show EPD Code", "EPD"}};
    for (const auto& row : rows) {
        activate("View", row.label);
        Gtk::Window* shown = nullptr;
        for (Gtk::Window* const window : Gtk::Window::list_toplevels()) {
            if (window->get_title() == row.title && window->get_visible()) shown = window;
        }
        ASSERT_NE(shown, nullptr) << row.title;
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
    // All of them go with the main window, also the one that the keyboard is in.
    for (Gtk::Window* const window : Gtk::Window::list_toplevels()) {
        if (window->get_title() != "Comment") continue;
        window->get_window()->focus(GDK_CURRENT_TIME);
        EXPECT_TRUE(gui::pump_until([&] { return window->has_toplevel_focus(); }));
    }
    m_window.reset();
    gui::pump_pending();
}

TEST(FileChoosers, KindsOfFilesAndWhetherTheyAreWritten) {
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
            EXPECT_EQ(dialog.get_action() == Gtk::FILE_CHOOSER_ACTION_SAVE, row.saves);
            std::vector<std::string> filters;
            for (const auto& filter : dialog.list_filters()) {
                filters.push_back(Glib::VariantBase(gtk_file_filter_to_gvariant(filter->gobj())).print());
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

TEST_F(InterfaceTest, EachEntryOpensItsDialog) {
    // With an empty list there is nothing to load; engines are looked for instead.
    EXPECT_EQ(opened_by("Engine", "Load installed engine..."), "Find engines");
    m_place.write("engines.cfg", "name alpha\nfilename /usr/games/alpha\n");
    m_window->send_to_manager("load 1 filename " + m_place.add_engine("alpha", "name Alpha\nplay uci"));
    ASSERT_TRUE(gui::pump_until([&] { return m_window->get_title() == "Alpha"; }, std::chrono::seconds(30)));
    const struct {
        const char *menu, *label, *title;
    } rows[] = {{"Mode", "Learn Opening", "Learn Openings Hints"},
                {"Options", "Time Control...", "Time control"},
                {"Options", "Engine...", "Set Options"},
                {"Engine", "Install engine...", "Install engine"},
                {"Engine", "Load installed engine...", "Choose Engine"},
                {"Engine", "Find engines...", "Find engines"},
                {"Game", "Tags...", "Tags"},
                {"Tournament", "New / Edit", "Tournament"},
                {"Tournament", "Load", "Load Tournament"},
                {"Info", "About...", "About Velmora GUI"}};
    for (const auto& row : rows) EXPECT_EQ(opened_by(row.menu, row.label), row.title);
}

}  // namespace
}  // namespace velmora
