#include "engine/drivers/gui_engine.h"

#include <algorithm>
#include <atomic>
#include <optional>

#include "channel/line_queue.h"
#include "chess/moves/position.h"
#include "engine/drivers/protocol_engine.h"
#include "tests/engine/engine_fixture.h"
#include "tests/support/recording_sink.h"
#include "tests/support/thrown_text.h"

namespace velmora {
namespace {

constexpr std::chrono::milliseconds quick(5);
constexpr std::chrono::milliseconds patient(50);  // where the engine must not be given up too soon

/// A queue that drops thinking output when nobody reads, as the referee has it.
class QueueSink : public CommandSink {
public:
    void put_command(const std::string& line) override {
        queue.put(line);
        if (line.find("bestmove") != std::string::npos) ++moves;
    }

    std::atomic<int> moves = 0;
    LineQueue queue{[](const std::string& line) {
        return LineQueue::Class{.expendable = line.find(" info ") != std::string::npos};
    }};
};

class GuiEngineTest : public EngineTest {
protected:
    void load(const std::string& script, Protocol protocol = Protocol::uci,
              std::chrono::milliseconds interval = quick) {
        m_engine.emplace(interval);
        const std::string name = "peer" + std::to_string(m_loads++);
        m_engine->load_engine(&m_sink, 1, add_engine(name, script), protocol);
    }

    std::string sent_to_last() const { return sent_to("peer" + std::to_string(m_loads - 1)); }

    void TearDown() override {
        m_engine.reset();
        EngineTest::TearDown();
    }

