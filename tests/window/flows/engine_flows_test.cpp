#include "window/flows/engine_flows.h"

#include <stdexcept>

#include "engine/store/installed_engines.h"
#include "tests/window/flows/flows_test.h"

namespace velmora {
namespace {

class EngineFlowsTest : public FlowsTest {
protected:
    std::optional<EngineVariables> seated;
    EngineFlows engines{session, screen, dialogs, link, modes, engine, [this] {
                            return seated ? *seated : throw std::logic_error("nobody");
                        }};
};

TEST_F(EngineFlowsTest, AnEngineIsLoadedByFileOrByName) {
    engines.load_installed();
    EXPECT_THAT(dialogs.installed_paths, IsEmpty()) << "nothing was found, and nothing is installed";
    home.write("engines.cfg", "name Some name\nfilename /opt/some engine\n");
    engines.load();
    dialogs.files[FileKind::engine] = "/opt/some engine";
    engines.load();
    engines.load_installed();
    dialogs.engine.emplace();
    engines.load_installed();
    EXPECT_THAT(referee.take(), IsEmpty()) << "a question was left, or nothing was chosen";

    const std::string board = "0 setboard " + session.position().fen();
    dialogs.protocol = Protocol::xboard_v2;
    engines.load();
    EXPECT_THAT(referee.take(), ElementsAre("0 load 3 filename /opt/some engine", board));
    EXPECT_EQ(screen.title, "Loading some engine...");
    dialogs.engine->name = "Some name";
    screen.select_mode(Mode::analyze_position);
    referee.take();
    engines.load_installed();
    EXPECT_THAT(referee.take(), ElementsAre("0 load 0 name Some name", board, "0 analyzeposition"));
    EXPECT_EQ(screen.title, "Loading Some name...");
    select(Mode::tournament);
    engines.load_installed();
    EXPECT_THAT(referee.take(), ElementsAre("0 load 0 name Some name")) << "the match has its own position";
}

TEST_F(EngineFlowsTest, WithoutAnEngineOrItsListThePersonIsTold) {
    home.write("engines.cfg", "name alpha\nfilename /usr/games/alpha\n");
    engines.install();
    engines.edit_options();
    dialogs.broken = true;
    dialogs.do_to_options = [](auto&) { throw std::invalid_argument("no number"); };
    engines.load_installed();
    seated.emplace().name = "Alpha";
    engines.install();
    engines.edit_options();
    EXPECT_THAT(
        dialogs.told,
        ElementsAre("No engine to install|you should first load an engine\n before installialling an engine",
                    "No engine found|use menu 'Engine' to load an engine'",
                    "The list of engines can't be used|no list", "The engine was not installed|no list",
                    "The options can't be shown|no number"));
    dialogs.broken = false;
    engines.install();
    EXPECT_THAT(dialogs.installed, ElementsAre("Alpha"));
    EXPECT_THAT(referee.take(), IsEmpty());
}

TEST_F(EngineFlowsTest, EachValueThatHasChangedIsSent) {
    seated.emplace().name = "Alpha";
    for (const char* line : {"name Clear Hash type button", "name Hash type spin default 16 min 1 max 64",
                             "name Style type combo default a var a var b"}) {
        seated->add_option(Option(std::string("option ") + line));
    }
    engines.edit_options();
    dialogs.do_to_options = [](std::vector<Option>& options) {
        options[0].changed = true;  // a button has no value
        options[1].value = "32";
        options[2].value = "b";
    };
    engines.edit_options();
    EXPECT_THAT(referee.take(),
                ElementsAre("0 setoption name Hash value 32", "0 setoption name Style value b"));
}

TEST_F(EngineFlowsTest, SpinsThatCannotBeShownAreAskedForAsTexts) {
    const std::pair<const char*, const char*> rows[] = {
        {"min -9223372036854775808 max 9223372036854775807 default 0", "spin"},
        {"min 0 max 18446744073709551615 default 0", "string"},
        {"max 10 default 1", "string"},
        {"min 0 max many default 1", "string"},
        {"min 0 max 10 default 1.5", "string"},
        {"min 10 max 0 default 1", "string"},
        {"min 0 max 10 default 99", "spin"},
    };
    for (const auto& row : rows) {
        seated.emplace().name = "Alpha";
        seated->add_option(Option(std::string("option name S type spin ") + row.first));
        dialogs.do_to_options = [&](const auto& options) {
            EXPECT_EQ(options.at(0).type, row.second) << row.first;
        };
        engines.edit_options();
    }
}

TEST_F(EngineFlowsTest, TheTimeControlGoesToClocksAndReferee) {
    engines.choose_time_control();
    EXPECT_THAT(referee.take(), IsEmpty());
    dialogs.time_control = Level("fixed_depth 7");
    engines.choose_time_control();
    EXPECT_THAT(referee.take(), ElementsAre("0 level fixed_depth 7"));
    EXPECT_THAT(screen.calls, ElementsAre("reset clocks fixed_depth 7"));
    EXPECT_EQ(session.level().text(), "fixed_depth 7");
}

TEST_F(EngineFlowsTest, WhatIsFoundIsInstalledUnderANameOfItsOwn) {
    home.write("engines.cfg", "name Alpha\nfilename /usr/games/alpha\n");
    EngineVariables found;
    found.set_engine_name("Alpha");
    found.filename = "/opt/alpha";
    found.protocol = Protocol::xboard_v2;
    dialogs.found = {found};
    engines.find();
    EXPECT_THAT(dialogs.installed_paths, ElementsAre("/usr/games/alpha"));
    InstalledEngines list;
    list.read_engines_cfg();
    ASSERT_TRUE(list.engines().contains("Alpha 2"));
    EXPECT_EQ(list.engines().at("Alpha 2").filename, "/opt/alpha");
    EXPECT_EQ(list.engines().at("Alpha").filename, "/usr/games/alpha");
}

TEST_F(EngineFlowsTest, StrengthIsOneSliderOverTheEnginesOwnOptions) {
    const auto options_for = [this](std::initializer_list<const char*> lines,
                                    std::optional<std::int64_t> value) {
        seated.emplace();
        seated->name = "Some name";
        for (const char* line : lines) {
            const Option option(line);
            seated->options[option.name] = option;
        }
        dialogs.strength = value;
        referee.take();
        engines.choose_strength();
        return referee.take();
    };
    const char* const elo = "option name UCI_Elo type spin default 1350 min 1350 max 2850";
    const char* const limit = "option name UCI_LimitStrength type check default false";
    const char* const skill = "option name Skill Level type spin default 20 min 0 max 20";
    EXPECT_THAT(
        options_for({elo, limit, skill}, 1500),
        ElementsAre("0 setoption name UCI_LimitStrength value true", "0 setoption name UCI_Elo value 1500"));
    EXPECT_FALSE(dialogs.shown_strength.limited);
    EXPECT_THAT(options_for({elo, limit, skill}, {}),
                ElementsAre("0 setoption name UCI_LimitStrength value false"));
    EXPECT_THAT(options_for({elo, skill}, 3), ElementsAre("0 setoption name Skill Level value 3"));
    EXPECT_THAT(options_for({skill}, {}), ElementsAre("0 setoption name Skill Level value 20"));
    EXPECT_THAT(options_for({elo, "option name Skill Level type string default x"}, 3), IsEmpty());
    EXPECT_THAT(dialogs.told, ElementsAre(testing::StartsWith("This engine plays with full strength only|")));
}

}  // namespace
}  // namespace velmora
