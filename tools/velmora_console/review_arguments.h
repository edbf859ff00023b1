#pragma once

#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "review/review_settings.h"

namespace velmora {

/// A command line that can't be carried out; the text says why.
class UsageError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// The words behind the name of the program, which then reviews a file instead of reading commands.
struct ReviewArguments {
    std::string file;
    std::string engine;  ///< a path, the name of a program in the search path, or of an installed engine
    ReviewSettings settings;

    /// Throws UsageError.
    static ReviewArguments parse(const std::vector<std::string_view>& words);
    static std::string_view help_text();
};

}  // namespace velmora
