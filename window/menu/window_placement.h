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

/// Where a further window goes: into free space beside the main one, on its right if there is room, else on
/// its left, from the main window's top downwards, over none of the `others`. Where the screen has no such
/// place, it covers as little as it can, of the main window above all, and no window's title.
/// Arithmetic alone: what a window manager makes of the place is its own affair.
ScreenBox free_place(const ScreenBox& main, const std::vector<ScreenBox>& others, const ScreenBox& wanted,
                     const ScreenBox& screen);

}  // namespace velmora
