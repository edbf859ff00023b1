// The rules core over the move trees of five positions: lists, make and unmake, SAN both ways, and the single
// operations that the program uses most.
//   build/release/bench/chess_core
// bench/chess_against_stockfish.py sets the first four against stockfish's "go perft".

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include <benchmark/benchmark.h>

#include "chess/moves/legal_moves.h"
#include "chess/moves/move_generator.h"
#include "chess/moves/perft.h"
#include "chess/moves/position.h"
#include "chess/notation/san_move.h"

namespace velmora {
namespace {

struct Tree {
    const char* name;
    const char* fen;
    int depth;
};

// bench/chess_against_stockfish.py has the same positions.
constexpr std::array<Tree, 5> trees = {{
    {"start", "rnbqkbnr/pppppppp/8/8/8/8/PPPPPPPP/RNBQKBNR w KQkq - 0 1", 4},
    {"tactics", "r3k2r/p1ppqpb1/bn2pnp1/3PN3/1p2P3/2N2Q1p/PPPBBPPP/R3K2R w KQkq - 0 1", 3},
    {"endgame", "8/2p5/3p4/KP5r/1R3p1k/8/4P1P1/8 w - - 0 1", 5},
    {"middlegame", "r4rk1/1pp1qppp/p1np1n2/2b1p1B1/2B1P1b1/P1NP1N2/1PP1QPPP/R4RK1 w - - 0 10", 3},
    {"chess960", "1rqbkrbn/1ppppp1p/1n6/p1N3p1/8/2P4P/PP1PPPP1/1RQBKRBN w FBfb - 0 9", 4},
}};

ChessPosition position_of(const Tree& tree) {
    ChessPosition position;
    position.fen(tree.fen);
    return position;
}

/// Visits every leaf of the tree: visit(position before the last move, the move).
template <class Visit>
std::int64_t walk(ChessPosition& position, int depth, Visit& visit) {
    MoveList list;
    MoveGenerator::generate_all(position, list);
    std::int64_t leaves = 0;
    for (const Move& move : list) {
        if (depth == 1) {
            visit(position, move);
            ++leaves;
            continue;
        }
        position.do_move(move);
        leaves += walk(position, depth - 1, visit);
        position.undo_move();
    }
    return leaves;
}

void lists(benchmark::State& state, const Tree& tree) {
    ChessPosition position = position_of(tree);
    std::uint64_t leaves = 0;
    for ([[maybe_unused]] const auto& round : state) leaves += perft(position, tree.depth + 1);
    state.SetItemsProcessed(static_cast<std::int64_t>(leaves));
}

void make_and_unmake(benchmark::State& state, const Tree& tree) {
    ChessPosition position = position_of(tree);
    std::uint64_t leaves = 0;
    for ([[maybe_unused]] const auto& round : state) leaves += perft<Leaves::made>(position, tree.depth);
    state.SetItemsProcessed(static_cast<std::int64_t>(leaves));
}

void san_read_and_played(benchmark::State& state, const Tree& tree) {
    ChessPosition position = position_of(tree);
    std::vector<std::string> texts;
    auto write = [&](const ChessPosition& before, Move move) {
        texts.push_back(SanMove(before, move).san());
    };
    walk(position, tree.depth, write);
    std::int64_t leaves = 0;
    for ([[maybe_unused]] const auto& round : state) {
        auto text = texts.begin();
        auto read = [&](ChessPosition& before, Move) {
            before.do_move(SanMove(before, std::string_view(*text++)));
            before.undo_move();
        };
        leaves += walk(position, tree.depth, read);
    }
    state.SetItemsProcessed(leaves);
}

void san_written_and_played(benchmark::State& state, const Tree& tree) {
    ChessPosition position = position_of(tree);
    std::int64_t leaves = 0;
    std::size_t letters = 0;
    for ([[maybe_unused]] const auto& round : state) {
        auto write = [&](ChessPosition& before, Move move) {
            letters += SanMove(before, move).san().size();
            before.do_move(move);
            before.undo_move();
        };
        leaves += walk(position, tree.depth, write);
    }
    benchmark::DoNotOptimize(letters);
    state.SetItemsProcessed(leaves);
}

void coordinate_text_read(benchmark::State& state, const Tree& tree) {
    const ChessPosition position = position_of(tree);
    std::vector<std::string> texts;
    for (const Move& move : legal_moves(position)) texts.push_back(move.to_string(true));
    for ([[maybe_unused]] const auto& round : state) {
        for (const std::string& text : texts) benchmark::DoNotOptimize(position.convert_to_move(text));
    }
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(texts.size()));
}

void fen_read(benchmark::State& state, const Tree& tree) {
    ChessPosition position;
    for ([[maybe_unused]] const auto& round : state) position.fen(tree.fen);
    state.SetItemsProcessed(state.iterations());
}

void copied(benchmark::State& state, const Tree& tree) {
    const ChessPosition position = position_of(tree);
    for ([[maybe_unused]] const auto& round : state) benchmark::DoNotOptimize(ChessPosition(position));
    state.SetItemsProcessed(state.iterations());
}

void attack_maps(benchmark::State& state, const Tree& tree) {
    const ChessPosition position = position_of(tree);
    for ([[maybe_unused]] const auto& round : state) position.init_maps();
    state.SetItemsProcessed(state.iterations());
}

struct Operation {
    const char* name;
    void (*run)(benchmark::State&, const Tree&);
};
constexpr std::array<Operation, 8> operations = {{{"lists", lists},
                                                  {"make_and_unmake", make_and_unmake},
                                                  {"san_read_and_played", san_read_and_played},
                                                  {"san_written_and_played", san_written_and_played},
                                                  {"coordinate_text_read", coordinate_text_read},
                                                  {"fen_read", fen_read},
                                                  {"copied", copied},
                                                  {"attack_maps", attack_maps}}};

}  // namespace
}  // namespace velmora

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
    for (const velmora::Operation& operation : velmora::operations) {
        for (const velmora::Tree& tree : velmora::trees) {
            benchmark::RegisterBenchmark((operation.name + std::string("/") + tree.name).c_str(),
                                         operation.run, tree)
                ->MinTime(0.1);
        }
    }
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
