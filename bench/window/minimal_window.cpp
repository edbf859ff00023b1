// The least that a gtkmm program can do: the peer against which start-up is measured.
#include <gtkmm/main.h>
#include <gtkmm/window.h>

int main(int argc, char** argv) {
    Gtk::Main toolkit(argc, argv);
    Gtk::Window window;
    window.set_default_size(560, 640);
    window.show();
    Gtk::Main::run(window);
    return 0;
}
