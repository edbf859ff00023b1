#pragma once

#include <cstdint>
#include <string>

namespace velmora {

/// Something that takes one line of text: the boundary over which the threads talk.
///
/// The engine drivers reach the referee through it and the referee reaches the window, so that no lower
/// folder knows a higher one. put_command() may be called from any thread and must not wait for the reader.
///
/// Text, though both ends are of one program: so a log of the lines is the whole story of a session, a
/// console or a test can sit at either end, and no object is shared between threads. Waiting for the
/// reader could stop both ends for good, when each of two threads has something to tell the other.
class CommandSink {
public:
    virtual ~CommandSink() = default;

    /// Takes one line, without a line end.
    virtual void put_command(const std::string& line) = 0;

    /// Nothing follows soon: a sink that gathers lines passes them on now. The writer calls it ahead of each
    /// wait, so that lines which come together may travel together.
    virtual void flush() {}

    /// Of the lines that the sink has sent the writer itself, `taken` have reached it by now: the lines that
    /// it puts from here on know of these, and of no later one.
    ///
    /// The window shows what it has sent ahead of the answer: by this count it tells a line that speaks of
    /// the position before its last command from one that speaks of the position after it.
    virtual void acknowledge(std::uint64_t /*taken*/) {}
};

}  // namespace velmora
