#pragma once

#include <functional>
#include <string>
#include <utility>

namespace velmora {

/// What there is to say above the board, one thing at a time: a later one takes the place of the one before.
///
/// Nothing waits for an answer, and nothing takes the keyboard; what may be answered has a function.
class Notice {
public:
    void say(const std::string& text, std::function<void()> accept = {}) {
        m_text = text;
        m_accept = std::move(accept);
    }
    void clear() { say({}); }

    /// Empty when there is nothing to say.
    const std::string& text() const { return m_text; }
    bool can_accept() const { return static_cast<bool>(m_accept); }
    /// REQUIRES: can_accept(). The notice goes with it.
    void accept() {
        const auto accept = std::exchange(m_accept, {});
        clear();
        accept();
    }

private:
    std::string m_text;
    std::function<void()> m_accept;
};

}  // namespace velmora
