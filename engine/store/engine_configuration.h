#pragma once

#include <string>

#include "engine/store/option.h"

namespace velmora {

/// What an xboard engine can do and wants, with the values that hold until it says otherwise.
/// Most are off until they are announced, so that an engine which says nothing is sent only what the first
/// version of the protocol had.
struct XboardFeatures {
    bool ping = false;
    bool setboard = false;
    bool san = false;
    bool usermove = false;
    bool time = false;
    bool reuse = false;
    bool colors = true;
    bool nps = true;
    bool debug = false;
    bool smp = false;
    bool memory = false;

    bool operator==(const XboardFeatures&) const = default;
};

/// What an engine announced that can be set, and what the user has set.
///
/// An option stands here with the value that the engine is to have; whether it has been sent is the driver's
/// business. What comes out of the list of installed engines has names and values alone: type, limits and
/// choices are known only while a program runs that announces them.
struct EngineConfiguration {
    std::string handicap;  ///< time handicap in per cent, free text
    Options options;
    XboardFeatures features;
    std::string egt = "0";  ///< value of the xboard feature of that name

    /// Inserts under the option's name, or overwrites all but key and `changed`.
    /// An engine may announce an option twice; that the user has touched it stays true.
    void add_option(const Option& option);
};

}  // namespace velmora
