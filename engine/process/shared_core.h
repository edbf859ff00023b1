#pragma once

#include <pthread.h>
#include <sched.h>

namespace velmora {

/// Keeps the calling thread and one that is going to wake it on the core where the caller runs.
///
/// Two threads that take turns belong together: spread over two cores, each turn has to wake a sleeping core,
/// which on a machine with nothing else to do costs several times what the turn itself does. For short waits
/// only: a thread that may not move waits for whatever else comes to run on its core. The caller starts no
/// process meanwhile, which would inherit the binding.
class SharedCore {
public:
    /// Does nothing where the caller has no choice of cores anyway.
    explicit SharedCore(pthread_t other);
    /// Gives both threads the choice that the caller had before. Called by the thread that made it.
    ~SharedCore();

    SharedCore(const SharedCore&) = delete;
    SharedCore& operator=(const SharedCore&) = delete;

private:
    void allow(const cpu_set_t& cores) const;

    const pthread_t m_other;
    cpu_set_t m_choice;
    bool m_bound = false;
};

}  // namespace velmora
