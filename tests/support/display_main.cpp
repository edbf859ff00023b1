#include <clocale>

#include <gtkmm/main.h>

#include <gmock/gmock.h>

int main(int argc, char** argv) {
    testing::InitGoogleMock(&argc, argv);
    Gtk::Main toolkit(argc, argv);
    // The toolkit takes the locale from the environment; numbers keep their decimal point, as in the program.
    std::setlocale(LC_NUMERIC, "C");
    return RUN_ALL_TESTS();
}
