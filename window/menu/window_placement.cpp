#include "window/menu/window_placement.h"

#include <algorithm>

namespace velmora {

ScreenBox place_beside(const ScreenBox& first, const ScreenBox& second, const ScreenBox& screen) {
    ScreenBox placed = second;
    const int right_end = screen.x + screen.width;
    const int room_right = right_end - (first.x + first.width);
    const int room_left = first.x - screen.x;
    if (room_right >= second.width) {
        placed.x = first.x + first.width;
    } else if (room_left >= second.width) {
        placed.x = first.x - second.width;
    } else {
        placed.x = room_right >= room_left ? std::max(screen.x, right_end - second.width) : screen.x;
    }
    const int lowest = screen.y + screen.height - second.height;
    placed.y = std::max(screen.y, std::min(second.y, lowest));
    return placed;
}

int top_below(const std::vector<ScreenBox>& open, int top, int height, const ScreenBox& screen,
              int otherwise) {
    for (const ScreenBox& box : open) top = std::max(top, box.y + box.height);
    return top + height <= screen.y + screen.height ? top : otherwise;
}

}  // namespace velmora
