// Any bytes as a book: eight bytes of key, then the file. The walk ends, and all that is found has the key.

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <string_view>

#include "openings/fen_key.h"
#include "openings/polyglot_book.h"
#include "tests/support/memory_file.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace velmora;
    std::uint64_t key = 0;
    if (size < sizeof key) return 0;
    std::memcpy(&key, data, sizeof key);
    const test::MemoryFile memory({reinterpret_cast<const char*>(data) + sizeof key, size - sizeof key});
    PolyglotBook book(memory.path());
    if (book.record_count() != (size - sizeof key) / 16) std::abort();
    const auto entries = book.entries(key);
    for (const auto& entry : entries) {
        if (entry.key != key || entry.move.to_string().size() < 4) std::abort();
    }
    if (book.moves(key).size() != entries.size()) std::abort();
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    if (book.entries(text).size() != book.entries(fen_key(text)).size()) std::abort();
    book.close();
    if (!book.entries(key).empty()) std::abort();
    return 0;
}
