#pragma once

#include <cstddef>
#include <string>

namespace velmora {

/// Takes the lines of an engine, in order, on the engine's reader thread.
class LineReceiver {
public:
    virtual ~LineReceiver() = default;

    /// Bytes of a line that it wants; what is beyond is cut off, at a character, ahead of the hand-over.
    virtual std::size_t longest_line() const { return std::string::npos; }

    /// Takes one line, without line end; a "bestmove" line has its arrival stamp behind it.
    virtual void receive_line(std::string line) = 0;

    /// What has been taken since the last flush().
    enum class Held { nothing, can_wait, urgent };
    virtual Held held() const { return Held::nothing; }
    /// Has whoever the lines are for take them. What can wait travels together with what follows soon.
    virtual void flush() {}
};

}  // namespace velmora
