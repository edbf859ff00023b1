// A window that hands out one file by drag and drop, as a file manager does: drag_source PATH. Its title says
// when the pointer is over a place that takes the file; it ends with the drag.

#include <glibmm/convert.h>
#include <glibmm/main.h>
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
    Gtk::Window window;
    window.set_title("Drag from here");
    source.signal_drag_begin().connect([&window](const Glib::RefPtr<Gdk::DragContext>& context) {
        Glib::signal_timeout().connect(
            [&window, context] {
                const bool accepted = context->get_selected_action() == Gdk::ACTION_COPY;
                window.set_title(accepted ? "Drop it now" : "Dragging");
                return true;
            },
            20);
    });
    source.signal_drag_end().connect([](const Glib::RefPtr<Gdk::DragContext>&) { Gtk::Main::quit(); });
    window.set_default_size(200, 200);
    window.add(source);
    window.show_all();
    Gtk::Main::run(window);
}
