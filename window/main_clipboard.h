#pragma once

#include "window/session/clipboard.h"

namespace velmora {

/// The toolkit's clipboard.
class MainClipboard : public Clipboard {
public:
    void put(const std::string& text) override;
    void ask(std::function<void(const std::string& text)> take) override;
};

}  // namespace velmora
