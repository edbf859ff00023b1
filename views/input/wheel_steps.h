#pragma once

#include <gdk/gdk.h>

namespace velmora {

/// Whole steps out of the events of a wheel: one for each notch, and of smooth movement, as a touchpad makes
/// it, one as soon as the parts add up to a notch.
class WheelSteps {
public:
    /// The steps that an event completes, downwards or to the hand positive; 0 for one with a modifier key,
    /// which means something else.
    int take(const GdkEventScroll& event);

private:
    double m_rest = 0;  // of a step that isn't whole yet
};

}  // namespace velmora
