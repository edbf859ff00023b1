#include "dialogs/position_lines.h"

#include <filesystem>
#include <system_error>

namespace velmora {

PositionLines::PositionLines(const std::string& path) {
    std::error_code error;
    if (!std::filesystem::is_regular_file(path, error)) return;  // a pipe would hold up the reader for ever
    m_file_size = std::filesystem::file_size(path, error);
    m_stream.open(path, std::ios::binary);
}

bool PositionLines::next(std::string& line) {
    while (std::getline(m_stream, line)) {
        m_line_offset = m_position;
        m_position += line.size() + 1;
        if (!line.empty() && line.back() == '\r') line.pop_back();
        if (!line.empty()) return true;
    }
    line.clear();
    return false;
}

}  // namespace velmora
