#include "views/moves/moves_view.h"

#include <gdk/gdkkeysyms.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "game/game.h"
#include "tests/support/gui_driver.h"

namespace velmora {
namespace {

using testing::ElementsAre;

Game loaded(std::string_view text) {
    Game game;
    game.parse_pgn(text);
    return game;
}

std::int32_t node_of(const Game& game, std::string_view san) {
    for (std::int32_t id = 0; id < game.tree().end_id(); ++id) {
        if (game.tree().has_node(id) && game.tree().node(id).san == san) return id;
    }
    return -1;
}

constexpr const char* annotated =
    "1. e4 $1 {[%clk 0:05:12][%eval 0.35] best by test} e5 (1... c5 $16 2. Nf3 (2. c3 d5) 2... Nc6) (1... "
    "e6) "
    "2. Nf3 Nc6 1-0";

class MovesViewTest : public testing::Test {
protected:
    MovesViewTest() {
        view.signal_move_chosen().connect([this](std::int32_t node) { chosen.push_back(node); });
        view.signal_request().connect([this](const MoveRequest& request) { requests.push_back(request); });
        view.signal_step().connect([this](int by) { steps.push_back(by); });
        window.set_default_size(300, 200);
        window.add(view);
        EXPECT_TRUE(gui::show_and_wait(window));
    }

    Gtk::TextView& text() { return *gui::find_widget<Gtk::TextView>(view); }
    static std::string shown(MovesView& in) {
        return gui::find_widget<Gtk::TextView>(in)->get_buffer()->get_text(true).raw();
    }
    /// Each character with the tags on it.
    static std::string styled(MovesView& in) {
        const auto buffer = gui::find_widget<Gtk::TextView>(in)->get_buffer();
        std::string all;
        for (auto at = buffer->begin(); at != buffer->end(); at++) {
            all += Glib::ustring(1, at.get_char()).raw();
            for (const auto& tag : at.get_tags()) all += "<" + std::to_string(tag->get_priority()) + ">";
        }
        return all;
    }
    std::string bold() {
        std::string marked;
        const auto buffer = text().get_buffer();
        for (auto at = buffer->begin(); at != buffer->end(); at++) {
            for (const auto& tag : at.get_tags()) {
                if (tag->property_weight_set() && tag->property_weight() == Pango::WEIGHT_BOLD)
                    marked += Glib::ustring(1, at.get_char()).raw();
            }
        }
        return marked;
    }
    gui::Point point_of(const std::string& word) {
        const auto buffer = text().get_buffer();
        Gtk::TextIter begin, end;
        EXPECT_TRUE(buffer->begin().forward_search(word, Gtk::TextSearchFlags(0), begin, end)) << word;
        Gdk::Rectangle place;
        text().get_iter_location(begin, place);
        int x = 0, y = 0;
        text().buffer_to_window_coords(Gtk::TEXT_WINDOW_TEXT, place.get_x() + 2, place.get_y() + 3, x, y);
        return {double(x), double(y)};
    }
    Gtk::Menu& menu() {
        return *Glib::wrap(GTK_MENU(gtk_menu_get_for_attach_widget(GTK_WIDGET(text().gobj()))->data));
    }
    Gtk::MenuItem* entry(const std::string& label) { return find_entry(menu(), label); }
    static Gtk::MenuItem* find_entry(Gtk::Menu& menu, const std::string& label) {
        for (Gtk::Widget* child : menu.get_children()) {
            auto* item = dynamic_cast<Gtk::MenuItem*>(child);
            std::string text = item ? item->get_label() : "";
            std::erase(text, '_');
            if (text == label) return item;
            Gtk::MenuItem* below =
                item && item->get_submenu() ? find_entry(*item->get_submenu(), label) : nullptr;
            if (below) return below;
        }
        return nullptr;
    }

