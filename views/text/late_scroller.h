#pragma once

#include <gtkmm/enums.h>

namespace Gtk {
class Bin;
class ScrolledWindow;
class Widget;
}  // namespace Gtk

namespace velmora {

/// Puts `view` into `frame` behind scroll bars and shows it; null when something is there already.
///
/// The windows beside the board call it when they are first shown: scroll bars are among the dearest of
/// widgets, and what nobody opens must not hold up the start of the program.
Gtk::ScrolledWindow* add_scroller(Gtk::Bin& frame, Gtk::Widget& view, Gtk::PolicyType horizontal);

}  // namespace velmora
