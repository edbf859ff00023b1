#pragma once

#include <functional>
#include <string>

namespace velmora {

/// The desktop's clipboard, as far as texts go.
class Clipboard {
public:
    virtual ~Clipboard() = default;

    virtual void put(const std::string& text) = 0;
    /// Has `take` given what is there, later: another program may have to be asked. Nothing is given where
    /// there is no text.
    virtual void ask(std::function<void(const std::string& text)> take) = 0;
};

}  // namespace velmora
