#include "views/input/wheel_steps.h"

#include <cmath>

#include <gtk/gtk.h>

namespace velmora {

int WheelSteps::take(const GdkEventScroll& event) {
    if ((event.state & gtk_accelerator_get_default_mod_mask()) != 0) return 0;
    if (event.direction == GDK_SCROLL_UP) m_rest -= 1;
    if (event.direction == GDK_SCROLL_DOWN) m_rest += 1;
    if (event.direction == GDK_SCROLL_SMOOTH) m_rest += event.delta_y;
    const double whole = std::trunc(m_rest);
    m_rest -= whole;
    return static_cast<int>(whole);
}

}  // namespace velmora
