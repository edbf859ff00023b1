// Plays the conversations of transcripts/*.txt, in which the referee drives the scripted engine, a real child
// process behind a GuiEngine. The first word of a file's name is the protocol.
//
//   engine      loads an engine with this script behind the handshake
//   > order     what the referee does, see obey()
//   < line      what it gets next, without engine number, instance id and a last blank
//   ! text      what an order to go throws now
//   sent        ends the engine; what it has been sent behind the handshake, ahead of "quit"
//   is file     the lines of a log
//
// START stands for the FEN of the start of a game, ~ in what is expected for the digits of a number.

#include <algorithm>

#include "base/text.h"
#include "engine/drivers/gui_engine.h"
#include "tests/engine/engine_fixture.h"
#include "tests/support/positions.h"
#include "tests/support/recording_sink.h"
#include "tests/support/thrown_text.h"
#include "tests/support/transcript_file.h"

namespace velmora {
namespace {

constexpr std::uint64_t instance = 12345678901234567890U;
const std::string prefix = "1 12345678901234567890 ";

/// A protocol's handshake: the engine's part of it, and the last line that it is sent.
struct Handshake {
    Protocol protocol;
    const char *script, *last_sent;
};

constexpr Handshake uci{
    Protocol::uci,
    "until uci\nanswer option name UCI_Chess960 type check default false\nanswer option name Clear Hash type "
    "button\nanswer option name Book type string default <empty>\nanswer uciok\n",
    "uci\n"};
constexpr Handshake xboard{Protocol::xboard_v2, "until protover 2\n", "accepted done\n"};

/// "startpos e2e4 e7e5" or "<fen> | e2e4".
ChessPosition read_position(const std::string& text) {
    if (text.starts_with("startpos")) return test::position_of(test::start_fen, text.substr(8));
    const auto end = std::min(text.find(" | "), text.size());
    return test::position_of(text.substr(0, end), text.substr(std::min(end + 3, text.size())));
}

class DriverTranscript : public EngineTest, public testing::WithParamInterface<test::Transcript> {
protected:
    void run(const test::Directive& directive) {
        text::WordReader reader(directive.text);
        const auto word = reader.word();
        const std::string rest(text::trim_leading_blanks(reader.rest()));
        if (word == "engine") {
            const std::string program =
                add_engine("peer", m_handshake.script + test::joined(directive.block));
            m_engine.load_engine(&m_sink, 1, program, m_handshake.protocol);
            ASSERT_TRUE(m_engine.is_alive());
            m_engine.set_instance_id(instance);
        } else if (word == ">") {
            obey(rest);
        } else if (word == "<") {
            ASSERT_TRUE(wait_until([this] { return m_sink.lines().size() > m_heard; })) << rest;
            std::string line = m_sink.lines()[m_heard++];
            if (line.ends_with(' ') && !rest.empty()) line.pop_back();
            ASSERT_TRUE(matches(prefix + rest, line)) << "instead of " << rest << ": " << line;
        } else if (word == "!") {
            ASSERT_EQ(test::thrown_text([this] { m_engine.go(); }), rest);
        } else if (word == "sent") {
            m_engine.unload_engine();
            ASSERT_TRUE(wait_until([this] { return sent_to("peer").ends_with("\nquit\n"); }));
            const std::string sent = sent_to("peer");
            const auto begin = sent.find(m_handshake.last_sent) + std::string(m_handshake.last_sent).size();
            expect_lines(sent.substr(begin, sent.size() - begin - std::string("quit\n").size()),
                         directive.block);
        } else {
            ASSERT_EQ(word, "is");
            expect_lines(read(rest), directive.block);
        }
    }

    static void expect_lines(const std::string& text, std::vector<std::string> expected) {
        for (std::string& line : expected) {
            if (const auto at = line.find("START"); at != std::string::npos)
                line.replace(at, 5, test::start_fen);
        }
        EXPECT_EQ(masked(lines_of(text), expected), expected);
    }

    void obey(const std::string& order) {
        text::WordReader reader(order);
        const auto word = reader.word();
        const std::string rest(text::trim_leading_blanks(reader.rest()));
        const int number = text::strict_integer<int>(rest).value_or(0);
        if (word == "new_game") return m_engine.new_game();
        if (word == "go") return m_engine.go();
        if (word == "infinite") return m_engine.go_infinite();
        if (word == "stop") return m_engine.stop();
        if (word == "white" || word == "black") return m_engine.set_white(word == "white");
        if (word == "ponder") return m_engine.set_ponder(rest == "on");
        if (word == "position") return m_engine.set_position(read_position(rest));
        if (word == "level") return m_engine.set_level(Level(rest));
        if (word == "opponent") return m_engine.set_opponent_time(number);
        if (word == "moves_done") return m_engine.set_moves_done(number);
        if (word == "debug") {
            m_trace.open("trace.log", LogFile::Opening::append);
            m_engine.set_debug_stream(&m_trace);
            return m_engine.set_logging(true);
        }
        if (word == "option") {
            const std::string name(reader.word());
            return m_engine.set_option(name, std::string(text::trim_leading_blanks(reader.rest())));
        }
        EngineVariables variables = m_engine.get_enginevariables();
        if (word == "reload") {
            ASSERT_TRUE(wait_until([this] { return m_engine.has_crashed(); }));
            m_engine.reload_engine();
        } else {
            ASSERT_EQ(word, "handicap");
            variables.handicap = rest;
            variables.options["Unknown"] = Option("option name Unknown");  // which the engine never announced
        }
        m_engine.set_enginevariables(variables);
    }

    const Handshake& m_handshake = GetParam().name.starts_with("uci") ? uci : xboard;
    test::RecordingSink m_sink;
    std::size_t m_heard = 0;
    LogFile m_trace;
    GuiEngine m_engine{std::chrono::milliseconds(10)};
};

TEST_P(DriverTranscript, IsSpoken) {
    for (const auto& directive : GetParam().directives) {
        run(directive);
        if (HasFatalFailure()) return;
    }
    EXPECT_EQ(m_sink.lines().size(), m_heard);
}

INSTANTIATE_TEST_SUITE_P(Files, DriverTranscript, testing::ValuesIn(test::read_transcripts(TRANSCRIPTS)),
                         [](const auto& row) { return row.param.name; });

}  // namespace
}  // namespace velmora
