#pragma once

#include <algorithm>

#include <gtkmm/bin.h>
#include <gtkmm/scrolledwindow.h>

namespace velmora {

/// A scrolled window that asks for the size of its content, lines broken for the width that there is, and
/// takes what it gets. REQUIRES: a content.
///
/// The toolkit's own asks for its height without regard to a width, so that a dialog whose labels are
/// broken into lines would open with the wrong one.
class FittingScroller : public Gtk::ScrolledWindow {
public:
    FittingScroller() {
        set_policy(Gtk::POLICY_AUTOMATIC, Gtk::POLICY_AUTOMATIC);
        set_overlay_scrolling(false);  // the bar shows that there is more
        set_propagate_natural_width(true);
    }

protected:
    Gtk::SizeRequestMode get_request_mode_vfunc() const override {
        return Gtk::SIZE_REQUEST_HEIGHT_FOR_WIDTH;
    }
    void get_preferred_height_vfunc(int& minimum, int& natural) const override {
        int least = 0, width = 0;
        content().get_preferred_width(least, width);
        get_preferred_height_for_width_vfunc(width, minimum, natural);
    }
    void get_preferred_height_for_width_vfunc(int width, int& minimum, int& natural) const override {
        Gtk::ScrolledWindow::get_preferred_height_vfunc(minimum, natural);
        int least_width = 0, unused = 0, height = 0;
        content().get_preferred_width(least_width, unused);
        content().get_preferred_height_for_width(std::max(width, least_width), unused, height);
        natural = std::max(minimum, height);
    }

private:
    /// Within the viewport that the toolkit puts around it.
    const Gtk::Widget& content() const { return *dynamic_cast<const Gtk::Bin&>(*get_child()).get_child(); }
};

}  // namespace velmora
