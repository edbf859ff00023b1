#include "engine/process/wakeup_pipe.h"

#include <cerrno>
#include <fcntl.h>
#include <system_error>
#include <unistd.h>

namespace velmora {

WakeupPipe::WakeupPipe() {
    if (pipe2(m_fds, O_CLOEXEC | O_NONBLOCK) != 0) {
        throw std::system_error(errno, std::generic_category(), "pipe2");
    }
}

WakeupPipe::~WakeupPipe() {
    close(m_fds[0]);
    close(m_fds[1]);
}

void WakeupPipe::wake() const {
    // A full pipe is as readable as can be, so the result does not matter.
    [[maybe_unused]] const auto written = write(m_fds[1], "", 1);
}

}  // namespace velmora
