#include "engine/store/engine_identity.h"

#include "base/text.h"

namespace velmora {

void EngineIdentity::set_engine_name(const std::string& reported) {
    engine_name = text::utf8_prefix(reported, longest_name);
    if (name.empty()) name = engine_name;
}

}  // namespace velmora
