#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include <gtkmm/window.h>

namespace velmora {

/// A game as a row of the list.
struct EarlierGameRow {
    std::string date, players, moves;
};

/// The dialog "Earlier games": which of them is to be taken up; nothing unless the person answers "Take up"
/// or picks a row.
std::optional<std::size_t> choose_earlier_game(Gtk::Window& parent, const std::vector<EarlierGameRow>& games);

}  // namespace velmora
