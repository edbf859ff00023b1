#include "engine/process/line_splitter.h"

#include <algorithm>

#include "base/text.h"

namespace velmora {

void LineSplitter::append(std::string_view bytes) {
    m_pending.erase(0, m_taken);
    m_due -= std::min(m_due, m_taken);
    m_taken = 0;
    m_pending += bytes;
    if (m_pending.ends_with('\n') || m_pending.size() > limit) finish();
}

void LineSplitter::finish() { m_due = std::max(m_due, m_pending.rfind('\n') + 1); }

std::optional<LineSplitter::Line> LineSplitter::next() {
    if (m_taken == m_due) return std::nullopt;
    const auto end = m_pending.find('\n', m_taken);
    Line line{m_pending.substr(m_taken, end - m_taken)};
    m_taken = end + 1;
    std::erase(line.text, '\0');
    while (line.text.ends_with('\r')) {
        line.text.pop_back();
        line.carriage_return = true;
    }
    line.text.resize(text::utf8_prefix(line.text, longest_line).size());
    return line;
}

void LineSplitter::clear() {
    m_pending.clear();
    m_taken = m_due = 0;
}

}  // namespace velmora
