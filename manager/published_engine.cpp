#include "manager/published_engine.h"

#include <stdexcept>

namespace velmora {

void PublishedEngine::publish(std::optional<EngineVariables> variables) {
    const std::lock_guard lock(m_mutex);
    m_variables.swap(variables);
}

bool PublishedEngine::has_engine() const {
    const std::lock_guard lock(m_mutex);
    return m_variables.has_value();
}

EngineVariables PublishedEngine::variables() const {
    const std::lock_guard lock(m_mutex);
    if (!m_variables) throw std::logic_error("Manager::get_enginevariables()   no engine loaded");
    return *m_variables;
}

}  // namespace velmora
