#pragma once

#include <fstream>
#include <mutex>
#include <string>
#include <string_view>

namespace velmora {

/// A text log that several threads write to: every line goes out whole and is flushed.
///
/// A file that can't be opened, or a closed log, swallows what is written.
///
/// Flushed, because a log is read to find out why the program has ended, and what a stream still holds
/// then is lost. That it swallows is on purpose: nobody's game ends because a log can't be written.
/// Opening is told apart from construction since logs are switched on and off while threads write.
class LogFile {
public:
    /// Whether an earlier content stays or goes.
    enum class Opening { append, truncate };

    /// Opens `path`, closing an open file first.
    void open(const std::string& path, Opening opening);
    void close();

    /// Writes `line` and a line end, and flushes.
    void write(std::string_view line);

private:
    std::mutex m_mutex;
    std::ofstream m_stream;  // guarded by m_mutex
};

}  // namespace velmora
