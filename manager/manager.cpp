#include "manager/manager.h"

#include <chrono>
#include <exception>
#include <iostream>
#include <utility>

#include "channel/text.h"

namespace velmora {

namespace {

/// How long the loop waits before it looks at its flags again; the game takes no step by itself.
constexpr std::chrono::milliseconds idle_wait{500};

/// An engine's search line: sender 1 or 2, the instance id, "info".
bool is_engine_info(const std::string& line) {
    text::WordReader reader(line);
    if (reader.word() == "0") return false;
    reader.word();
    return reader.word() == "info";
}

}  // namespace

Manager::Manager(CommandSink& window, std::string program_path)
    : m_program_path(std::move(program_path)),
      m_queue(is_engine_info),
      m_state(window),
      m_commands(m_state) {}

Manager::~Manager() = default;

void Manager::put_command(const std::string& line) { m_queue.put(line); }

void Manager::operator()() {
    while (!m_state.quit) {
        if (const auto line = m_queue.wait_and_pop(idle_wait)) take_turn(*line);
    }
}

void Manager::take_turn(const std::string& line) {
    // The boundary of the thread: whatever leaves a handler is told to the user, and the game goes on.
    try {
        dispatch(line);
    } catch (const std::exception& error) {
        report(error.what());
    } catch (...) {
        report("unknown failure");
    }
}

void Manager::dispatch(const std::string& line) {
    text::WordReader reader(line);
    if (reader.integer<int>() == 0) m_commands.process(line);
}

void Manager::report(const std::string& text) {
    std::cerr << text << std::endl;
    m_state.send("telluser Error: " + text::one_line(text));
}

}  // namespace velmora
