#include "views/board/render_pacer.h"

namespace velmora {

bool RenderPacer::is_due(CellSize wanted, Time now) {
    const bool stood = now - m_changed >= settling_time;
    if (wanted != m_wanted) {
        m_wanted = wanted;
        m_changed = now;
    }
    if (m_rendered == wanted || (m_rendered && !stood)) return false;
    m_rendered = wanted;
    return true;
}

}  // namespace velmora
