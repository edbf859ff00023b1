#include "base/log_file.h"

namespace velmora {

void LogFile::open(const std::string& path, Opening opening) {
    const std::lock_guard lock(m_mutex);
    if (m_stream.is_open()) m_stream.close();
    m_stream.clear();
    m_stream.open(path, opening == Opening::append ? std::ios::app : std::ios::trunc);
}

void LogFile::close() {
    const std::lock_guard lock(m_mutex);
    if (m_stream.is_open()) m_stream.close();
}

void LogFile::write(std::string_view line) {
    const std::lock_guard lock(m_mutex);
    if (m_stream.is_open()) m_stream << line << '\n' << std::flush;
}

}  // namespace velmora
