#pragma once

namespace velmora {

/// The colours of the arrows that a board shows over its squares: red and green for a bad and a good move of
/// an opening drill, blue for a hint. Their numbers are those by which the drawing knows them.
enum class ArrowColor { red = 0, green = 1, blue = 2 };

}  // namespace velmora
