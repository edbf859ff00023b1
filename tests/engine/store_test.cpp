#include <filesystem>
#include <sstream>

#include "engine/store/home_dir.h"
#include "engine/store/installed_engines.h"
#include "tests/engine/engine_fixture.h"
#include "tests/support/thrown_text.h"

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

TEST(InstalledEnginesText, ReadsRowByRow) {
    EXPECT_EQ(read_and_written(example), example);
    struct Row {
        const char *text, *written;
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

EngineVariables named(const std::string& name) {
    EngineVariables engine;
    engine.name = name;
    return engine;
}

class StoreTest : public EngineTest {};

TEST_F(StoreTest, APathThatWouldNotReadBackIsRefused) {
    InstalledEngines engines(path(""));
    for (const char* program : {"/tmp/x\nname Forged", "/tmp/x\n", "/tmp/x "}) {
        EngineVariables engine = named("Alpha");
        engine.filename = program;
        EXPECT_THROW(engines.add_engine(engine), std::invalid_argument) << program;
    }
    EXPECT_TRUE(engines.engines().empty());
}

TEST_F(StoreTest, FirstWriteLeavesNoBackupAndTheSecondTheFirstVersion) {
    InstalledEngines engines(path(""));
    engines.read_engines_cfg();
    EXPECT_TRUE(engines.engines().empty());
    engines.add_engine(named(""));
    EXPECT_TRUE(engines.engines().empty()) << "an engine without a name could never be loaded";
    engines.add_engine(named("Beta"));
    engines.write_engines_cfg();
    EXPECT_FALSE(fs::exists(path("engines.cfg~")));
    const std::string first = read("engines.cfg");
    EXPECT_EQ(first, head + "\nname Beta\nprotocol autodetect\n");

    EngineVariables alpha = named("Alpha");
    alpha.protocol = Protocol::uci;
    engines.add_engine(alpha);
    engines.remove_engine("Beta");
    engines.remove_engine("Gamma");
    engines.write_engines_cfg();
    EXPECT_EQ(read("engines.cfg"), head + "\nname Alpha\nprotocol uci\n");
    EXPECT_EQ(read("engines.cfg~"), first);

    InstalledEngines others(path(""));
    others.read_engines_cfg();
    EXPECT_EQ(others.engines().at("Alpha").player_name, "Alpha");
    others.remove_engine(others.engines().at("Alpha"));
    EXPECT_TRUE(others.engines().empty());
}

TEST_F(StoreTest, AFileThatCannotBeWrittenLosesNothing) {
    write("engines.cfg", example);
    InstalledEngines engines(path(""));
    engines.read_engines_cfg();
    engines.remove_engine("Beta");
    // A directory in the way of the file: it stops even the superuser.
    fs::rename(path("engines.cfg"), path("kept"));
    fs::create_directory(path("engines.cfg"));
    EXPECT_EQ(test::thrown_text<std::runtime_error>([&] { engines.read_engines_cfg(); }),
              path("engines.cfg") + ": not a regular file");
    EXPECT_EQ(test::thrown_text<std::runtime_error>([&] { engines.write_engines_cfg(); }),
              "InstalledEngines::write_engines_cfg()   open file error");
    EXPECT_EQ(read("kept"), example);
    EXPECT_EQ(engines.engines().size(), 1U);
}

TEST_F(StoreTest, AnywhereButInAHomeTheWorkingDirectoryIsTheUsers) {
    if (path("").starts_with("/home")) GTEST_SKIP() << "the tests run below /home";
    fs::remove("tournaments");
    const HomeDir home;
    EXPECT_EQ(home.path(), "./");
    EXPECT_EQ(home.tournaments_path(), "./tournaments/");
    EXPECT_TRUE(fs::is_directory(path("tournaments")));
    InstalledEngines engines;
    engines.add_engine(named("Alpha"));
    engines.write_engines_cfg();
    EXPECT_TRUE(fs::exists(path("engines.cfg")));
}

TEST_F(StoreTest, ADirectoryThatCannotBeMadeIsTriedAgain) {
    // Nothing can be made in a working directory that is gone, whatever the user's rights are.
    fs::create_directory("gone");
    fs::current_path("gone");
    fs::remove(path("gone"));
    EXPECT_EQ(test::thrown_text<std::runtime_error>([] { HomeDir(); }),
              "HomeDir/tournaments constructor failed");
    InstalledEngines engines;
    engines.read_engines_cfg();
    engines.add_engine(named("Alpha"));
    EXPECT_THROW(engines.write_engines_cfg(), std::runtime_error);
    fs::current_path(path(""));
    engines.write_engines_cfg();
    EXPECT_EQ(read("engines.cfg"), head + "\nname Alpha\nprotocol autodetect\n");
}

TEST(HomeDir, FollowsTheWorkingDirectory) {
    struct Row {
        const char *working_directory, *path;
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
