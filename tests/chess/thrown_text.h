#pragma once

#include <stdexcept>
#include <string>

#include <gtest/gtest.h>

namespace velmora::testing {

/// The text of the std::logic_error that the call throws; "nothing thrown" when it returns.
template <class Call>
std::string thrown_text(Call call) {
    try {
        call();
    } catch (const std::logic_error& error) {
        return error.what();
    }
    return "nothing thrown";
}

}  // namespace velmora::testing
