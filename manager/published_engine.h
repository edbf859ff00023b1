#pragma once

#include <mutex>
#include <optional>

#include "engine/store/engine_variables.h"

namespace velmora {

/// A copy of what is known of the first engine, for the window's dialogs: the one record that crosses the
/// threads. The mutex is held for the copy alone, so nobody ever waits for an engine here.
///
/// The alternative, a question by line and an answer by line, would have the dialog wait for a referee that
/// may be waiting for an engine.
class PublishedEngine {
public:
    void publish(std::optional<EngineVariables> variables);

    bool has_engine() const;

    /// Throws std::logic_error when there is no engine.
    EngineVariables variables() const;

private:
    mutable std::mutex m_mutex;
    std::optional<EngineVariables> m_variables;  // guarded by m_mutex; none while the place is empty
};

}  // namespace velmora
