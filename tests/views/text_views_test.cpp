#include <gdk/gdkkeysyms.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/support/gui_driver.h"
#include "views/text/analysis_window.h"
#include "views/text/comment_editor.h"
#include "views/text/pgn_view.h"

namespace velmora {
namespace {

Gtk::TextView& view_in(Gtk::Widget& window, int n = 0) {
    return *gui::find_widget<Gtk::TextView>(window, {}, n);
}

std::string text_in(Gtk::Widget& window, int n = 0) {
    return view_in(window, n).get_buffer()->get_text(true).raw();
}

/// The panes as they stand in the window: Black's is above.
constexpr int black_pane = 0, white_pane = 1;

TEST(AnalysisWindow, PanesAreRunningLists) {
    AnalysisWindow window;
    window.add_white("ab");
    window.add_white("info depth 1\n");
    window.add_white("info depth 2\n");
    window.add_black("\u00E9\u00E9");  // four characters with its line feeds, which stay
    window.add_black("zero ");
    ASSERT_TRUE(gui::show_and_wait(window));
    EXPECT_EQ(text_in(window, white_pane), "ab\n\ninfo depth 1\ninfo depth 2\n\n\n");
    EXPECT_EQ(text_in(window, black_pane), "\u00E9\u00E9\n\nzero \n\n");
    window.add_white("info depth 3\n");
    window.add_black(std::string("x\0y\xFF", 4));
    gui::pump_pending();
    EXPECT_EQ(text_in(window, white_pane), "ab\n\ninfo depth 1\ninfo depth 2\ninfo depth 3\n\n\n");
    EXPECT_EQ(text_in(window, black_pane), "\u00E9\u00E9\n\nzero x?y?\n\n");
    window.clear();
    EXPECT_EQ(text_in(window, white_pane), "");
    EXPECT_EQ(gui::find_widget<Gtk::Frame>(window, {}, 0)->get_label(), "Black");
    EXPECT_FALSE(view_in(window, 1).get_editable());
}

TEST(AnalysisWindow, StaysAtItsEndAndForgetsTheOldest) {
    AnalysisWindow window;
    for (int line = 0; line < 200; ++line) window.add_white("line " + std::to_string(line) + "\n");
    gui::pump_pending();
    ASSERT_TRUE(gui::show_and_wait(window));
    const auto position = view_in(window, white_pane).get_vadjustment();
    const auto at_end = [&] {
        return position->get_upper() > position->get_page_size() &&
               position->get_value() == position->get_upper() - position->get_page_size();
    };
    EXPECT_TRUE(gui::pump_until(at_end));
    for (int line = 200; line < 12000; ++line) window.add_white("line " + std::to_string(line) + "\n");
    gui::pump_pending();
    EXPECT_TRUE(gui::pump_until(at_end, std::chrono::seconds(20)));
    const std::string text = text_in(window, white_pane);
    EXPECT_THAT(text, testing::EndsWith("line 11998\nline 11999\n\n\n"));
    const auto lines = std::count(text.begin(), text.end(), '\n');
    EXPECT_GE(lines, 8999);
    EXPECT_LE(lines, 10000);
    EXPECT_THAT(text, testing::StartsWith("line ")) << "whole lines go";
}

class PgnViewTest : public testing::Test {
protected:
    PgnViewTest() {
        view.signal_clicked().connect([this](std::int64_t offset) { clicks.push_back(offset); });
        EXPECT_TRUE(gui::show_and_wait(view));
    }
    /// The text under the mark of the current move.
    std::string marked() {
        const auto buffer = view_in(view).get_buffer();
        const auto tag = buffer->get_tag_table()->lookup("blue_move");
        auto begin = buffer->begin();
        if (!begin.begins_tag(tag) && !begin.forward_to_tag_toggle(tag)) return {};
        auto end = begin;
        end.forward_to_tag_toggle(tag);
        return buffer->get_text(begin, end, true);
    }
    void click_on(int character) {
        auto& text = view_in(view);
        Gdk::Rectangle place;
        text.get_iter_location(text.get_buffer()->get_iter_at_offset(character), place);
        int x = 0, y = 0;
        text.buffer_to_window_coords(Gtk::TEXT_WINDOW_TEXT, place.get_x() + place.get_width() / 2,
                                     place.get_y() + place.get_height() / 2, x, y);
        gui::click(text.get_window(Gtk::TEXT_WINDOW_TEXT), {double(x), double(y)});
    }