    Gtk::Window window;
    MovesView view;
    std::vector<std::int32_t> chosen;
    std::vector<MoveRequest> requests;
    std::vector<int> steps;
};

TEST_F(MovesViewTest, SetsTheGameInColumnsOrAsRunningText) {
    view.set_sheet(MoveSheet(loaded(annotated).tree()));
    EXPECT_EQ(shown(view),
              "1.\te4! \u202F+0.35\u202F \u202F0:05:12\u202F\nbest by "
              "test\n1.\t\u2026\te5\n1...\u00A0c5\u00A0\u00B1 "
              "2.\u00A0Nf3\n2.\u00A0c3 d5\n2...\u00A0Nc6\n1...\u00A0e6\n2.\tNf3\tNc6\n1-\u2060"
              "0\n");
    view.set_layout(MovesLayout::run_on);
    EXPECT_EQ(shown(view),
              "1.\u00A0e4! \u202F+0.35\u202F \u202F0:05:12\u202F best by test "
              "1...\u00A0e5\n1...\u00A0c5\u00A0\u00B1 "
              "2.\u00A0Nf3\n2.\u00A0c3 d5\n2...\u00A0Nc6\n1...\u00A0e6\n2.\u00A0Nf3 Nc6 1-\u2060"
              "0\n");
}

/// Only rows that differ are replaced, and come out as if all had been set anew.
TEST_F(MovesViewTest, AChangedGameLooksLikeANewOne) {
    Game game = loaded(annotated);
    view.set_sheet(MoveSheet(game.tree()));
    const std::function<void()> changes[] = {
        [&] { game.promote(node_of(game, "c3")); },
        [&] { game.delete_variation(node_of(game, "e6")); },
        [&] { game.make_main_line(node_of(game, "d5")); },
        [&] { game.set_root_comment("Intro \xC3\xA9\xFF"); },
        [&] { game.set_symbol(node_of(game, "d5"), "$6"); },
        [&] { game.delete_from(node_of(game, "e4")); },
        [&] { game.undo_edit(); },
    };
    for (const auto& change : changes) {
        change();
        for (const auto layout : {MovesLayout::run_on, MovesLayout::columns}) {
            view.set_layout(layout);
            view.set_sheet(MoveSheet(game.tree()));
            view.set_current(node_of(game, "c5"));
            MovesView fresh;
            fresh.set_layout(layout);
            fresh.set_sheet(MoveSheet(game.tree()));
            fresh.set_current(node_of(game, "c5"));
            EXPECT_EQ(styled(view), styled(fresh));
        }
    }
}

TEST_F(MovesViewTest, KeepsTheCurrentMoveMarkedAndInView) {
    std::string moves;
    for (int i = 0; i < 100; ++i) moves += "Nf3 Nf6 Ng1 Ng8 ";
    const Game game = loaded(moves + "e4 *");
    view.set_sheet(MoveSheet(game.tree()));
    gui::pump_pending();
    const auto bar = view.get_vadjustment();
    view.set_current(1);
    EXPECT_EQ(bold(), "Nf3");
    view.set_current(4);
    EXPECT_EQ(bold(), "Ng8");
    gui::pump_pending();
    EXPECT_EQ(bar->get_value(), 0) << "it is in view";
    view.set_current(node_of(game, "e4"));
    EXPECT_EQ(bold(), "e4");
    EXPECT_TRUE(gui::pump_until([&] { return bar->get_value() > bar->get_page_size(); }));
    view.set_current(0);
    EXPECT_EQ(bold(), "");
    EXPECT_TRUE(gui::pump_until([&] { return bar->get_value() < 10; })) << "the margin may stay hidden";
}

TEST_F(MovesViewTest, MouseAndKeysSayWhatThePersonWants) {
    const Game game = loaded(annotated);
    view.set_sheet(MoveSheet(game.tree()));
    gui::pump_pending();
    const auto area = text().get_window(Gtk::TEXT_WINDOW_TEXT);
    gui::click(area, point_of("c3"));
    gui::click(area, point_of("0:05:12"));
    gui::click(area, point_of("best by"));  // belongs to nobody
    view.set_current(node_of(game, "c5"));
    for (const int key : {GDK_KEY_Up, GDK_KEY_Down, GDK_KEY_Delete}) gui::press_key(text(), unsigned(key));
    gui::press_key(text(), GDK_KEY_z, Gdk::CONTROL_MASK);
    view.set_current(node_of(game, "Nc6"));
    gui::press_key(text(), GDK_KEY_Down);  // there is no other
    EXPECT_THAT(chosen, ElementsAre(node_of(game, "c3"), node_of(game, "e4"), node_of(game, "e5"),
                                    node_of(game, "e6")));
    ASSERT_EQ(requests.size(), 2U);
    EXPECT_EQ(requests[0].action, MoveAction::delete_from_here);
    EXPECT_EQ(requests[0].node, node_of(game, "c5"));
    EXPECT_EQ(requests[1].action, MoveAction::undo);
}

TEST_F(MovesViewTest, TheWheelStepsThroughTheGame) {
    const auto turn = [this](GdkScrollDirection direction, double by, unsigned modifiers = 0) {
        GdkEvent* event = gdk_event_new(GDK_SCROLL);
        event->scroll.window = GDK_WINDOW(g_object_ref(text().get_window(Gtk::TEXT_WINDOW_TEXT)->gobj()));
        event->scroll.direction = direction;
        event->scroll.delta_y = by;
        event->scroll.state = modifiers;
        gdk_event_set_device(event,
                             gdk_seat_get_pointer(gdk_display_get_default_seat(gdk_display_get_default())));
        gtk_main_do_event(event);
        gdk_event_free(event);
    };
    turn(GDK_SCROLL_DOWN, 0);
    turn(GDK_SCROLL_UP, 0);
    turn(GDK_SCROLL_DOWN, 0, GDK_CONTROL_MASK);
    turn(GDK_SCROLL_SMOOTH, 0.6);
    turn(GDK_SCROLL_SMOOTH, 0.6);
    EXPECT_THAT(steps, ElementsAre(1, -1, 1));
}

TEST_F(MovesViewTest, TheMenuOffersWhatMeansSomething) {
    const Game game = loaded(annotated);
    view.set_sheet(MoveSheet(game.tree()));
    const auto sensitive = [this] {
        std::string names;
        for (const char* label : {"Promote variation", "Make main line", "Delete variation",
                                  "Delete from here", "!  good move", "No symbol", "Comment..."}) {
            auto* found = entry(label);
            names += !found ? '?' : found->get_sensitive() ? '+' : '-';
        }
        return names;
    };
    const auto open = [this](const char* san, const Game& of) {
        menu().popdown();
        view.set_current(san ? node_of(of, san) : 0);
        gui::press_key(text(), GDK_KEY_Menu);
    };
    open(nullptr, game);
    EXPECT_EQ(sensitive(), "-------");
    open("e4", game);
    EXPECT_EQ(sensitive(), "---+-++") << "it has this symbol";
    open("c5", game);
    EXPECT_EQ(sensitive(), "+++++++");
    entry("Promote variation")->activate();
    entry("\u2213  Black is better")->activate();
    ASSERT_EQ(requests.size(), 2U);
    EXPECT_EQ(requests[0].action, MoveAction::promote);
    EXPECT_EQ(requests[1].action, MoveAction::set_symbol);
    EXPECT_EQ(requests[1].glyph, "$17");
    EXPECT_EQ(requests[1].node, node_of(game, "c5"));
}

TEST_F(MovesViewTest, AScreenReaderFindsTheMovesByName) {
    Game game = loaded(annotated);
    view.set_sheet(MoveSheet(game.tree()));
    AtkObject* const object = gtk_widget_get_accessible(GTK_WIDGET(text().gobj()));
    const auto names = [object] {
        std::vector<std::string> all;
        for (int i = 0; i < atk_object_get_n_accessible_children(object); ++i) {
            AtkObject* child = atk_object_ref_accessible_child(object, i);
            all.emplace_back(atk_object_get_name(child));
            g_object_unref(child);
        }
        return all;
    };
    EXPECT_THAT(names(), testing::Contains("1. e4, good move, +0.35, clock 0:05:12"));
    EXPECT_THAT(names(), testing::Contains("1... c5, White is better, variation"));
    EXPECT_EQ(names().back(), "1-0");
    AtkObject* second = atk_object_ref_accessible_child(object, 1);
    atk_action_do_action(ATK_ACTION(second), 0);
    EXPECT_THAT(chosen, ElementsAre(node_of(game, "e5")));
    view.set_current(chosen.front());
    AtkStateSet* states = atk_object_ref_state_set(second);
    EXPECT_TRUE(atk_state_set_contains_state(states, ATK_STATE_SELECTED));
    g_object_unref(states);
    // Fewer moves: who still holds one learns that it is gone.
    game.delete_from(node_of(game, "e5"));
    game.delete_from(node_of(game, "c5"));
    game.delete_from(node_of(game, "e6"));
    view.set_sheet(MoveSheet(game.tree()));
    EXPECT_THAT(names(), ElementsAre("1. e4, good move, +0.35, clock 0:05:12", "1-0"));
    view.set_sheet({});
    EXPECT_EQ(atk_object_get_name(second), nullptr);
    g_object_unref(second);
}

}  // namespace
}  // namespace velmora
