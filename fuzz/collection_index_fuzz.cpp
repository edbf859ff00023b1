// Any bytes as the files of a collection's index. The first byte tells which: a manifest, which is read back
// as it was written or not at all, or a file of positions with its sums set right, since behind a wrong sum
// nothing is looked at. Whatever stands in it, answers name no game that isn't there.

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <string>
#include <string_view>
#include <vector>

#include "collection/checksum.h"
#include "collection/index_manifest.h"
#include "collection/position_index.h"
#include "tests/support/memory_file.h"

namespace {

using namespace velmora;
using position_file::Header;

void check_manifest(std::string_view bytes) {
    const auto manifest = IndexManifest::from_text(bytes);
    if (manifest && !IndexManifest::from_text(manifest->to_text())) std::abort();
    const std::string body = "velmora collection index 1\n" + std::string(bytes) + '\n';
    IndexManifest::from_text(body + "sum " + std::to_string(checksum(body)) + '\n');
}

/// Sets the sums of a file whose tables lie within it.
void set_sums(std::string& file) {
    Header header;
    if (file.size() < sizeof header) return;
    std::memcpy(&header, file.data(), sizeof header);
    header.magic = position_file::magic;
    header.stretch_bits %= 8;
    header.records %= 4096;
    header.busy %= 64;
    header.moves %= 256;
    file.resize(position_file::moves_at(header) + header.moves * sizeof(MoveStatistics));
    const auto part = [&file](std::uint64_t begin, std::uint64_t end) {
        return std::string_view(file).substr(begin, end - begin);
    };
    const auto busy = position_file::busy_at(header);
    const auto moves = position_file::moves_at(header);
    header.tables_sum = checksum(
        part(moves, file.size()),
        checksum(part(busy, moves), checksum(part(sizeof header, position_file::records_at(header)))));
    std::memcpy(file.data(), &header, sizeof header);
    header.header_sum = checksum(part(0, sizeof header - sizeof header.header_sum));
    std::memcpy(file.data(), &header, sizeof header);
}

void check_positions(std::string file, std::uint64_t key) {
    set_sums(file);
    const test::MemoryFile memory(file);
    PositionIndex index;
    if (!index.open(memory.path())) return;
    std::vector<GameColumns> games(16);
    for (const auto asked : {key, std::uint64_t{0}, ~std::uint64_t{0}, key << 40}) {
        std::vector<MoveStatistics> sums;
        index.add_statistics(asked, games, sums);
        for (std::size_t i = 1; i < sums.size(); ++i) {
            if (sums[i - 1].move >= sums[i].move) std::abort();
        }
        std::vector<std::uint32_t> numbers;
        index.append_games(asked, numbers);
        index.append_games(asked, static_cast<std::uint16_t>(key & move_mask), numbers);
        for (const auto number : numbers) {
            if (number - index.first_game() >= index.games()) std::abort();
        }
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    std::uint64_t key = 0;
    if (size < 1 + sizeof key) return 0;
    const std::string_view bytes(reinterpret_cast<const char*>(data) + 1, size - 1);
    if (data[0] % 2 == 0) {
        check_manifest(bytes);
    } else {
        std::memcpy(&key, bytes.data(), sizeof key);
        check_positions(std::string(bytes.substr(sizeof key)), key);
    }
    return 0;
}
