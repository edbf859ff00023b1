#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

namespace velmora {

/// The place of an engine: the first is loaded from the menu, the second only by tournaments. The number is
/// the sender id of the engine's lines.
///
/// A seat isn't a side: colours change from game to game, the engine stays in its seat.
enum class Seat : std::int32_t { first = 1, second = 2 };

constexpr std::array<Seat, 2> both_seats{Seat::first, Seat::second};

constexpr Seat other(Seat seat) { return seat == Seat::first ? Seat::second : Seat::first; }

constexpr bool is_seat(int sender) {
    return sender == static_cast<int>(Seat::first) || sender == static_cast<int>(Seat::second);
}

/// The sender id of the window, or of whoever commands the referee in its stead.
constexpr int window_sender = 0;

/// The sender id with which a line to the referee begins: the window's, the number of a seat, or that of
/// nobody, whose lines are dropped; -1 where there is none.
int sender_of(std::string_view line);

/// A command as the window puts it on the queue: its sender id ahead of it. The sender is part of the line
/// and not of the queue, so that logs show who said what.
inline std::string window_line(std::string_view command) { return "0 " + std::string(command); }

}  // namespace velmora
