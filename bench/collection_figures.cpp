// What a collection costs, in one run over one PGN file: collection_figures <path> <cache directory>
// [<jobs>].
//
// Index, opening, statistics, lists and filters are timed from outside, through the same class that window
// and tool use; each figure but the index's is the median of several calls, warm. At the end a copy of the
// last game is appended to the file and taken away again.

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <random>
#include <string>
#include <vector>

#include "base/text.h"
#include "chess/moves/legal_moves.h"
#include "collection/collection_index.h"
#include "collection/game_query.h"

namespace velmora {
namespace {

using Clock = std::chrono::steady_clock;

double ms_since(Clock::time_point start) {
    return std::chrono::duration<double, std::milli>(Clock::now() - start).count();
}

template <class Call>
double once(Call call) {
    const auto start = Clock::now();
    call();
    return ms_since(start);
}

template <class Call>
double median(Call call) {
    std::vector<double> times(11);
    for (auto& time : times) time = once(call);
    std::nth_element(times.begin(), times.begin() + 5, times.end());
    return times[5];
}

void print(const std::string& what, double ms) { std::printf("%-58s %10.3f ms\n", what.c_str(), ms); }

/// The highest resident size of the process so far, in MiB.
double peak_mib() {
    std::ifstream status("/proc/self/status");
    for (std::string line; std::getline(status, line);) {
        if (line.starts_with("VmHWM:")) return std::stod(line.substr(6)) / 1024;
    }
    return 0;
}

/// Positions of random walks along moves that were played.
std::vector<ChessPosition> walked_positions(const CollectionIndex& collection, std::size_t count) {
    std::mt19937 random(1);
    std::vector<ChessPosition> positions;
    while (positions.size() < count) {
        ChessPosition position;
        position.new_game();
        for (int ply = 0; ply < 30 && positions.size() < count; ++ply) {
            positions.push_back(position);
            const auto moves = collection.statistics(position);
            std::uint64_t games = 0;
            for (const auto& sum : moves) games += sum.games;
            if (games == 0) break;
            auto chosen = random() % games;
            std::uint16_t code = 0;
            for (const auto& sum : moves) {
                code = sum.move;
                if (chosen < sum.games) break;
                chosen -= sum.games;
            }
            if (code == 0) break;
            position.do_move(*move_in(position, code));
        }
    }
    return positions;
}

void measure_positions(const CollectionIndex& collection) {
    ChessPosition start;
    start.new_game();
    print("statistics of the start position", median([&] { collection.statistics(start); }));
    double slowest = 0;
    double busiest = 0;
    std::size_t most = 0;
    for (const auto& position : walked_positions(collection, 2000)) {
        const auto games = collection.games_through(position).size();
        if (games > 10000) continue;
        const auto ms = median([&] { collection.statistics(position); });
        slowest = std::max(slowest, ms);
        if (games > most) {
            most = games;
            busiest = ms;
        }
    }
    print("statistics, the slowest of positions up to 10,000 games", slowest);
    print("statistics, a position of " + std::to_string(most) + " games", busiest);
    GameQuery query(collection);
    const auto page = [&] {
        const auto& games = query.games();
        for (std::size_t i = 0; i < std::min<std::size_t>(50, games.size()); ++i) collection.row(games[i]);
    };
    page();
    print("games through the start position, first page", median([&] {
              query.set_position(start);
              page();
          }));
}

void measure_lists(const CollectionIndex& collection) {
    GameQuery query(collection);
    const auto page = [&] {
        const auto& games = query.games();
        for (std::size_t i = 0; i < std::min<std::size_t>(50, games.size()); ++i) collection.row(games[i]);
    };
    print("first word of a filter (texts are read)", once([&] {
              query.set_filter(FilterLine::parse("b"));
              page();
          }));
    double slowest = 0;
    const std::string typed = "brandt elo>2400 year:1990-2010 eco:C";
    for (std::size_t size = 1; size <= typed.size(); ++size) {
        slowest = std::max(slowest, median([&] {
                               query.set_filter({});
                               query.set_filter(FilterLine::parse(std::string_view(typed).substr(0, size)));
                               page();
                           }));
    }
    print("a key of the filter \"" + typed + "\", the slowest", slowest);
    query.set_filter({});
    struct Column {
        GameOrder order;
        const char* name;
    };
    for (const auto& column :
         {Column{GameOrder::white, "white"}, {GameOrder::date, "date"}, {GameOrder::opening, "opening"}}) {
        print(std::string("sort all by ") + column.name, median([&] {
                  query.set_order(GameOrder::number, GameQuery::Direction::ascending);
                  query.set_order(column.order, GameQuery::Direction::descending);
                  page();
              }));
    }
}

void measure_adding(CollectionIndex& collection) {
    const auto size = std::filesystem::file_size(collection.path());
    const auto game = collection.pgn(collection.size() - 1) + "\n\n";
    std::vector<double> times;
    for (int round = 0; round < 11; ++round) {
        std::ofstream(collection.path(), std::ios::app | std::ios::binary) << game;
        times.push_back(once([&] { collection.refresh(); }));
    }
    std::sort(times.begin(), times.end());
    print("one game added, the median of 11", times[5]);
    print("one game added, the slowest", times.back());
    std::filesystem::resize_file(collection.path(), size);
}

int run(const std::string& path, const std::string& cache, unsigned jobs) {
    IndexOptions options;
    options.jobs = jobs;
    const auto before = std::filesystem::exists(cache);
    std::optional<CollectionIndex> collection;
    const auto made = once([&] { collection.emplace(CollectionIndex::open(path, options, cache)); });
    if (!before) print("index of " + std::to_string(collection->size()) + " games", made);
    std::printf("%-58s %10.1f MiB\n", "highest memory so far", peak_mib());
    std::printf("%-58s %10.3f of the PGN's\n", "size of the index",
                static_cast<double>(collection->index_size()) /
                    static_cast<double>(std::filesystem::file_size(path)));
    print("open, first page", median([&] {
              const auto opened = CollectionIndex::open(path, options, cache);
              for (std::uint32_t i = 0; i < std::min(50U, opened.size()); ++i) opened.row(i);
          }));
    measure_positions(*collection);
    measure_lists(*collection);
    measure_adding(*collection);
    return 0;
}

}  // namespace
}  // namespace velmora

int main(int argc, char** argv) {
    if (argc < 3) {
        std::cerr << "usage: collection_figures <path> <cache directory> [<jobs>]\n";
        return 2;
    }
    try {
        return velmora::run(argv[1], argv[2],
                            argc > 3 ? velmora::text::strict_integer<unsigned>(argv[3]).value_or(0) : 0);
    } catch (const std::exception& error) {
        std::cerr << error.what() << '\n';
        return 1;
    }
}
