#pragma once

namespace velmora {

/// A pipe to oneself: makes a thread that polls read_fd() look up.
///
/// Owns its two descriptors, which no child inherits.
///
/// A condition variable can't be waited for together with a descriptor. Nothing is ever read from the pipe:
/// it is used for one message, "leave", which must stay to be seen.
class WakeupPipe {
public:
    /// Throws std::system_error when the process has no descriptors left.
    WakeupPipe();
    ~WakeupPipe();

    WakeupPipe(const WakeupPipe&) = delete;
    WakeupPipe& operator=(const WakeupPipe&) = delete;

    /// Readable from now on; any thread may call this.
    void wake() const;
    int read_fd() const { return m_fds[0]; }

private:
    int m_fds[2];
};

}  // namespace velmora
