#include "views/text/late_scroller.h"

#include <gtkmm/bin.h>
#include <gtkmm/scrolledwindow.h>

namespace velmora {

Gtk::ScrolledWindow* add_scroller(Gtk::Bin& frame, Gtk::Widget& view, Gtk::PolicyType horizontal) {
    if (frame.get_child() != nullptr) return nullptr;
    auto* const scroller = Gtk::make_managed<Gtk::ScrolledWindow>();
    scroller->set_policy(horizontal, Gtk::POLICY_AUTOMATIC);
    scroller->add(view);
    frame.add(*scroller);
    scroller->show_all();
    return scroller;
}

}  // namespace velmora
