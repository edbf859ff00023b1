#include <gtkmm/messagedialog.h>
#include <gtkmm/settings.h>

#include "dialogs/engine/install_dialog.h"
#include "dialogs/engine/installed_list.h"
#include "tests/dialogs/dialog_test.h"

namespace velmora {
namespace {

EngineVariables engine(const std::string& name, const std::string& elo, const std::string& handicap) {
    EngineVariables variables;
    variables.name = name;
    variables.filename = "/usr/games/" + name;
    variables.protocol = Protocol::uci;
    variables.elo = elo;
    variables.handicap = handicap;
    return variables;
}

class EngineDialogsTest : public DialogTest {
protected:
    void install_without_asking(std::initializer_list<EngineVariables> engines) {
        InstalledEngines list(m_directory);
        for (const auto& each : engines) list.add_engine(each);
        list.write_engines_cfg();
    }
    /// "name elo handicap" of each installed engine.
    std::string installed() const {
        InstalledEngines list(m_directory);
        list.read_engines_cfg();
        std::string text;
        for (const auto& [name, each] : list.engines()) {
            text += "[" + name + " " + each.elo + " " + each.handicap + "]";
        }
        return text;
    }
    void install(const EngineVariables& variables, const std::function<void(Gtk::Dialog&)>& reply) {
        InstallDialog dialog(m_parent, variables, InstalledEngines(m_directory));
        answering(reply, [&] {
            dialog.install();
            return true;
        });
    }
    std::string choose(const std::function<void(Gtk::Dialog&)>& reply) {
        InstalledList dialog(m_parent, InstalledEngines(m_directory));
        const auto chosen = answering(reply, [&] { return dialog.choose(); });
        return chosen ? chosen->name + " " + chosen->filename : "none";
    }
    static std::string fields(Gtk::Dialog& dialog) {
        std::string texts;
        for (auto* entry : in_grid<Gtk::Entry>(dialog)) texts += "[" + entry->get_text().raw() + "]";
        return texts;
    }
};

TEST_F(EngineDialogsTest, InstallRecordsTheEngineUnderTheNameOfTheEntry) {
    install(engine("alpha", "2600", ""), [](Gtk::Dialog& dialog) {
        EXPECT_EQ(fields(dialog), "[alpha][2600][]");
        in_grid<Gtk::Entry>(dialog)[0]->set_text("  My Alpha ");
        in_grid<Gtk::Entry>(dialog)[2]->set_text("25");
        press(dialog, "OK");
    });
    EXPECT_EQ(installed(), "[My Alpha 2600 25]");
    EXPECT_NE(content("engines.cfg").find("filename /usr/games/alpha\nprotocol uci\n"), std::string::npos);

    install(engine("My Alpha", "1", "2"), [](Gtk::Dialog& dialog) {
        EXPECT_EQ(fields(dialog), "[My Alpha][2600][25]") << "of the installed one";
        in_grid<Gtk::Entry>(dialog)[1]->grab_focus();
        gui::type_text(dialog, "2700\n");
    });
    EXPECT_EQ(installed(), "[My Alpha 2700 25]") << "replaced by Enter";

    install(engine("other", "", ""), pressing("CANCEL"));
    install(engine("other", "", ""), escape);
    install(engine("other", "", ""), [](Gtk::Dialog& dialog) {
        in_grid<Gtk::Entry>(dialog)[0]->set_text("   ");
        press(dialog, "OK");
    });
    EXPECT_EQ(installed(), "[My Alpha 2700 25]");
}

TEST_F(EngineDialogsTest, InstallShowsTheOptionsWholeWhateverTheFont) {
    EngineVariables variables = engine("alpha", "", "");
    for (const char* line : {"name A type check default true", "name B type check default no",
                             "name C type button", "name D type spin default 3 min 0 max 9",
                             "name E type string default /x y", "name F type combo default p var p var q",
                             "name ProbeDepthOfTablebases type spin default 77 min 0 max 99",
                             "name ProbeLimitOfTablebases type check default true"}) {
        variables.add_option(Option(std::string("option ") + line));
    }
    auto font = Gtk::Settings::get_default()->property_gtk_font_name();
    const Glib::ustring ordinary = font;
    font = "Sans 40";
    install(variables, [](Gtk::Dialog& dialog) {
        gui::pump_pending();
        std::string texts;
        for (auto* label : in_grid<Gtk::Label>(*gui::find_widget<FittingScroller>(dialog))) {
            texts += label->get_text() + "|";
            EXPECT_FALSE(label->get_layout()->is_ellipsized()) << label->get_text();
        }
        EXPECT_EQ(texts,
                  "A:  yes|B:  no|D:  3|E:  /x y|F:  p|ProbeDepthOfTablebases:  77|"
                  "ProbeLimitOfTablebases:  yes|");
        EXPECT_LT(dialog.get_allocated_width(), dialog.get_screen()->get_width());
        press(dialog, "CANCEL");
    });
    font = ordinary;
}

TEST_F(EngineDialogsTest, AListThatCannotBeWrittenIsTold) {
    InstallDialog dialog(m_parent, engine("beta", "", ""), InstalledEngines(m_directory));
    std::filesystem::create_directories(m_directory + "engines.cfg/x");  // even root cannot write there
    std::filesystem::create_directories(m_directory + "engines.cfg~/x");
    gui::Answer<InstallDialog> ok([](InstallDialog& shown) {
        press(shown, "OK");
        return true;
    });
    std::string told;
    gui::Answer<Gtk::MessageDialog> seen([&](Gtk::MessageDialog& box) {
        told = box.property_secondary_text().get_value();
        enter(box);
        return true;
    });
    dialog.install();
    EXPECT_EQ(told, "InstalledEngines::write_engines_cfg()   open file error");
}

TEST_F(EngineDialogsTest, InstalledListLoads) {
    install_without_asking({engine("beta", "", ""), engine("Caf\xE9", "", ""), engine("alpha", "", "")});
    EXPECT_EQ(choose(pressing("LOAD")), "Caf\xE9 /usr/games/Caf\xE9")
        << "the first row; the name is the file's, not the one that is shown";
    EXPECT_EQ(choose([](Gtk::Dialog& dialog) {
                  gui::double_click(list_in(dialog).get_bin_window(), middle_of_row(list_in(dialog), 2));
              }),
              "beta /usr/games/beta");
    EXPECT_EQ(choose(pressing("CANCEL")), "none");
    EXPECT_EQ(choose(escape), "none");
}

TEST_F(EngineDialogsTest, InstalledListUninstalls) {
    install_without_asking({engine("alpha", "", ""), engine("beta", "", "")});
    EXPECT_EQ(choose([](Gtk::Dialog& dialog) {
                  list_in(dialog).get_selection()->unselect_all();
                  press(dialog, "UNINSTALL");
              }),
              "none");
    EXPECT_EQ(installed(), "[alpha  ][beta  ]") << "nothing without a selected row";
    EXPECT_EQ(choose([](Gtk::Dialog& dialog) {
                  click_row(list_in(dialog), 1);
                  press(dialog, "UNINSTALL");
              }),
              "none");
    EXPECT_EQ(installed(), "[alpha  ]");
}

TEST_F(EngineDialogsTest, AnEmptyListTakesAllButtons) {
    for (const char* label : {"UNINSTALL", "CANCEL"}) EXPECT_EQ(choose(pressing(label)), "none");
    EXPECT_TRUE(stays_open_at_load([&] { choose([](Gtk::Dialog&) {}); }));
    EXPECT_FALSE(std::filesystem::exists(m_directory + "engines.cfg"));
}

}  // namespace
}  // namespace velmora
