#pragma once

#include <string>

namespace velmora {

/// Takes the lines of an engine, in order, on the engine's reader thread.
class LineReceiver {
public:
    virtual ~LineReceiver() = default;

    /// Takes one line, without line end; a "bestmove" line has its arrival stamp behind it.
    virtual void receive_line(std::string line) = 0;
};

}  // namespace velmora
