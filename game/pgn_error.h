#pragma once

#include <string>
#include <utility>

namespace velmora {

/// A game that is too damaged to be cut out of its file. It has no base class: catch it by its own name.
class pgn_error {
public:
    explicit pgn_error(std::string text) : m_text(std::move(text)) {}

    /// What was read of the game, the marker of the fault at its end.
    const std::string& text() const { return m_text; }

private:
    std::string m_text;
};

}  // namespace velmora
