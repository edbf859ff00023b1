// A list of installed engines, however damaged: what is read and written again reads the same.

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <sstream>

#include "engine/store/installed_engines.h"

namespace {

std::string read_and_written(const std::string& text) {
    velmora::InstalledEngines engines("");
    std::istringstream in(text);
    engines.read(in);
    std::ostringstream out;
    engines.write(out);
    return out.str();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string once = read_and_written(std::string(reinterpret_cast<const char*>(data), size));
    if (read_and_written(once) != once) std::abort();
    return 0;
}
