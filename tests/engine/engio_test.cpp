#include "engine/process/engio.h"

#include <algorithm>
#include <filesystem>
#include <stdexcept>
#include <sys/prctl.h>
#include <thread>

#include "engine/process/line_receiver.h"
#include "tests/engine/engine_fixture.h"
#include "tests/support/recording_sink.h"
#include "tests/support/thrown_text.h"

namespace velmora {
namespace {

class Receiver : public LineReceiver {
public:
    void receive_line(ArrivedLine arrived) override {
        const std::string& line = arrived.text;
        m_sink.put_command(arrived.arrival ? line + " (stamped)" : line);
        if (line.starts_with("info")) m_held = std::max(m_held, Held::can_wait);
        if (line.starts_with("urgent")) m_held = Held::urgent;
        if (line.find("throw") != std::string::npos) throw std::runtime_error("of the test's making");
    }
    Held held() const override { return m_held; }
    void flush() override {
        m_held = Held::nothing;
        m_sink.put_command("(flush)");
    }
    std::vector<std::string> lines() const { return m_sink.lines(); }

private:
    test::RecordingSink m_sink;
    Held m_held = Held::nothing;
};

/// An Engio with its reader thread, as a handle uses it.
class EngioTest : public EngineTest {
protected:
    void start(const std::string& path) {
        m_engio.spawn_engine(path);
        m_engio.set_engine(&m_receiver);
        if (m_engio.is_spawned()) m_reader = std::thread(std::ref(m_engio));
    }

    void start(const std::string& name, const std::string& script) { start(add_engine(name, script)); }
    void quit() {
        m_engio.quit();
        if (m_reader.joinable()) m_reader.join();
    }

    void TearDown() override {
        quit();
        EngineTest::TearDown();
    }

    /// The engine's log without its stamps, whose form is checked.
    std::vector<std::string> log() {
        std::vector<std::string> lines = lines_of(read("engine2.log"));
        for (std::string& line : lines) {
            EXPECT_TRUE(matches("~.~", line.substr(0, 9))) << line;
            line.erase(0, 9);
        }
        return lines;
    }

