// A feature line cut anywhere: pair after pair is taken off its front until nothing is left.

#include <cstddef>
#include <cstdint>
#include <cstdlib>

#include "engine/drivers/xboard_feature.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace velmora;
    std::string_view rest(reinterpret_cast<const char*>(data), size);
    EngineVariables engine;
    for (auto left = rest.size(); const auto feature = take_feature(rest); left = rest.size()) {
        if (rest.size() >= left || feature->name.find_first_of("= ") != std::string::npos) std::abort();
        apply_feature(*feature, engine);
    }
    if (!rest.empty()) std::abort();
    return 0;
}
