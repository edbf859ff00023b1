#pragma once

#include <string>
#include <vector>

#include <gtkmm/window.h>

namespace velmora {

/// One row of the list of remarks.
struct RemarkRow {
    int game = 0;         ///< its number in the chooser
    std::string players;  ///< valid UTF-8, as all texts here
    std::string remark;
};

/// Shows what was repaired in the games of a file, or could not be, until the person has read it.
void show_remarks(Gtk::Window& parent, const std::vector<RemarkRow>& rows);

}  // namespace velmora
