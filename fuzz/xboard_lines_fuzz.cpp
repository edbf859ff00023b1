// Lines of an xboard engine and orders between them, the first byte choosing its features: what is posted is
// the line, a resignation, a move or thinking output in the words of UCI, or nothing.

#include "base/text.h"
#include "engine/drivers/xboard_engine.h"
#include "fuzz/driver_checks.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace velmora;
    if (size == 0) return 0;
    XboardFeatures features;
    features.setboard = (data[0] & 1) != 0;
    features.san = (data[0] & 2) != 0;
    features.usermove = (data[0] & 4) != 0;
    features.reuse = (data[0] & 8) != 0;
    features.time = (data[0] & 16) != 0;
    fuzzing::drive<XboardEngine>(
        data + 1, size - 1, features, [](const std::string& line, std::string_view posted) {
            return posted == line || posted.empty() || posted == "resign" ||
                   posted.starts_with("bestmove ") || posted.starts_with("info depth ") ||
                   text::first_word(posted) == "readyok";
        });
    return 0;
}
