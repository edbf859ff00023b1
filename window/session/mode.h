#pragma once

#include <array>
#include <cstddef>

namespace velmora {

/// The six radio actions of the Mode menu, in menu order.
/// The window's modes, not the referee's, which has none for setting up.
enum class Mode : std::size_t {
    setup,
    human_human,
    human_computer,
    analyze_position,
    learn_openings,
    tournament
};

inline constexpr std::size_t mode_count = 6;

/// The names of the radio actions, by Mode.
inline constexpr std::array<const char*, mode_count> mode_actions = {
    "Setup", "HumanHuman", "HumanComputer", "AnalyzePosition", "LearnOpenings", "Tournament"};

/// The entries of the menu that are of use only at times.
enum class MenuEntry : std::size_t {
    start_thinking,
    ponder,
    install_engine,
    engine_options,
    resign,
    offer_draw,
    take_back,
    move_now,
    claim_draw,
    note_result
};

/// The names of their actions, by MenuEntry.
inline constexpr std::array<const char*, 10> menu_entry_actions = {
    "StartThinking", "Ponder",   "Install", "Engine1_options", "Resign",
    "OfferDraw",     "TakeBack", "MoveNow", "ClaimDraw",       "NoteResult"};

constexpr const char* action_name(Mode mode) { return mode_actions[static_cast<std::size_t>(mode)]; }
constexpr const char* action_name(MenuEntry entry) {
    return menu_entry_actions[static_cast<std::size_t>(entry)];
}

}  // namespace velmora