    Receiver m_receiver;
    Engio m_engio;
    std::thread m_reader;
};

using Lines = std::vector<std::string>;

TEST_F(EngioTest, HeldLinesArePassedOnSoon) {
    start("a", "write info one\\ninfo two\\n\nuntil go\nwrite info three\\nurgent\\ninfo four\\n\n");
    ASSERT_TRUE(wait_until([&] { return m_receiver.lines().size() == 3; }));
    m_engio.send("go");
    ASSERT_TRUE(wait_until([&] { return m_receiver.lines().size() == 7; }));
    EXPECT_EQ(m_receiver.lines(),
              Lines({"info one", "info two", "(flush)", "info three", "urgent", "info four", "(flush)"}));
    // Also of an engine that never pauses.
    quit();
    start("b", "flood 100000 info\nanswer urgent\n");
    ASSERT_TRUE(wait_until([&] { return m_receiver.lines().end()[-2] == "urgent"; }));
    const Lines lines = m_receiver.lines();
    EXPECT_GE(std::count(lines.begin() + 7, lines.end(), "(flush)"), 2);
}

TEST_F(EngioTest, LogsBothDirections) {
    m_engio.set_engine_id(2);
    m_engio.set_logging(true);
    const std::string path = add_engine("a", "until go\nwrite one\\ntwo\\n\n");
    start(path);
    m_engio.send("");
    m_engio.send("go");
    m_engio.send(std::string(32768, 'x'));
    // A line is passed on ahead of its place in the log.
    ASSERT_TRUE(wait_until([&] { return log().size() == 6; }));
    quit();
    EXPECT_EQ(log(),
              (Lines{"   Engio::spawn_engine(" + path + ")", "   Engio::spawn_engine() carriage return false",
                     "   engine <- go", "   Engio::operator() command from interface too big   size=32768",
                     "   engine -> one", "   engine -> two   {cnt=2} ", "   engine <- quit"}));
}

TEST_F(EngioTest, LongestCommandIsTakenAndALineEndIsNotDoubled) {
    start("a", "until done\nanswer done\n");
    const std::string longest(32767, 'x');
    m_engio.send(longest);
    m_engio.send("go\n");
    m_engio.send("done");
    ASSERT_TRUE(wait_until([&] { return !m_receiver.lines().empty(); }));
    EXPECT_EQ(sent_to("a"), longest + "\ngo\ndone\n");
}

TEST_F(EngioTest, CarriageReturnsGoToThoseThatUseThem) {
    const struct {
        const char *name, *suffix, *line, *sent;
    } rows[] = {{"a", ".exe", "answer hello\n", "go\r\nquit\r\n"},
                {"b", ".engine", "answer hello\\r\n", "go\r\nquit\r\n"},
                {"c", ".engine", "answer hello\n", "go\nquit\n"}};
    for (const auto& row : rows) {
        const auto before = m_receiver.lines().size();
        start(add_engine(row.name, std::string(row.line) + "until go\n", row.suffix));
        ASSERT_TRUE(wait_until([&] { return m_receiver.lines().size() > before; }));
        m_engio.send("go");
        quit();
        EXPECT_TRUE(wait_until([&] { return sent_to(row.name) == row.sent; })) << sent_to(row.name);
    }
}

TEST_F(EngioTest, DotExeAloneIsNoExtension) {
    // A path of four bytes, so it must be found from the working directory.
    std::filesystem::create_symlink(SCRIPTED_ENGINE, path(".exe"));
    write(".script", "until uci\n");  // the name of the program without its extension is empty
    start(".exe");
    m_engio.send("uci");
    EXPECT_TRUE(wait_until([&] { return sent_to("") == "uci\n"; })) << sent_to("");
}

TEST_F(EngioTest, ReportsWhatCannotBeStarted) {
    m_engio.set_engine_id(2);
    m_engio.set_logging(true);
    write("bad", "#!/nowhere/interpreter\n");
    std::filesystem::permissions("bad", std::filesystem::perms::owner_all);
    for (const std::string& path : {path("none"), path(""), path("bad")}) {
        start(path);
        EXPECT_FALSE(m_engio.is_spawned()) << path;
        const Lines lines = log();
        EXPECT_EQ(lines.at(lines.size() - 2), "   Engio::spawn_engine(" + path + ")  FAILED");
    }
    start(std::string(1000, 'x'));
    EXPECT_FALSE(m_engio.is_spawned());
    EXPECT_EQ(log().back(), "   Engio::spawn_engine() filename too long   size=1000");
    start("/bin/" + std::string(985, '/') + "true.none");
    EXPECT_EQ(log().at(log().size() - 2).substr(0, 30), "   Engio::spawn_engine(/bin///")
        << "999 bytes are tried";
}

TEST_F(EngioTest, AnEngineDoesNotInheritTheTimerSlack) {
    write("slack", "#!/bin/sh\nexec cat /proc/$$/timerslack_ns\n");
    std::filesystem::permissions("slack", std::filesystem::perms::owner_all);
    const std::string usual = std::to_string(prctl(PR_GET_TIMERSLACK));
    prctl(PR_SET_TIMERSLACK, 1);
    start(path("slack"));
    EXPECT_EQ(prctl(PR_GET_TIMERSLACK), 1);
    prctl(PR_SET_TIMERSLACK, 0);
    ASSERT_TRUE(wait_until([&] { return !m_receiver.lines().empty(); }));
    EXPECT_EQ(m_receiver.lines().front(), usual);
}

TEST_F(EngioTest, RefusesASecondProcess) {
    start("a", "");
    EXPECT_EQ(test::thrown_text([&] { m_engio.spawn_engine("b"); }),
              "Engio::spawn_engine() trying to spawn an engine while a spawned engine already exists");
}

TEST_F(EngioTest, EndOfTheEngineCountsAsCrashAndLosesNoWholeLine) {
    for (const std::string ending : {"die 3", "kill 9", "close stdout"}) {
        const std::string name = "a" + ending;
        const auto before = m_receiver.lines().size();
        start(name, "write info whole\\nbestmo\n" + ending + '\n');
        ASSERT_TRUE(wait_until([&] { return m_receiver.lines().size() == before + 2; })) << ending;
        EXPECT_EQ(m_receiver.lines().end()[-2] + m_receiver.lines().back(), "info whole(flush)");
        ASSERT_TRUE(wait_until([&] { return m_engio.has_crashed(); }));
        EXPECT_FALSE(m_engio.is_alive());
        EXPECT_TRUE(m_engio.is_spawned());
        m_engio.send("into the dark");
        quit();
        EXPECT_TRUE(m_engio.reset_flags());
        EXPECT_FALSE(m_engio.has_crashed());
        EXPECT_EQ(sent_to(name).find("dark"), std::string::npos);
    }
}

TEST_F(EngioTest, QuitIsNoCrash) {
    start("a", "until quit\nanswer bye\n");
    quit();
    EXPECT_FALSE(m_engio.has_crashed());
    EXPECT_FALSE(m_engio.is_spawned());
    EXPECT_FALSE(m_engio.reset_flags());
    m_engio.send("late");
    EXPECT_TRUE(wait_until([&] { return sent_to("a") == "quit\n"; }));
}

TEST_F(EngioTest, AnEngineThatIgnoresQuitIsLeftBehind) {
    start("a", "ignore quit\nuntil go\nanswer here\n");
    m_engio.send("go");
    ASSERT_TRUE(wait_until([&] { return !m_receiver.lines().empty(); })) << "the reader waits for more";
    quit();
    EXPECT_FALSE(processes_of("a").empty()) << "its end was waited for";
    EXPECT_TRUE(wait_until([&] { return sent_to("a") == "go\nquit\n"; })) << "it still runs and reads";
    kill_children();
}

TEST_F(EngioTest, AnEngineThatDoesNotReadCountsAsCrashed) {
    start("a", "answer here\nhang\n");
    ASSERT_TRUE(wait_until([&] { return !m_receiver.lines().empty(); }));
    for (int i = 0; i < 100 && m_engio.is_alive(); ++i) m_engio.send(std::string(30000, 'x'));
    EXPECT_TRUE(m_engio.has_crashed());
    kill_children();
}

TEST_F(EngioTest, NoWriteWaitsForTheEngineOnceTheProgramEnds) {
    std::stop_source leaving;
    Engio engio(leaving.get_token(), std::chrono::hours(1));
    engio.spawn_engine(add_engine("a", "hang\n"));
    std::thread writer([&engio] {
        while (engio.is_alive()) engio.send(std::string(30000, 'x'));
    });
    leaving.request_stop();
    writer.join();
    EXPECT_TRUE(engio.has_crashed());
    kill_children();
}

TEST_F(EngioTest, AnEndlessLineCountsAsCrash) {
    start("a", "answer here\nwrite " + std::string(LineSplitter::limit + 1, 'x') + '\n');
    ASSERT_TRUE(wait_until([&] { return m_engio.has_crashed(); }));
    EXPECT_EQ(m_receiver.lines(), Lines{"here"});
}

TEST_F(EngioTest, SurvivesBytesThatAreNoTextAndAThrowingReceiver) {
    start("a", "write \\x00\\xff\\xfe\\n\nanswer throw\nanswer last\n");
    ASSERT_TRUE(wait_until([&] { return m_receiver.lines().size() == 3; }));
    EXPECT_EQ(m_receiver.lines(), (Lines{"\xff\xfe", "throw", "last"}));
    EXPECT_TRUE(m_engio.is_alive());
}

}  // namespace
}  // namespace velmora
