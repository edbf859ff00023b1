#include "game/position_lines.h"

namespace velmora {

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
