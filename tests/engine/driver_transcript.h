#pragma once

#include <ostream>
#include <string>
#include <vector>

#include "engine/drivers/gui_engine.h"
#include "tests/engine/engine_fixture.h"
#include "tests/support/recording_sink.h"

namespace velmora {

/// One conversation between the referee and an engine, as texts of lines with semicolons between them.
/// START stands for the FEN of the start of a game, ~ in what is expected for the digits of a number.
struct Transcript {
    const char* name;
    const char* script;  ///< of the engine, behind the handshake
    const char* orders;  ///< what the referee does, see DriverTest::obey()
    const char* sent;    ///< what the engine gets behind the handshake, ahead of "quit"
    const char* posted;  ///< what the referee gets, without engine number and instance id
};

inline void PrintTo(const Transcript& row, std::ostream* out) { *out << row.name; }

/// Plays transcripts against the scripted engine, a real child process behind a GuiEngine.
class DriverTest : public EngineTest, public testing::WithParamInterface<Transcript> {
protected:
    /// Plays the row and compares both sides of the conversation.
    void play(Protocol protocol, const std::string& handshake, const std::string& last_of_handshake);

private:
    void obey(const std::string& order);
    std::vector<std::string> posted() const;
    std::vector<std::string> sent_since_handshake() const;

    test::RecordingSink m_sink;
    GuiEngine m_engine{std::chrono::milliseconds(1)};
    std::size_t m_handshake_lines = 0;
};

}  // namespace velmora
