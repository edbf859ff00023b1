#include "window/review/review_link.h"

#include <variant>

#include "base/text.h"

namespace velmora {

ReviewLink::ReviewLink(ManagerLink& manager, MessageDispatcher& dispatcher) : m_manager(manager) {
    dispatcher.listen([this](const to_window::Line& line) {
        const auto* const finished = std::get_if<to_window::ReviewFinished>(&line);
        if (finished && finished->run == m_running) m_running = 0;
    });
}

std::int32_t ReviewLink::start(const Level& level, const std::vector<std::size_t>& plies,
                               const std::string& line) {
    std::string listed;
    for (const std::size_t ply : plies) {
        if (!listed.empty()) listed += ',';
        listed += std::to_string(ply);
    }
    const std::string words = level.text();
    text::WordReader effort(words);
    to_referee::Review command;
    command.run = m_running = ++m_last;
    command.mode = effort.word();
    command.amount = effort.word();
    command.plies = listed.empty() ? "-" : listed;
    command.position = line;
    m_manager.send(command);
    return m_running;
}

void ReviewLink::stop(std::int32_t run) {
    if (run != 0 && run == m_running) m_manager.send(to_referee::ReviewStop());
}

}  // namespace velmora