    test::RecordingSink m_sink;
    QueueSink m_queue_sink;
    std::optional<GuiEngine> m_engine{quick};
    int m_loads = 0;
};

/// Whether it counts as UCI, protocol, reported name, author and number of options.
std::string findings(const GuiEngine& engine) {
    static const char* names[] = {"none", "uci", "v1", "v2"};
    const EngineVariables found = engine.get_enginevariables();
    EXPECT_EQ(found.name, found.engine_name);
    return std::string(found.uci_flag ? "!" : "") + names[static_cast<std::size_t>(found.protocol)] + '/' +
           found.engine_name + '/' + found.author + '/' +
           std::to_string(std::min<std::size_t>(found.options.size(), 150));
}

TEST_F(GuiEngineTest, FindsTheProtocolAndItsDriver) {
    // What the drivers make of set_ponder() and new_game(). An engine of version 1 gets no commands.
    const std::string uci = "ucinewgame\nisready\nquit\n";
    const std::string v2 = "hard\nquit\n";
    const std::string v1 = "quit\n";
    struct Row {
        const char* script;
        Protocol asked;
        const char* found;  // as findings()
        std::string sent;
        std::chrono::milliseconds interval = quick;
    };
    const Row rows[] = {
        {"answer Welcome!\nuntil uci\nanswer id name Alpha 1.0 \nanswer id author A. Nobody\nanswer "
         "=uciok=\n",
         Protocol::autodetect, "!uci/Alpha 1.0/A. Nobody/0", "uci\n" + uci},
        {"until uci\nflood 150 option name O%d type check default true\nanswer uciok\n", Protocol::autodetect,
         "!uci///150", "uci\n" + uci},
        {"until uci\nflood 300 option name O%d type check default true\nanswer uciok\n", Protocol::uci,
         "none///150", "uci\n" + uci},
        {"until uci\nflood 2000 some info %d\nanswer uciok\n", Protocol::uci, "!uci///0", "uci\n" + uci},
        {"until protover\nanswer feature done=0 ping=1 myname=\"Beta 2\" done=1 san=1\n",
         Protocol::autodetect, "v2/Beta 2//0",
         "uci\nxboard\nprotover 2\naccepted done\naccepted ping\naccepted myname\naccepted done\n" + v2},
        {"until protover\nanswer feature memory=1 smp=1 option=\"X -check 1\" made_up=1\n",
         Protocol::autodetect, "v2///2",
         "uci\nxboard\nprotover 2\naccepted memory\naccepted smp\naccepted made_up\n" + v2},
        // One that ends at "uci" is started once more.
        {"expect xboard\nuntil protover\nanswer feature done=1\n", Protocol::autodetect, "v2///0",
         "uci\nxboard\nprotover 2\naccepted done\n" + v2, patient},
        {"", Protocol::autodetect, "v1///0", "uci\nxboard\nprotover 2\nxboard\n" + v1},
        {"", Protocol::uci, "none///0", "uci\n" + uci},
        {"answer bestmove e2e4\n", Protocol::xboard_v1, "v1///0", "xboard\n" + v1},
        {"", Protocol::xboard_v2, "none///0", "xboard\nprotover 2\n" + v2},
    };
    for (const Row& row : rows) {
        load(row.script, row.asked, row.interval);
        ASSERT_TRUE(m_engine->is_alive()) << row.script;
        EXPECT_EQ(findings(*m_engine), row.found) << row.script;
        m_engine->set_ponder(true);
        m_engine->new_game();
        m_engine->unload_engine();
        EXPECT_TRUE(wait_until([&] { return sent_to_last() == row.sent; })) << sent_to_last();
    }
    EXPECT_TRUE(m_sink.lines().empty());
}

TEST_F(GuiEngineTest, AnEmptyHandleAnswersHarmlessly) {
    const auto expect_empty = [this] {
        EXPECT_FALSE(m_engine->is_alive() || m_engine->has_crashed() || m_engine->is_white());
        EXPECT_EQ(m_engine->state().clock.time_left(), 0);
        EXPECT_EQ(m_engine->state().status, EngineStatus::idle);
        m_engine->set_enginevariables(EngineVariables());
        m_engine->set_level(Level());
        m_engine->set_opponent_time(5);
        m_engine->set_position(ChessPosition());
        m_engine->go();
        m_engine->stop();
        m_engine->set_logging(true);
        EXPECT_EQ(test::thrown_text([this] { m_engine->get_enginevariables(); }),
                  "GuiEngine::get_enginevariables no engine found");
    };
    expect_empty();
    // Programs that cannot be started, or that leave at once or in the middle of the handshake.
    write("no_program", "text");
    for (const std::string& path : {path("none"), path(""), path("no_program")}) {
        m_engine->load_engine(&m_sink, 1, path, Protocol::autodetect);
        expect_empty();
    }
    for (const char* script : {"die", "until \nwrite id na\ndie\n", "until uci\nanswer id name A\ndie\n",
                               "answer feature ping=1\nuntil protover\nkill 9\n", "close stdout\n"}) {
        const bool xboard = std::string_view(script).starts_with("answer");
        load(script, xboard ? Protocol::xboard_v2 : Protocol::autodetect, patient);
        expect_empty();
    }
    // A driver without a process.
    m_engine.emplace();
    m_engine->load_engine(&m_sink, 0, path("none"), Protocol::uci);
    EXPECT_FALSE(m_engine->is_alive());
    EXPECT_EQ(m_engine->get_enginevariables().engine_name, "NoNameYet");
}

TEST_F(GuiEngineTest, AMillionInfoLinesThatNobodyReadsLeaveTheMoves) {
    m_engine->load_engine(&m_queue_sink, 2,
                          add_engine("flooding", "until uci\nanswer uciok\nuntil go\nanswer bestmove a2a3 " +
                                                     std::string(100000, 'x') +
                                                     "\nflood 1000000 info depth %d\nflood 100000 y\n"
                                                     "flood 100000 readyok\nanswer bestmove e2e4\n"),
                          Protocol::uci);
    m_engine->go();
    ASSERT_TRUE(wait_until([&] { return m_queue_sink.moves == 2; }));
    m_engine->unload_engine();
    EXPECT_EQ(m_queue_sink.queue.size(), LineQueue::crowded_at);
    std::vector<std::string> lines;
    m_queue_sink.queue.drain([&lines](const std::string& line) { lines.push_back(line); });
    const std::string cut = "bestmove a2a3 " + std::string(8192 - 14, 'x');
    EXPECT_TRUE(matches("2 0 " + cut + " TS=~", lines.front())) << lines.front();
    EXPECT_EQ(lines[lines.size() - 2], "2 0 info depth 1000000");
    EXPECT_TRUE(matches("2 0 bestmove e2e4 TS=~", lines.back())) << lines.back();
}

TEST(ProtocolEngine, KeepsNoMoreThanItWillLookAt) {
    ProtocolEngine probe(quick);
    for (int i = 0; i < 100000; ++i) probe.receive_line({"y"});
    std::size_t kept = 0;
    while (!probe.next_line().text.empty()) ++kept;
    EXPECT_EQ(kept, BaseEngine::most_lines);
}

}  // namespace
}  // namespace velmora
