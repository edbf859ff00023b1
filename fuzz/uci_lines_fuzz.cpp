// Lines of a UCI engine and orders between them: every line is posted as it came, with at most its mark.

#include "base/text.h"
#include "engine/drivers/uci_engine.h"
#include "fuzz/driver_checks.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace velmora;
    fuzzing::drive<UciEngine>(data, size, {}, [](const std::string& line, std::string_view posted) {
        return posted == line || posted == line + " stopped" || text::first_word(posted) == "readyok";
    });
    return 0;
}
