#include "window/menu/window_placement.h"

#include <algorithm>
#include <cstdint>
#include <limits>

namespace velmora {

namespace {

constexpr int title_height = 30;  // pixels, about

std::int64_t common_area(const ScreenBox& a, const ScreenBox& b) {
    const int width = std::min(a.x + a.width, b.x + b.width) - std::max(a.x, b.x);
    const int height = std::min(a.y + a.height, b.y + b.height) - std::max(a.y, b.y);
    return width <= 0 || height <= 0 ? 0 : std::int64_t{width} * height;
}

bool covers_title(const ScreenBox& upper, const ScreenBox& lower) {
    return common_area(upper, {lower.x, lower.y, lower.width, title_height}) > 0;
}

/// What a place costs: pixels that are covered, those of the main window tenfold.
std::int64_t cost(const ScreenBox& place, const ScreenBox& main, const std::vector<ScreenBox>& others) {
    constexpr std::int64_t title = std::int64_t{1} << 40;
    std::int64_t sum = 10 * common_area(place, main);
    for (const ScreenBox& other : others) {
        sum += common_area(place, other) + (covers_title(place, other) ? title : 0);
    }
    return sum;
}

bool is_within(const ScreenBox& box, const ScreenBox& screen) {
    return box.x >= screen.x && box.x + box.width <= screen.x + screen.width && box.y >= screen.y &&
           box.y + box.height <= screen.y + screen.height;
}

}  // namespace

ScreenBox free_place(const ScreenBox& main, const std::vector<ScreenBox>& others, const ScreenBox& wanted,
                     const ScreenBox& screen) {
    // Free space begins at the edge of a window or of the screen.
    std::vector<int> lefts = {main.x + main.width, main.x - wanted.width};
    std::vector<int> tops = {main.y, main.y + main.height};
    for (const ScreenBox& other : others) {
        lefts.push_back(other.x + other.width);
        lefts.push_back(other.x - wanted.width);
        tops.push_back(other.y + other.height);
        tops.push_back(other.y + title_height);
    }
    lefts.push_back(screen.x + screen.width - wanted.width);
    lefts.push_back(screen.x);
    lefts.push_back(main.x);
    tops.push_back(screen.y);
    tops.push_back(screen.y + screen.height - wanted.height);
    std::ranges::sort(tops.begin() + 1, tops.end());
    // One that is too large for the screen begins at its upper left.
    ScreenBox best{screen.x, screen.y, wanted.width, wanted.height};
    std::int64_t least = std::numeric_limits<std::int64_t>::max();
    for (const int left : lefts) {
        for (const int top : tops) {
            const ScreenBox place{left, top, wanted.width, wanted.height};
            if (!is_within(place, screen)) continue;
            const std::int64_t covered = cost(place, main, others);
            if (covered >= least) continue;
            least = covered;
            best = place;
        }
    }
    return best;
}

}  // namespace velmora
