#include "base/program.h"

namespace velmora {

const char* const program_version = VELMORA_VERSION;

}  // namespace velmora
