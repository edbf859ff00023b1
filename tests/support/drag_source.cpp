// A window that hands out one file by drag and drop, as a file manager does: drag_source PATH.

#include <glibmm/convert.h>
#include <gtkmm/eventbox.h>
#include <gtkmm/main.h>
#include <gtkmm/window.h>

int main(int argc, char** argv) {
    Gtk::Main toolkit(argc, argv);
    if (argc != 2) return 2;
    const Glib::ustring uri = Glib::filename_to_uri(argv[1]);
    Gtk::EventBox source;
    source.drag_source_set({Gtk::TargetEntry("text/uri-list")}, Gdk::BUTTON1_MASK, Gdk::ACTION_COPY);
    source.signal_drag_data_get().connect([&uri](const Glib::RefPtr<Gdk::DragContext>&,
                                                 Gtk::SelectionData& data, guint,
                                                 guint) { data.set_uris({uri}); });
    source.signal_drag_end().connect([](const Glib::RefPtr<Gdk::DragContext>&) { Gtk::Main::quit(); });
    Gtk::Window window;
    window.set_title("Drag from here");
    window.set_default_size(200, 200);
    window.add(source);
    window.show_all();
    Gtk::Main::run(window);
}
