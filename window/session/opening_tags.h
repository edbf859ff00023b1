#pragma once

#include <cstdint>

#include "game/game.h"
#include "openings/eco.h"

namespace velmora {

/// Sets the tags "ECO" and "Opening" when the position with this key has a name.
/// A position without a name changes nothing: what was reached last is the opening of the game.
void tag_opening(Game& record, const Eco& openings, std::uint64_t key);

/// Sets the same two tags from the last position of the main line that has a name.
/// For a record that comes from elsewhere, whose moves haven't gone through the session.
void tag_opening_of_main_line(Game& record, const Eco& openings);

}  // namespace velmora
