#pragma once

namespace velmora {

/// The colours of the arrows that a board shows over its squares.
enum class ArrowColor { red, green, blue };

}  // namespace velmora
