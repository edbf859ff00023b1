#include "game/move_symbols.h"

#include <algorithm>
#include <array>

namespace velmora {

namespace {

constexpr auto symbols = std::to_array<MoveSymbol>({
    {"$1", "!", "!", "good move"},
    {"$2", "?", "?", "mistake"},
    {"$3", "!!", "!!", "brilliant move"},
    {"$4", "??", "??", "blunder"},
    {"$5", "!?", "!?", "interesting move"},
    {"$6", "?!", "?!", "dubious move"},
    {"$10", "=", "=", "equal position"},
    {"$13", "\u221E", "~", "unclear position"},
    {"$14", "\u2A72", "+/=", "White is slightly better"},
    {"$15", "\u2A71", "=/+", "Black is slightly better"},
    {"$16", "\u00B1", "+/-", "White is better"},
    {"$17", "\u2213", "-/+", "Black is better"},
    {"$18", "+\u2212", "+-", "White is winning"},
    {"$19", "\u2212+", "-+", "Black is winning"},
});

const MoveSymbol* find(std::string_view glyph) {
    const auto found = std::find_if(symbols.begin(), symbols.end(),
                                    [glyph](const auto& each) { return each.glyph == glyph; });
    return found == symbols.end() ? nullptr : &*found;
}

}  // namespace

std::span<const MoveSymbol> move_symbols() { return symbols; }

std::string_view sign_of(std::string_view glyph) {
    const auto* const symbol = find(glyph);
    return symbol ? symbol->sign : glyph;
}

std::string_view name_of(std::string_view glyph) {
    const auto* const symbol = find(glyph);
    return symbol ? symbol->name : glyph;
}

}  // namespace velmora
