#include "manager/manager_log.h"

#include <cstdint>

#include "base/text.h"

namespace velmora {

void ManagerLog::set_debug(bool debug) {
    m_on = debug;
    if (debug) {
        m_file.open("manager.log", LogFile::Opening::append);
    } else {
        m_file.close();
    }
}

void ManagerLog::write(std::string_view text) {
    if (!m_on) return;
    const auto elapsed = std::chrono::steady_clock::now() - m_start;
    const auto milliseconds = std::chrono::duration_cast<std::chrono::milliseconds>(elapsed).count();
    m_file.write(text::log_stamp(static_cast<std::uint64_t>(milliseconds)).append(text));
}

}  // namespace velmora
