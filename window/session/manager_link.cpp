#include "window/session/manager_link.h"

#include "base/text.h"
#include "channel/sender.h"

namespace velmora {

ManagerLink::ManagerLink(CommandSink& manager) : m_manager(manager) { m_session.start(); }

void ManagerLink::send_text(const std::string& command) {
    const std::string line = window_line(command);
    m_manager.put_command(line);
    const auto effects = to_referee::effects_of(command);
    ++m_sent;
    if (effects.changes_position) m_position_sent = m_sent;
    if (effects.seats_engines) m_load_sent = m_sent;
    if (effects.starts_match) m_match_sent = m_sent;
    if (effects.quits) m_leaving = true;
    // Sent once a second, it would flood the log. It is looked for anywhere in the line.
    const bool wakes = command.find(to_referee::WakeUp::word) != std::string::npos;
    if (!wakes) m_log.write(stamp() + " interface --> " + line);
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
