#include "engine/finding/engine_question.h"

#include <condition_variable>
#include <functional>
#include <mutex>
#include <thread>

#include "engine/drivers/protocol_engine.h"
#include "engine/process/engio.h"

namespace velmora {

namespace {

constexpr std::chrono::milliseconds look_interval(5);

/// Requests a stop when its time is over.
class Deadline {
public:
    Deadline(std::stop_source& source, std::chrono::milliseconds patience)
        : m_thread([&source, patience](const std::stop_token& done) {
              std::mutex mutex;
              std::unique_lock lock(mutex);
              std::condition_variable_any never;
              never.wait_for(lock, done, patience, [] { return false; });
              if (!done.stop_requested()) source.request_stop();
          }) {}

private:
    std::jthread m_thread;
};

/// A process and its reader, for as long as it is asked.
class Asked {
public:
    Asked(std::string path, const std::stop_token& leaving)
        : m_path(std::move(path)), m_engio(leaving), m_probe(look_interval, leaving) {
        m_probe.attach(1, &m_record, &m_engio);
    }
    ~Asked() { end(); }
    Asked(const Asked&) = delete;
    Asked& operator=(const Asked&) = delete;

    std::optional<EngineVariables> ask() {
        if (!start()) return std::nullopt;
        m_probe.load(1, m_path, Protocol::autodetect, false);
        if (m_probe.ended_at_uci()) {
            end();
            m_probe.clear_queue();
            if (!start()) return std::nullopt;
            m_probe.go_on_with_xboard();
        }
        // Whatever stays alive is taken for an engine of xboard's first version, which never moves.
        const bool plays = m_probe.protocol() == Protocol::uci || m_probe.protocol() == Protocol::xboard_v2;
        if (!m_probe.is_alive() || !m_probe.found() || !plays) return std::nullopt;
        return m_probe.with_record([this](const EngineRecord& record) {
            EngineVariables engine = record.variables;
            engine.filename = m_path;
            engine.protocol = m_probe.protocol();
            return engine;
        });
    }

private:
    bool start() {
        ProgramCall call{.path = m_path};
        call.owned = true;
        m_engio.spawn_engine(call);
        m_engio.set_engine(&m_probe);
        if (m_engio.is_spawned()) m_reader = std::thread(std::ref(m_engio));
        return m_engio.is_spawned();
    }
    void end() {
        m_engio.quit();
        if (m_reader.joinable()) m_reader.join();
        m_engio.set_engine(nullptr);
    }

    const std::string m_path;
    EngineRecord m_record;
    Engio m_engio;
    ProtocolEngine m_probe;
    std::thread m_reader;
};

}  // namespace

std::optional<EngineVariables> ask_engine(const std::string& path, std::chrono::milliseconds patience,
                                          const std::stop_token& leaving) {
    std::stop_source over;
    const std::stop_callback leave(leaving, [&over] { over.request_stop(); });
    const Deadline deadline(over, patience);
    auto engine = Asked(path, over.get_token()).ask();
    // An answer that came as the time ran out may be cut short.
    if (over.stop_requested()) return std::nullopt;
    return engine;
}

}  // namespace velmora
