#include "dialogs/about_dialog.h"

#include <iostream>

#include <gdkmm/pixbuf.h>
#include <gtkmm/aboutdialog.h>

#include "base/program.h"

namespace velmora {

void show_about(Gtk::Window& parent, const std::string& image) {
    Gtk::AboutDialog dialog;
    dialog.set_transient_for(parent);
    dialog.set_modal(true);
    dialog.set_program_name(program_name);
    dialog.set_version(program_version);
    dialog.set_license_type(Gtk::LICENSE_GPL_3_0);
    try {
        dialog.set_logo(Gdk::Pixbuf::create_from_file(image));
    } catch (const Glib::Error& error) {
        std::cerr << image << ": " << error.what().raw() << '\n';
        dialog.set_logo_default();
    }
    dialog.run();
}

}  // namespace velmora
