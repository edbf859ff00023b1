// Any bytes as a PGN file: every game is read or refused, the walk ends, and listed games are found again.

#include <cstddef>
#include <cstdint>
#include <cstdlib>

#include "game/pgn_error.h"
#include "game/pgn_file.h"
#include "game/tag_scanner.h"
#include "tests/support/memory_file.h"

namespace {

using namespace velmora;

void require(bool holds) {
    if (!holds) std::abort();
}

/// What stands at an offset; the text of a damaged game as well.
std::string read_at(PgnFile& file, std::uint64_t offset) {
    try {
        return file.read_game_at(offset);
    } catch (const pgn_error& error) {
        return error.text();
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const test::MemoryFile memory({reinterpret_cast<const char*>(data), size});
    PgnFile file;
    PgnFile other;
    require(file.open(memory.path()) && other.open(memory.path()));
    std::size_t games = 0;
    std::uint64_t end = 0;
    for (auto text = file.next_game(); !text.empty(); text = file.next_game()) {
        require(text.front() == '[');
        require(games == 0 || file.game_offset() > end);
        end = file.game_offset();
        require(read_at(other, end) == text);
        ++games;
    }
    TagScanner scanner(memory.path());
    for (GameHeader header; scanner.next(header);) {
        require(header.offset < size && data[header.offset] == '[');
        require(read_at(other, header.offset).front() == '[');
    }
    require(scanner.position() == size);
    return 0;
}
