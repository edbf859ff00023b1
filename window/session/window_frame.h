#pragma once

#include <string>

#include "window/session/mode.h"

namespace velmora {

/// What is around the views: title, menu, and the window itself.
class WindowFrame {
public:
    virtual ~WindowFrame() = default;

    virtual void set_title(const std::string& title) = 0;
    virtual void close() = 0;

    virtual Mode mode() const = 0;
    /// Selects a radio action; what it brings about happens before this returns, unless it is selected
    /// already.
    virtual void select_mode(Mode mode) = 0;

    virtual void set_sensitive(Mode mode, bool sensitive) = 0;
    virtual void set_sensitive(MenuEntry entry, bool sensitive) = 0;
};

}  // namespace velmora
