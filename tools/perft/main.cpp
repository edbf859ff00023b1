// Counts the leaves of the legal move tree; for developers.
//
// The counts tell whether the generator is right (they are published for many positions, and --divide leads
// to the move whose count differs), the times whether a change has made it slower. Processor time, because a
// machine that does something else meanwhile adds to any other.

#include <charconv>
#include <cstdint>
#include <ctime>
#include <exception>
#include <fstream>
#include <iostream>
#include <limits>
#include <stdexcept>
#include <string>
#include <string_view>

#include "chess/moves/legal_moves.h"
#include "chess/moves/perft.h"
#include "tools/perft/epd_check.h"

namespace {

using namespace velmora;

constexpr std::string_view usage =
    "usage: perft DEPTH [--fen FEN | --chess960 NUMBER] [--divide] [--made]\n"
    "       perft --epd FILE [--limit NODES]\n"
    "  --divide  the count of each first move as well\n"
    "  --made    make and take back the last move, too, instead of counting the list\n"
    "  --epd     check the counts of lines such as \"FEN ;D1 20 ;D2 400\"; exit status 1 when one differs\n"
    "  --limit   leave out counts above this\n"
    "Times are processor times.\n";

struct Options {
    int depth = -1;
    std::string fen = "rnbqkbnr/pppppppp/8/8/8/8/PPPPPPPP/RNBQKBNR w KQkq - 0 1";
    int chess960 = -1;
    bool divide = false;
    bool made = false;
    std::string epd;
    std::uint64_t limit = std::numeric_limits<std::uint64_t>::max();
};

template <class T>
T number(std::string_view text) {
    T value{};
    const auto result = std::from_chars(text.data(), text.data() + text.size(), value);
    if (result.ec != std::errc() || result.ptr != text.data() + text.size()) {
        throw std::invalid_argument("not a number: " + std::string(text));
    }
    return value;
}

Options read_options(int argc, char** argv) {
    Options options;
    for (int i = 1; i < argc; ++i) {
        const std::string_view word = argv[i];
        const auto value = [&]() -> std::string_view {
            if (i + 1 >= argc) throw std::invalid_argument("nothing behind " + std::string(word));
            return argv[++i];
        };
        if (word == "--fen")
            options.fen = value();
        else if (word == "--chess960")
            options.chess960 = number<int>(value());
        else if (word == "--divide")
            options.divide = true;
        else if (word == "--made")
            options.made = true;
        else if (word == "--epd")
            options.epd = value();
        else if (word == "--limit")
            options.limit = number<std::uint64_t>(value());
        else
            options.depth = number<int>(word);
    }
    if (options.depth < 0 && options.epd.empty()) throw std::invalid_argument("no depth");
    return options;
}

std::uint64_t count(ChessPosition& position, int depth, bool made) {
    return made ? perft<Leaves::made>(position, depth) : perft<Leaves::counted>(position, depth);
}

std::uint64_t divide(ChessPosition& position, const Options& options) {
    std::uint64_t nodes = 0;
    for (const Move& move : legal_moves(position)) {
        position.do_move(move);
        const std::uint64_t below = count(position, options.depth - 1, options.made);
        position.undo_move();
        std::cout << move.to_string(options.chess960 >= 0) << ": " << below << '\n';
        nodes += below;
    }
    return nodes;
}

void run(const Options& options) {
    ChessPosition position;
    if (options.chess960 >= 0) {
        position.new_chess960(static_cast<std::uint32_t>(options.chess960));
    } else {
        position.fen(options.fen);
    }
    legal_moves(position);  // builds the attack tables, which is not to be measured
    const std::clock_t start = std::clock();
    const std::uint64_t nodes = options.divide && options.depth > 0
                                    ? divide(position, options)
                                    : count(position, options.depth, options.made);
    const double seconds = static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC;
    std::cout << "fen " << position.fen() << "\nnodes " << nodes << "\ntime " << seconds << " s\nnodes/s "
              << static_cast<std::uint64_t>(seconds > 0 ? static_cast<double>(nodes) / seconds : 0) << '\n';
}

}  // namespace

int main(int argc, char** argv) {
    try {
        const Options options = read_options(argc, argv);
        if (options.epd.empty()) {
            run(options);
            return 0;
        }
        std::ifstream in(options.epd);
        if (!in) throw std::invalid_argument("cannot read " + options.epd);
        return check_epd(in, std::cout, options.limit) ? 0 : 1;
    } catch (const std::invalid_argument& error) {
        std::cerr << error.what() << '\n' << usage;
    } catch (const std::exception& error) {
        std::cerr << error.what() << '\n';
    }
    return 2;
}
