#include "window/manager_link.h"

#include "channel/text.h"

namespace velmora {

ManagerLink::ManagerLink(CommandSink& manager) : m_manager(manager) { m_session.start(); }

void ManagerLink::send(const std::string& command) {
    const std::string line = "0 " + command;
    m_manager.put_command(line);
    const auto word = text::first_word(command);
    if (word == "usermove" || word == "go") m_asked_engine = true;
    if (word == "setboard" || word == "new") {
        m_asked_engine = m_heard = false;
        m_position_since_new = word == "setboard";
    }
    // A periodic sender of this one command would flood the log.
    if (command.find("wake_up") == std::string::npos) m_log.write(stamp() + " interface --> " + line);
}

void ManagerLink::log_received(const std::string& line) { m_log.write(stamp() + " manager -----> " + line); }

void ManagerLink::set_logging(bool on) {
    if (on) {
        m_log.open("interface.log", LogFile::Opening::truncate);
    } else {
        m_log.close();
    }
}

std::string ManagerLink::stamp() const {
    return text::log_stamp(static_cast<std::uint64_t>(m_session.elapsed_ms()));
}

}  // namespace velmora
