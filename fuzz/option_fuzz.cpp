// An option line cut anywhere: either refused by its first word, or read into an option that can be sent.

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <stdexcept>

#include "base/text.h"
#include "engine/store/option.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace velmora;
    const std::string_view line(reinterpret_cast<const char*>(data), size);
    const bool is_option = text::first_word(line) == "option";
    try {
        const Option option(line);
        if (!is_option || option.value != option.default_value) std::abort();
        for (const std::string& choice : option.vars) {
            if (choice.empty()) std::abort();
        }
    } catch (const std::runtime_error&) {
        if (is_option) std::abort();
    }
    return 0;
}
