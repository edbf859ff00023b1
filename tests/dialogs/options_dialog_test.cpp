#include "dialogs/engine/options_dialog.h"

#include <sstream>
#include <stdexcept>

#include "engine/store/option_lists.h"
#include "tests/dialogs/dialog_test.h"

namespace velmora {
namespace {

Option option(const std::string& line) { return Option("option name " + line); }

std::vector<Option> copies(const std::string& type, int count) {
    std::vector<Option> options(static_cast<std::size_t>(count),
                                option("x type " + type + " default 1 min 0 max 9"));
    return options;
}

std::vector<Option> operator+(std::vector<Option> left, const std::vector<Option>& right) {
    left.insert(left.end(), right.begin(), right.end());
    return left;
}

class OptionsDialogTest : public DialogTest {
protected:
    /// Where the widgets of class W stand: "row/column ", with "+width" where one spans columns.
    template <class W>
    static std::string places_of(Gtk::Dialog& dialog) {
        std::ostringstream places;
        for (W* widget : in_grid<W>(dialog)) {
            auto* grid = static_cast<Gtk::Grid*>(widget->get_parent());
            places << grid->child_property_top_attach(*widget).get_value() << '/'
                   << grid->child_property_left_attach(*widget).get_value();
            if (const int width = grid->child_property_width(*widget); width > 1) places << '+' << width;
            places << ' ';
        }
        return places.str();
    }
    void run(std::vector<Option>& options, const std::function<void(Gtk::Dialog&)>& reply) {
        OptionsDialog dialog("Set Options", m_parent, options);
        answering(reply, [&] { return dialog.run(); });
    }
};

TEST_F(OptionsDialogTest, WidgetsStandInFourColumns) {
    auto five_checks = copies("check", 5) + copies("button", 1);
    OptionsDialog first("Set Options", m_parent, five_checks);
    EXPECT_EQ(places_of<OptionCheckButton>(first), "0/0 0/1 0/2 0/3 1/0 ");
    EXPECT_EQ(places_of<OptionButton>(first), "2/0 ");

    auto all = copies("string", 2) + copies("combo", 1) + copies("spin", 3) + copies("button", 1) +
               copies("check", 1);
    OptionsDialog second("Set Options", m_parent, all);
    EXPECT_EQ(places_of<OptionCheckButton>(second), "0/0 ");
    EXPECT_EQ(places_of<OptionButton>(second), "1/0 ");
    EXPECT_EQ(places_of<OptionSpinButton>(second), "2/1 2/3 3/1 ");
    EXPECT_EQ(places_of<OptionComboBoxText>(second), "4/1 ");
    EXPECT_EQ(places_of<OptionEntry>(second), "5/1+3 6/1+3 ");
}

TEST_F(OptionsDialogTest, WhatTheUserDoesStandsInTheOptionsAtOnce) {
    std::vector<Option> options{
        option("Ponder type check default true"),
        option("Odd type check default yes"),
        option("Clear Hash type button"),
        option("Hash type spin default 64 min 1 max 1024"),
        option("Style type combo default Normal var Solid var Normal var Caf\xE9"),
        option("Path type string default <empty>"),
    };
    for (auto& each : options) each.changed = true;
    const auto before = options;
    run(options, [&](Gtk::Dialog& dialog) {
        for (const auto& each : options) EXPECT_FALSE(each.changed) << each.name;
        EXPECT_TRUE(gui::find_labelled<OptionCheckButton>(dialog, "Ponder")->get_active());
        EXPECT_FALSE(gui::find_labelled<OptionCheckButton>(dialog, "Odd")->get_active());
        EXPECT_EQ(options[1].value, "yes") << "shown as off, but not changed by being shown";
        press(dialog, "Ponder");
        press(dialog, "Clear Hash");
        auto* spin = gui::find_widget<OptionSpinButton>(dialog);
        spin->spin(Gtk::SPIN_STEP_FORWARD, 0);
        EXPECT_EQ(options[3].value, "65");
        spin->spin(Gtk::SPIN_PAGE_FORWARD, 0);
        EXPECT_EQ(options[3].value, "115");
        spin->spin(Gtk::SPIN_END, 0);
        auto* combo = gui::find_widget<OptionComboBoxText>(dialog);
        EXPECT_EQ(combo->get_active_text(), "Normal");
        combo->set_active(2);
        gui::find_widget<OptionEntry>(dialog)->set_text("/tmp/x y");
        dialog.close();  // leaving it in this way keeps the changes all the same
    });
    std::string values;
    for (const auto& each : options) values += each.value + (each.changed ? "! " : " ");
    EXPECT_EQ(values, "false! yes ! 1024! Caf\xE9! /tmp/x y! ");
    EXPECT_EQ(option_lists::changed(before, options).size(), 4U) << "a button has no value";
}

TEST_F(OptionsDialogTest, ATypedNumberCountsWhenEnterAnswers) {
    std::vector<Option> options{option("Hash type spin default 64 min 1 max 1024")};
    run(options, [&](Gtk::Dialog& dialog) {
        auto* spin = gui::find_widget<OptionSpinButton>(dialog);
        spin->grab_focus();
        spin->select_region(0, -1);
        gui::type_text(dialog, "256x\n");
    });
    EXPECT_EQ(options[0].value, "256");
}

TEST_F(OptionsDialogTest, NumbersAtTheEdgeOf64Bits) {
    std::vector<Option> options{
        option("Nodes type spin default 5 min -9223372036854775808 max 9223372036854775807")};
    OptionsDialog dialog("Set Options", m_parent, options);
    auto* spin = gui::find_widget<OptionSpinButton>(dialog);
    spin->spin(Gtk::SPIN_END, 0);
    EXPECT_EQ(options[0].value, "9223372036854775807");
    spin->spin(Gtk::SPIN_HOME, 0);
    EXPECT_EQ(options[0].value, "-9223372036854775808");
}

TEST_F(OptionsDialogTest, OddOptions) {
    std::vector<Option> options{
        option("No Choices type combo default x"),
        option("Beyond type spin default 99 min 0 max 10"),
        option("Unknown type slider default 3"),
        option("Caf\xE9 <b> _x type check default false"),
        option(std::string(5000, 'n') + " type string default " + std::string(100'000, 'v')),
    };
    options.push_back(Option());
    const auto before = options;
    run(options, [&](Gtk::Dialog& dialog) {
        EXPECT_EQ(gui::find_widget<OptionComboBoxText>(dialog)->get_active_row_number(), -1);
        EXPECT_EQ(gui::find_widget<OptionSpinButton>(dialog)->get_value(), 10) << "fitted into its range";
        EXPECT_EQ(gui::find_widget<OptionCheckButton>(dialog)->get_label(), "Caf? <b> _x");
        EXPECT_LT(dialog.get_allocated_width(), 1200);
        press(dialog, "OK");
    });
    EXPECT_TRUE(option_lists::changed(before, options).empty()) << "showing changes nothing";

    for (const char* text : {"x", "", "99999999999999999999"}) {
        std::vector<Option> bad(1, option("Hash type spin default 1 min 0 max 9"));
        bad[0].max = text;
        EXPECT_THROW(OptionsDialog("Set Options", m_parent, bad), std::invalid_argument) << text;
    }
}

TEST_F(OptionsDialogTest, AHundredOptionsAreShown) {
    auto many = copies("check", 60) + copies("spin", 60) + copies("string", 30);
    run(many, [&](Gtk::Dialog& dialog) {
        EXPECT_TRUE(places_of<OptionCheckButton>(dialog).ends_with(" 14/3 "));
        EXPECT_EQ(in_grid<OptionSpinButton>(dialog).size(), 40U) << "the 101st option is left out";
        EXPECT_LT(dialog.get_allocated_height(), dialog.get_screen()->get_height() * 0.95)
            << "the rest is scrolled to";
        press(dialog, "OK");
    });
    std::vector<Option> none;
    run(none, enter);
}

}  // namespace
}  // namespace velmora
