#include "tools/match/signal_watch.h"

#include <csignal>
#include <unistd.h>

namespace velmora {

SignalWatch::~SignalWatch() {
    m_ending = true;
    pthread_kill(m_thread.native_handle(), SIGUSR1);
    m_thread.join();
}

void SignalWatch::watch(GamePool& pool) {
    sigset_t signals;
    sigemptyset(&signals);
    sigaddset(&signals, SIGINT);
    sigaddset(&signals, SIGTERM);
    sigaddset(&signals, SIGUSR1);  // the owner is done
    for (int caught = 0; sigwait(&signals, &caught) == 0;) {
        if (m_ending) return;
        if (caught == SIGUSR1) continue;
        if (++m_count > 1) _exit(128 + caught);  // the engines die with the threads that started them
        pool.break_off();
    }
}

}  // namespace velmora
