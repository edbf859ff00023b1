#pragma once

#include "collection/index_builder.h"

namespace velmora {

/// A line on standard error that tells how far an index is, rewritten in place; nothing where standard error
/// is no terminal. The line is gone when the object goes.
class ProgressLine {
public:
    ProgressLine();
    ~ProgressLine();
    ProgressLine(const ProgressLine&) = delete;
    ProgressLine& operator=(const ProgressLine&) = delete;

    /// From any thread, by one at a time.
    void show(const IndexProgress& progress);

private:
    const bool m_is_terminal;
    int m_shown = -1;  // percent, 100 added while sorting
};

}  // namespace velmora
