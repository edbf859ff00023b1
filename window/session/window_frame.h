#pragma once

#include <string>

#include "window/session/mode.h"

namespace velmora {

/// What is around the views: title, menu, and the window itself.
///
/// The mode stands here, with the menu, and not in the session: the radio actions of the menu are what
/// keeps it, and a copy would be one more thing that could differ from what the person sees.
class WindowFrame {
public:
    virtual ~WindowFrame() = default;

    virtual void set_title(const std::string& title) = 0;
    /// Hides the window, by which the program ends.
    virtual void close() = 0;

    virtual Mode mode() const = 0;
    /// Selects a radio action; what it brings about happens before this returns, unless it is selected
    /// already.
    virtual void select_mode(Mode mode) = 0;

    /// An entry that is of no use at the moment is greyed, so that no handler has to explain why it does
    /// nothing.
    virtual void set_sensitive(Mode mode, bool sensitive) = 0;
    virtual void set_sensitive(MenuEntry entry, bool sensitive) = 0;
};

}  // namespace velmora
