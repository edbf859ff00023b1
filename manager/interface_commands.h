#pragma once

#include <string_view>

#include "channel/text.h"
#include "manager/referee_state.h"

namespace velmora {

/// The commands that the window sends: a table from the first word to a small function.
class InterfaceCommands {
public:
    explicit InterfaceCommands(RefereeState& state) : m_state(state) {}

    /// Carries out one line, sender id included. An unknown word does nothing; a sender other than 0 throws
    /// std::logic_error.
    void process(std::string_view line);

private:
    struct Command;
    static const Command commands[];

    void debug(text::WordReader& arguments);
    void human_human(text::WordReader& arguments);
    void quit(text::WordReader& arguments);

    RefereeState& m_state;
};

}  // namespace velmora
