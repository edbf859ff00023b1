#include "tests/engine/driver_transcript.h"

#include <algorithm>

#include "base/text.h"
#include "chess/moves/legal_moves.h"
#include "chess/moves/position.h"

namespace velmora {
namespace {

constexpr std::uint64_t instance = 12345678901234567890U;
const std::string prefix = "1 12345678901234567890 ";

/// The parts of a text between semicolons, each START in them replaced by the FEN of the start of a game.
std::vector<std::string> parts_of(const std::string& text) {
    static const std::string start = "rnbqkbnr/pppppppp/8/8/8/8/PPPPPPPP/RNBQKBNR w KQkq - 0 1";
    std::string lines = text;
    std::replace(lines.begin(), lines.end(), ';', '\n');
    std::vector<std::string> parts = lines_of(lines);
    for (std::string& part : parts) {
        if (const auto at = part.find("START"); at != std::string::npos) part.replace(at, 5, start);
    }
    return parts;
}

/// "startpos e2e4 e7e5" or "<fen> | e2e4".
ChessPosition read_position(const std::string& text) {
    ChessPosition position;
    position.new_game();
    std::string moves = text.substr(text.find(' ') == std::string::npos ? text.size() : text.find(' '));
    if (!text.starts_with("startpos")) {
        const auto end = text.find(" | ");
        position.fen(text.substr(0, end));
        moves = end == std::string::npos ? "" : text.substr(end + 3);
    }
    for (const auto word : text::words(moves)) {
        position.do_move(find_legal(position, position.convert_to_move(word)).value());
    }
    return position;
}

}  // namespace

/// The orders: new_game, go, infinite, stop, white, black, "ponder on|off", "position ...", "level ...",
/// "opponent <ms>", "moves_done <n>", "option <name> <value>", "handicap <per cent>", "debug", and two that
/// wait: "posted <n>" and "sent <n>" until so many lines have come in all.
void DriverTest::obey(const std::string& order) {
    text::WordReader reader(order);
    const std::string word(reader.word());
    const std::string rest(text::trim_leading_blanks(reader.rest()));
    const auto count = text::strict_integer<int>(rest).value_or(0);
    if (word == "new_game") return m_engine.new_game();
    if (word == "go") return m_engine.go();
    if (word == "infinite") return m_engine.go_infinite();
    if (word == "stop") return m_engine.stop();
    if (word == "white" || word == "black") return m_engine.set_white(word == "white");
    if (word == "ponder") return m_engine.set_ponder(rest == "on");
    if (word == "position") return m_engine.set_position(read_position(rest));
    if (word == "level") return m_engine.set_level(Level(rest));
    if (word == "opponent") return m_engine.set_opponent_time(count);
    if (word == "moves_done") return m_engine.set_moves_done(count);
    if (word == "debug") return m_engine.set_logging(true);
    if (word == "option") {
        const std::string name(reader.word());
        return m_engine.set_option(name, std::string(text::trim_leading_blanks(reader.rest())));
    }
    if (word == "handicap") {
        EngineVariables variables = m_engine.get_enginevariables();
        variables.handicap = rest;
        return m_engine.set_enginevariables(variables);
    }
    const auto wanted = static_cast<std::size_t>(count);
    ASSERT_TRUE(word == "posted" || word == "sent") << order;
    EXPECT_TRUE(wait_until([&] {
        return (word == "posted" ? posted() : sent_since_handshake()).size() >= wanted;
    })) << order;
}

std::vector<std::string> DriverTest::posted() const {
    std::vector<std::string> lines = m_sink.lines();
    for (std::string& line : lines) {
        EXPECT_TRUE(line.starts_with(prefix)) << line;
        line.erase(0, prefix.size());
    }
    return lines;
}

std::vector<std::string> DriverTest::sent_since_handshake() const {
    auto lines = lines_of(sent_to("peer"));
    lines.erase(lines.begin(),
                lines.begin() + static_cast<std::ptrdiff_t>(std::min(m_handshake_lines, lines.size())));
    return lines;
}

void DriverTest::play(Protocol protocol, const std::string& handshake, const std::string& last_of_handshake) {
    const Transcript& row = GetParam();
    std::string script;
    for (const std::string& line : parts_of(handshake + row.script)) script += line + '\n';
    m_engine.load_engine(&m_sink, 1, add_engine("peer", script), protocol);
    ASSERT_TRUE(m_engine.is_alive());
    m_engine.set_instance_id(instance);
    ASSERT_TRUE(wait_until([&] { return sent_to("peer").ends_with(last_of_handshake + '\n'); }));
    m_handshake_lines = lines_of(sent_to("peer")).size();
    for (const std::string& order : parts_of(row.orders)) obey(order);
    m_engine.unload_engine();
    ASSERT_TRUE(wait_until([&] { return sent_to("peer").ends_with("\nquit\n"); })) << sent_to("peer");

    auto expected_sent = parts_of(row.sent);
    expected_sent.emplace_back("quit");
    EXPECT_EQ(masked(sent_since_handshake(), expected_sent), expected_sent);
    auto expected_posted = parts_of(row.posted);
    for (std::string& line : expected_posted) {
        if (line == "(nothing)") line.clear();
    }
    EXPECT_EQ(masked(posted(), expected_posted), expected_posted);
}

}  // namespace velmora
