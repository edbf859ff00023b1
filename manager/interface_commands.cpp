#include "manager/interface_commands.h"

#include <algorithm>
#include <iterator>
#include <stdexcept>

namespace velmora {

struct InterfaceCommands::Command {
    std::string_view word;
    void (InterfaceCommands::*run)(text::WordReader& arguments);
};

constexpr InterfaceCommands::Command InterfaceCommands::commands[] = {
    {"debug", &InterfaceCommands::debug},
    {"human_human", &InterfaceCommands::human_human},
    {"quit", &InterfaceCommands::quit},
};

void InterfaceCommands::process(std::string_view line) {
    text::WordReader reader(line);
    if (reader.integer<int>() != 0) {
        throw std::logic_error("Manager::process_command_from_interface: command not from interface");
    }
    const auto word = reader.word();
    const auto command = std::ranges::find(commands, word, &Command::word);
    if (command != std::end(commands)) (this->*command->run)(reader);
}

void InterfaceCommands::debug(text::WordReader& arguments) {
    m_state.log.set_debug(arguments.word() == "true");
}

void InterfaceCommands::human_human(text::WordReader&) { m_state.mode = ManagerMode::human_human; }

void InterfaceCommands::quit(text::WordReader&) {
    m_state.quit = true;
    m_state.send("quit");
}

}  // namespace velmora
