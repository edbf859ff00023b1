#pragma once

#include <string>
#include <utility>

namespace velmora {

/// A game that is too damaged to be cut out of its file. It has no base class: catch it by its own name.
///
/// Apart from the standard's exceptions on purpose: a handler for faulty moves, which are
/// std::logic_error, must not take a game that could not be cut out for one of these, and whoever walks a
/// file has to say what becomes of it.
class pgn_error {
public:
    explicit pgn_error(std::string text) : m_text(std::move(text)) {}

    /// What was read of the game, the marker of the fault at its end.
    const std::string& text() const { return m_text; }

private:
    std::string m_text;
};

}  // namespace velmora
