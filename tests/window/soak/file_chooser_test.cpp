// The file chooser in the middle of its work. A complaint of the toolkit ends the program.

#include "window/file_chooser.h"

#include <algorithm>

#include <gtest/gtest.h>

#include "tests/support/gui_driver.h"
#include "tests/support/scratch_directory.h"

namespace velmora {
namespace {

bool exists(const Gtk::Window* dialog) {
    const auto windows = Gtk::Window::list_toplevels();
    return std::find(windows.begin(), windows.end(), dialog) != windows.end();
}

TEST(FileChooserTest, StaysBehindTheScreenWithWhatItHadBegun) {
    const ScratchDirectory folder;
    for (int number = 0; number < 1000; ++number) folder.write(std::to_string(number) + ".pgn", "");
    Gtk::Window parent;
    ASSERT_TRUE(gui::show_and_wait(parent));
    FileChooser chooser(parent);
    // A chooser that is destroyed between two folders complains when the first has been listed.
    for (const int response : {Gtk::RESPONSE_CANCEL, Gtk::RESPONSE_DELETE_EVENT}) {
        const Gtk::Window* shown = nullptr;
        const gui::Answer<Gtk::FileChooserDialog> answer([&](Gtk::FileChooserDialog& dialog) {
            shown = &dialog;
            dialog.set_current_folder(folder.path(""));
            dialog.response(response);
            return true;
        });
        EXPECT_EQ(chooser.choose(FileKind::load_game), "");
        EXPECT_TRUE(exists(shown));
        EXPECT_EQ(gui::shown_window<Gtk::FileChooserDialog>(), nullptr);
        gui::pump_pending();
    }
}

}  // namespace
}  // namespace velmora
