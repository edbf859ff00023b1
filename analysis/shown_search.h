#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace velmora {

/// One line of a search as it is read: all texts are finished, so that whoever shows them knows no chess.
struct ShownLine {
    std::string evaluation;          ///< White's view, "+0.35", "-#3"
    std::string depth;               ///< "24"
    std::string start;               ///< the number ahead of the first move where Black makes it: "12..."
    std::vector<std::string> moves;  ///< "12. Nf3", "Nf6": White's moves behind their number

    bool operator==(const ShownLine&) const = default;
};

/// What one engine's search looks like at a moment: a head and its best lines.
struct ShownSearch {
    std::string engine;  ///< its name; empty where nobody sits
    std::string head;    ///< "depth 24, 1.2 M nodes/s, 0:12"
    std::vector<ShownLine> lines;
    bool covered = false;    ///< the lines aren't to be seen until the person asks for them
    bool fewer = false;      ///< a smaller number of lines can be asked for
    bool more = false;       ///< a larger one
    std::size_t places = 1;  ///< lines that the engine was asked for: so many rows are kept free

    bool operator==(const ShownSearch&) const = default;
};

}  // namespace velmora
