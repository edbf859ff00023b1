#include "engine/process/shared_core.h"

namespace velmora {

SharedCore::SharedCore(pthread_t other) : m_other(other) {
    const int core = sched_getcpu();
    if (core < 0 || core >= CPU_SETSIZE) return;
    if (pthread_getaffinity_np(pthread_self(), sizeof m_choice, &m_choice) != 0) return;
    if (CPU_COUNT(&m_choice) < 2) return;
    cpu_set_t shared;
    CPU_ZERO(&shared);
    CPU_SET(static_cast<unsigned>(core), &shared);
    allow(shared);
    m_bound = true;
}

SharedCore::~SharedCore() {
    if (m_bound) allow(m_choice);
}

/// A thread that has ended or is refused stays as it is: nothing depends on it but time.
void SharedCore::allow(const cpu_set_t& cores) const {
    pthread_setaffinity_np(pthread_self(), sizeof cores, &cores);
    pthread_setaffinity_np(m_other, sizeof cores, &cores);
}

}  // namespace velmora
