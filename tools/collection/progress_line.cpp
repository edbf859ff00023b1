#include "tools/collection/progress_line.h"

#include <cstdio>
#include <unistd.h>

namespace velmora {

ProgressLine::ProgressLine() : m_is_terminal(::isatty(STDERR_FILENO) == 1) {}

ProgressLine::~ProgressLine() {
    if (m_shown >= 0) std::fputs("\r\033[K", stderr);
}

void ProgressLine::show(const IndexProgress& progress) {
    if (!m_is_terminal || progress.total == 0) return;
    const bool sorts = progress.phase == IndexProgress::Phase::sorting;
    const auto percent = static_cast<int>(100 * progress.done / progress.total);
    if (percent + (sorts ? 100 : 0) == m_shown) return;
    m_shown = percent + (sorts ? 100 : 0);
    std::fprintf(stderr, "\r%s %3d %%", sorts ? "Sorting positions" : "Reading games    ", percent);
    std::fflush(stderr);
}

}  // namespace velmora
