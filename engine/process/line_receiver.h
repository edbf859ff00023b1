#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>

namespace velmora {

/// A line of an engine, without its line end.
/// The one thing that is passed from the process to the driver: made by the reader, owned by whoever has
/// it.
struct ArrivedLine {
    std::string text;
    /// arrival_stamp() of a line that may be a move: the time that it spends in queues is not the engine's.
    std::optional<std::uint32_t> arrival = std::nullopt;
};

/// Takes the lines of an engine, in order, on the engine's reader thread.
///
/// Engio's view of a driver: by it the process side knows neither protocols nor the referee, and a test reads
/// an engine without either.
class LineReceiver {
public:
    virtual ~LineReceiver() = default;

    /// Bytes of a line that it wants; what is beyond is cut off, at a character, ahead of the hand-over.
    /// Asked for every line, because the answer changes with the driver: the handshake wants whole option
    /// lines, a game doesn't want whole variations.
    virtual std::size_t longest_line() const { return std::string::npos; }

    virtual void receive_line(ArrivedLine line) = 0;

    /// What has been taken since the last flush().
    enum class Held { nothing, can_wait, urgent };
    virtual Held held() const { return Held::nothing; }
    /// Has whoever the lines are for take them. What can wait travels together with what follows soon.
    virtual void flush() {}
};

}  // namespace velmora
