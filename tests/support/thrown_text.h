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

}  // namespace velmora::test
