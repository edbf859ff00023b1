#include "chess/board/chess960.h"

#include <chrono>
#include <random>

namespace velmora {

namespace {

struct KnightPair {
    std::uint32_t first;
    std::uint32_t second;
};
// By the last digit of the number: which two of the five squares still empty get the knights.
constexpr std::array<KnightPair, 10> knight_pairs = {
    {{0, 1}, {0, 2}, {0, 3}, {0, 4}, {1, 2}, {1, 3}, {1, 4}, {2, 3}, {2, 4}, {3, 4}}};

/// The file of the n-th empty square, counted from 0 at the a-file.
///
/// A number too high gives the last file, which no valid start number asks for.
std::size_t empty_file(const Chess960Rank& rank, std::uint32_t n) {
    for (std::size_t file = 0; file < rank.size(); ++file) {
        if (rank[file] == PieceKind::none && n-- == 0) return file;
    }
    return rank.size() - 1;
}

}  // namespace

Chess960Rank chess960_rank(std::uint32_t number) {
    Chess960Rank rank{};
    const std::size_t dark_bishop = number / 240;  // both counted among the squares of their colour
    const std::size_t light_bishop = number % 240 / 60;
    rank[2 * dark_bishop] = PieceKind::bishop;
    rank[2 * light_bishop + 1] = PieceKind::bishop;
    rank[empty_file(rank, number % 60 / 10)] = PieceKind::queen;
    const KnightPair pair = knight_pairs[number % 10];
    const std::size_t first = empty_file(rank, pair.first);
    const std::size_t second = empty_file(rank, pair.second);
    rank[first] = rank[second] = PieceKind::knight;
    for (const PieceKind kind : {PieceKind::rook, PieceKind::king, PieceKind::rook})
        rank[empty_file(rank, 0)] = kind;
    return rank;
}

std::uint32_t random_chess960_number() {
    using Generator = std::minstd_rand0;
    const auto now = std::chrono::system_clock::now().time_since_epoch();
    const auto ms = std::chrono::duration_cast<std::chrono::milliseconds>(now).count();
    const auto seed = static_cast<Generator::result_type>(ms % static_cast<std::int64_t>(Generator::modulus));
    Generator generator(seed == 0 ? 1 : seed);

    constexpr auto range = Generator::max() - Generator::min() + 1;
    constexpr auto limit = range - range % chess960_positions;  // draws from here on would favour low numbers
    Generator::result_type draw = 0;
    do draw = generator() - Generator::min();
    while (draw >= limit);
    return static_cast<std::uint32_t>(draw % chess960_positions);
}

}  // namespace velmora
