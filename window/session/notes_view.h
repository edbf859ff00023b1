#pragma once

#include <string>

#include "chess/board/side.h"

namespace velmora {

/// What is written beside the board: the record, the comment of its current move, and what engines say.
///
/// Apart from the board because it is the part that may be out of sight, in windows of its own.
class NotesView {
public:
    virtual ~NotesView() = default;

    /// Shows the session's record: PGN text and the highlight of the current move.
    virtual void show_game() = 0;
    virtual void show_comment(const std::string& comment) = 0;

    virtual void add_analysis(Side side, const std::string& line) = 0;
    virtual void clear_analysis() = 0;
};

}  // namespace velmora
