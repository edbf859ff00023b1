#include <filesystem>
#include <sstream>
#include <stdexcept>

#include "engine/home_dir.h"
#include "engine/installed_engines.h"
#include "tests/engine/engine_fixture.h"

namespace fs = std::filesystem;

namespace velmora {

namespace {

const std::string example = R"(#                       Installed engines
#

name Alpha 1.0
filename /usr/local/bin/alpha
protocol uci
elo 2600
handicap 10
setoption name Hash value 128
setoption name Ponder value false

name Beta
filename /usr/games/beta
protocol xboard_v2
setoption name xboard_memory value 256
)";

std::string read_and_written(const std::string& text) {
    InstalledEngines engines("");
    std::istringstream in(text);
    engines.read(in);
    std::ostringstream out;
    engines.write(out);
    return out.str();
}

const std::string head = "#                       Installed engines\n#\n";

TEST(InstalledEnginesText, ReadsWhatItWrites) { EXPECT_EQ(read_and_written(example), example); }

TEST(InstalledEnginesText, ReadsRowByRow) {
    struct Row {
        const char* text;
        const char* written;
    };
    const Row rows[] = {
        {"", ""},
        {"name  Two Words  \n  protocol   uci  \r\n", "\nname Two Words\nprotocol uci\n"},
        {"name A\nprotocol fast\n", "\nname A\nprotocol autodetect\n"},
        {"name A\nprotocol xboard_v1 or so\n", "\nname A\nprotocol xboard_v1\n"},
        {"name A\nsetoption name Clear Hash value\n",
         "\nname A\nprotocol autodetect\nsetoption name Clear Hash value \n"},
        {"name A\nsetoption name B  C\n", "\nname A\nprotocol autodetect\nsetoption name B C value \n"},
        {"name A\nsetoption B value 3\n", "\nname A\nprotocol autodetect\n"},
        {"name A\nsetoption name B value  x value y \n",
         "\nname A\nprotocol autodetect\nsetoption name B value x value y\n"},
        {"name A\nelo 1\nname B\nname A\nhandicap 2\n",
         "\nname A\nprotocol autodetect\nhandicap 2\n\nname B\nprotocol autodetect\n"},
        {"# name x\nfilename /x\n", "\nname \nfilename /x\nprotocol autodetect\n"},
    };
    for (const Row& row : rows) EXPECT_EQ(read_and_written(row.text), head + row.written) << row.text;
}

class StoreTest : public EngineTest {};

TEST_F(StoreTest, FirstWriteLeavesNoBackupAndTheSecondTheFirstVersion) {
    InstalledEngines engines(directory());
    engines.read_engines_cfg();
    EXPECT_TRUE(engines.engines().empty());
    EngineVariables engine;
    engines.add_engine(engine);
    EXPECT_TRUE(engines.engines().empty()) << "an engine without a name could never be loaded";
    engine.name = "Beta";
    engines.add_engine(engine);
    engines.write_engines_cfg();
    EXPECT_FALSE(fs::exists(directory() + "engines.cfg~"));
    const std::string first = read_file("engines.cfg");
    EXPECT_EQ(first, head + "\nname Beta\nprotocol autodetect\n");

    engine.name = "Alpha";
    engine.protocol = Protocol::uci;
    engines.add_engine(engine);
    engines.remove_engine("Beta");
    engines.remove_engine("Gamma");
    engines.write_engines_cfg();
    EXPECT_EQ(read_file("engines.cfg"), head + "\nname Alpha\nprotocol uci\n");
    EXPECT_EQ(read_file("engines.cfg~"), first);

    InstalledEngines others(directory());
    others.read_engines_cfg();
    EXPECT_EQ(others.engines().at("Alpha").player_name, "Alpha");
    others.remove_engine(others.engines().at("Alpha"));
    EXPECT_TRUE(others.engines().empty());
}

TEST_F(StoreTest, AFileThatCannotBeWrittenLosesNothing) {
    write_file("engines.cfg", example);
    InstalledEngines engines(directory());
    engines.read_engines_cfg();
    engines.remove_engine("Beta");
    // A directory in the way of the file: nobody can write it, whatever his rights are.
    fs::rename(directory() + "engines.cfg", directory() + "kept");
    fs::create_directory(directory() + "engines.cfg");
    try {
        engines.write_engines_cfg();
        ADD_FAILURE();
    } catch (const std::runtime_error& error) {
        EXPECT_STREQ(error.what(), "InstalledEngines::write_engines_cfg()   open file error");
    }
    EXPECT_EQ(read_file("kept"), example);
    EXPECT_EQ(engines.engines().size(), 1U);
}

TEST_F(StoreTest, AnywhereButInAHomeTheWorkingDirectoryIsTheUsers) {
    if (directory().starts_with("/home")) GTEST_SKIP() << "the tests run below /home";
    const HomeDir home;
    EXPECT_EQ(home.path(), "./");
    EXPECT_EQ(home.tournaments_path(), "./tournaments/");
    EXPECT_TRUE(fs::is_directory(directory() + "tournaments"));
    InstalledEngines engines;
    EngineVariables engine;
    engine.name = "Alpha";
    engines.add_engine(engine);
    engines.write_engines_cfg();
    EXPECT_TRUE(fs::exists(directory() + "engines.cfg"));
}

TEST_F(StoreTest, ADirectoryThatCannotBeMadeIsTriedAgain) {
    // Nothing can be made in a working directory that is gone, whatever the user's rights are.
    fs::create_directory("gone");
    fs::current_path("gone");
    fs::remove(directory() + "gone");
    try {
        const HomeDir home;
        ADD_FAILURE() << home.path();
    } catch (const std::runtime_error& error) {
        EXPECT_STREQ(error.what(), "HomeDir/tournaments constructor failed");
    }
    InstalledEngines engines;
    engines.read_engines_cfg();
    EngineVariables engine;
    engine.name = "Alpha";
    engines.add_engine(engine);
    EXPECT_THROW(engines.write_engines_cfg(), std::runtime_error);
    fs::current_path(directory());
    engines.write_engines_cfg();
    EXPECT_EQ(read_file("engines.cfg"), head + "\nname Alpha\nprotocol autodetect\n");
}

TEST(HomeDir, FollowsTheWorkingDirectory) {
    struct Row {
        const char* working_directory;
        const char* path;
    };
    for (const Row& row :
         {Row{"/home/ann/games/chess", "/home/ann/.velmorachess/"}, Row{"/usr/local/games", "./"},
          Row{"/home", "/home//.velmorachess/"}, Row{"/home/a b/x", "/home/a/.velmorachess/"},
          Row{"/homes/ann", "./"}, Row{"/", "./"}, Row{"/srv/home/ann", "./"}}) {
        EXPECT_EQ(HomeDir::path_for(row.working_directory), row.path) << row.working_directory;
    }
}

}  // namespace

}  // namespace velmora
