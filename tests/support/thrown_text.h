#pragma once

#include <stdexcept>
#include <string>

namespace velmora::test {

/// The text of the exception of class Error that the call throws; "nothing thrown" when it returns.
template <class Error = std::logic_error, class Call>
std::string thrown_text(Call call) {
    try {
        call();
    } catch (const Error& error) {
        return error.what();
    }
    return "nothing thrown";
}

/// The text with a value in the place of its "$", when it has one.
inline std::string filled(std::string text, const std::string& value) {
    const auto place = text.find('$');
    return place == std::string::npos ? text : text.replace(place, 1, value);
}

}  // namespace velmora::test
