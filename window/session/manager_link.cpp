#include "window/session/manager_link.h"

#include "base/text.h"

namespace velmora {

ManagerLink::ManagerLink(CommandSink& manager) : m_manager(manager) { m_session.start(); }

void ManagerLink::send(const std::string& command) {
    const std::string line = "0 " + command;
    m_manager.put_command(line);
    const auto word = text::first_word(command);
    ++m_sent;
    if (word == "usermove" || word == "setboard" || word == "new") m_position_sent = m_sent;
    if (word == "load" || word == "start_tournament") m_load_sent = m_sent;
    if (word == "quit") m_leaving = true;
    // Sent once a second, it would flood the log.
    if (command.find("wake_up") == std::string::npos) m_log.write(stamp() + " interface --> " + line);
}

void ManagerLink::receive(const std::string& line, std::uint64_t taken) {
    m_taken = taken;
    m_log.write(stamp() + " manager -----> " + line);
}

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
