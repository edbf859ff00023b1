#pragma once

#include <chrono>
#include <optional>

#include "views/board/square_geometry.h"

namespace velmora {

/// Decides when the images are rendered for a new size.
///
/// Rendering takes some frames' time. So a single change of size is rendered at once, while sizes that follow
/// each other quickly, as under the hand that drags the frame of a window, are rendered when the last of them
/// has stood for a moment; until then the images of the earlier size are scaled.
///
/// A decision without a timer of its own: the time comes in, so that it can be tried without waiting.
/// Whoever is told "not yet" has to see to it that there is a later draw.
class RenderPacer {
public:
    using Time = std::chrono::steady_clock::time_point;
    static constexpr std::chrono::milliseconds settling_time{150};

    /// Whether images of this size must be rendered now. REQUIRES: the caller does so when told.
    bool is_due(CellSize wanted, Time now);

private:
    std::optional<CellSize> m_rendered;
    CellSize m_wanted;
    Time m_changed;  // when m_wanted last took another value
};

}  // namespace velmora
