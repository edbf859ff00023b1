#pragma once

#include <chrono>
#include <string_view>

#include "base/log_file.h"

namespace velmora {

/// The referee's log "manager.log" in the working directory: each line carries the session time.
///
/// The engine drivers write their trace lines into the same file, from their own threads; the file itself
/// keeps lines whole.
///
/// The time runs from the start of the session, so that the distance of two lines can be read off them; the
/// drivers stamp by the wall clock, as the engines' own logs do.
class ManagerLog {
public:
    /// Opens the log for appending, or closes it. A file that can't be opened leaves the log on and mute.
    void set_debug(bool debug);
    bool is_on() const { return m_on; }

    /// Writes the session stamp and `text` when the log is on.
    void write(std::string_view text);

    /// The file, for the drivers' own lines.
    LogFile& file() { return m_file; }

private:
    const std::chrono::steady_clock::time_point m_start = std::chrono::steady_clock::now();
    bool m_on = false;
    LogFile m_file;
};

}  // namespace velmora