    PgnView view;
    std::vector<std::int64_t> clicks;
    const std::string game = "[White \"J\xC3\xBCrgen\"]\n\n1.e4 e5 2.Nf3 Nc6 *\n\n";
};

TEST_F(PgnViewTest, HighlightCountsCharacters) {
    view.set_text(game);
    view.highlight(1, 6);
    EXPECT_EQ(marked(), "White");
    view.highlight(0, 9);
    view.highlight(5, 4);
    EXPECT_EQ(marked(), "White") << "the earlier mark stays";
    // The range of "e4" in bytes marks the next character on: a letter of two bytes stands ahead.
    const auto e4 = std::int64_t(game.find("e4"));
    view.highlight(e4, e4 + 2);
    EXPECT_EQ(marked(), "4 ");
    view.highlight(std::int64_t(game.find(" Nc6")) - 1, 1'000'000'000'000);
    EXPECT_EQ(marked(), " Nc6 *\n\n") << "clipped at the end";
    view.set_text(game + "more");
    EXPECT_EQ(marked(), "") << "new contents carry no mark";
    EXPECT_EQ(text_in(view), game + "more");
}

TEST_F(PgnViewTest, ClickTellsTheEndOfItsWordInBytes) {
    view.set_text(game);
    gui::pump_pending();
    const int shift = 1;  // bytes ahead of characters behind the umlaut
    click_on(int(game.find("Nc6")) - shift + 1);
    EXPECT_THAT(clicks, testing::ElementsAre(game.find("Nc6") + 2));
}

TEST_F(PgnViewTest, BadBytesKeepTheCount) {
    const std::string text = std::string("J\xFC \0 e4 e5", 10);
    view.set_text(text);
    EXPECT_EQ(text_in(view), "J? ? e4 e5");
    gui::pump_pending();
    click_on(5);
    EXPECT_THAT(clicks, testing::ElementsAre(6));
}

TEST(CommentEditor, GivesBackWhatItWasGiven) {
    CommentEditor editor;
    ASSERT_TRUE(gui::show_and_wait(editor));
    const std::string latin = "bl\xF6\x64\0.";
    editor.set_text(latin);
    EXPECT_EQ(text_in(editor), "bl?d");
    EXPECT_EQ(editor.text(), latin) << "not damaged by being looked at";
    view_in(editor).grab_focus();
    gui::press_key(editor, GDK_KEY_End, Gdk::CONTROL_MASK);
    gui::type_text(editor, "!\n(2)");
    EXPECT_EQ(editor.text(), "bl?d!\n(2)");
    editor.set_text("");
    EXPECT_EQ(editor.text(), "");
}

TEST(CommentEditor, LeavingOrHidingApplies) {
    CommentEditor editor;
    int applied = 0;
    editor.signal_applied().connect([&] { ++applied; });
    ASSERT_TRUE(gui::show_and_wait(editor));
    const auto hides_before = applied;
    GdkEventFocus event{GDK_FOCUS_CHANGE, editor.get_window()->gobj(), TRUE, FALSE};
    gtk_widget_send_focus_change(GTK_WIDGET(view_in(editor).gobj()), reinterpret_cast<GdkEvent*>(&event));
    EXPECT_EQ(applied, hides_before + 1);
    editor.set_text("kept");
    editor.close();
    ASSERT_TRUE(gui::pump_until([&] { return !editor.get_visible(); }));
    EXPECT_EQ(applied, hides_before + 2);
    EXPECT_EQ(editor.text(), "kept") << "closing hides the window, it does not destroy it";
}

}  // namespace
}  // namespace velmora
