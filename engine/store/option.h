#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace velmora {

/// One option of an engine, as announced by an "option" line or kept in the list of installed engines.
///
/// All texts stay as the engine wrote them, numbers included: they go back to the engine and into a file,
/// and what passed through a number might come out in another form. Only the dialog that shows a spin
/// button reads them.
struct Option {
    std::string name;  ///< as the engine gives it, inner blanks kept
    std::string type;  ///< "check", "spin", "combo", "button" or "string"; empty when not announced
    std::string default_value;
    std::string min, max;           ///< decimal text, for "spin"
    std::vector<std::string> vars;  ///< the choices of a "combo", in the engine's order
    std::string value;              ///< the current value
    bool changed = false;           ///< set by the dialog in which the user touched the option

    Option() = default;

    /// Reads "option name Hash type spin default 16 min 1 max 1024" and its like; `value` becomes the
    /// default. Throws std::runtime_error when the first word is not "option".
    explicit Option(std::string_view line);
};

/// Options by name, in the order of the names.
using Options = std::map<std::string, Option>;

}  // namespace velmora
