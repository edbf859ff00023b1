#pragma once

#include <deque>
#include <string>

#include <gtkmm/entry.h>
#include <gtkmm/grid.h>
#include <gtkmm/label.h>
#include <gtkmm/radiobutton.h>

#include "engine/time/level.h"

namespace velmora {

/// The widget in which the user picks a time control: five modes with their free-text entries.
///
/// Typing into an entry picks its mode. Nothing is checked: what cannot be read counts as 0.
///
/// The entries' texts are put together to the text form of a level and read by it, so that there is one
/// reader of time controls in the program and one opinion of what "5:30" means.
class TimeControlPanel : public Gtk::Grid {
public:
    /// Shows the default time control.
    TimeControlPanel();
    explicit TimeControlPanel(const Level& level);

    /// Shows another time control; what its mode has no entry for stays.
    void show(const Level& level);

    /// What the panel shows now.
    Level level();

private:
    /// One row: a radio button and the entries whose texts make the level's text form.
    struct Mode {
        Gtk::RadioButton button;
        std::string prefix;  // what stands ahead of the entries' texts
        std::deque<Gtk::Label> labels;
        std::deque<Gtk::Entry> entries;
    };
    struct FieldDescription;
    struct ModeDescription;

    void add_mode(const ModeDescription& description);
    void show_level();

    Level m_level;
    std::deque<Mode> m_modes;  // at the index that is the number of their LevelType
};

}  // namespace velmora
