#pragma once

#include <gtkmm/scrolledwindow.h>

namespace velmora {

/// A scrolled window as large as its content, until that would be too large for a screen.
class FittingScroller : public Gtk::ScrolledWindow {
public:
    FittingScroller() {
        constexpr int widest = 1000, highest = 560;  // pixels
        set_policy(Gtk::POLICY_AUTOMATIC, Gtk::POLICY_AUTOMATIC);
        set_overlay_scrolling(false);  // the bar shows that there is more
        set_propagate_natural_width(true);
        set_propagate_natural_height(true);
        set_max_content_width(widest);
        set_max_content_height(highest);
    }
};

}  // namespace velmora
