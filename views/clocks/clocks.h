#pragma once

#include <cstdint>
#include <optional>
#include <utility>

#include <gtkmm/box.h>
#include <gtkmm/cssprovider.h>
#include <gtkmm/label.h>

#include "views/clocks/clock_pair.h"

namespace velmora {

/// The strip with the two chess clocks. The side to move stands on the active colour and, for who does not
/// see it, in bold with a frame around its time.
///
/// The colours come by a style sheet of its own, which also takes away the image that a theme may lay over
/// them.
class Clocks : public Gtk::Box {
public:
    Clocks();

    /// As in ClockPair. The labels follow at the next update().
    void set_level(const Level& level) { m_clocks.set_level(level); }
    void reset() { m_clocks.reset(); }
    void set_time(Side side, std::int32_t centiseconds) { m_clocks.set_time(side, centiseconds); }
    void set_white_time(std::int32_t centiseconds) { set_time(Side::white, centiseconds); }
    void set_black_time(std::int32_t centiseconds) { set_time(Side::black, centiseconds); }

    /// The side's clock runs, the opponent has moved.
    void start(Side side);
    void start_white() { start(Side::white); }
    void start_black() { start(Side::black); }
    /// Neither clock runs, neither side is shown to move.
    void stop();

    /// What is left, centiseconds, and how many moves have been made in the session.
    std::pair<std::int32_t, std::int32_t> reading(Side side) const {
        return {m_clocks.time_now(side), m_clocks.moves(side)};
    }
    /// Stops both and has them stand at these readings; then that of `running` runs, if there is one.
    void restore(const BySide<std::pair<std::int32_t, std::int32_t>>& readings, std::optional<Side> running);

    /// Shows who is to move, without running a clock.
    void show_to_move(Side side);
    void show_white_to_move() { show_to_move(Side::white); }
    void show_black_to_move() { show_to_move(Side::black); }

    /// Brings the texts up to the present second; for the window's tick.
    void update();

    /// Enlarges names and times; 1 is the size that the theme's font gives them.
    void set_text_scale(double scale);
    /// What the strip needs at the scale 1, pixels.
    Gtk::Requisition ordinary_size();

private:
    void pack_side(Side side);
    void set_active(Side side, bool active);

    ClockPair m_clocks;
    BySide<Gtk::Label> m_labels;
    BySide<Gtk::Label> m_time_labels;
    Glib::RefPtr<Gtk::CssProvider> m_style;
    double m_text_scale = 1;
};

}  // namespace velmora
