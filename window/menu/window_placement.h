#pragma once

#include <vector>

namespace velmora {

/// A rectangle on the screen, pixels from its upper left corner.
struct ScreenBox {
    int x = 0;
    int y = 0;
    int width = 0;
    int height = 0;
    bool operator==(const ScreenBox&) const = default;
};

/// Where a second window goes so that it covers the first one as little as the screen allows: to its right,
/// to its left, or else at the edge on the wider side. Its height above the bottom of the screen is kept.
/// Arithmetic alone: what a window manager makes of the place is its own affair.
ScreenBox place_beside(const ScreenBox& first, const ScreenBox& second, const ScreenBox& screen);

/// The y at which a window of that height stands below all open ones, from `top` downwards; `otherwise` when
/// the screen ends before.
int top_below(const std::vector<ScreenBox>& open, int top, int height, const ScreenBox& screen,
              int otherwise);

}  // namespace velmora
