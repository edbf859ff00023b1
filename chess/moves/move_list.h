#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <new>
#include <string>

#include "chess/board/bitboard.h"
#include "chess/board/move.h"

namespace velmora {

/// Up to 256 moves. What is added to a full list is dropped: a set-up board full of queens has more.
///
/// The room for the moves lies inside the object and is left unset until moves are written, so that making a
/// list costs nothing: the generator makes one at every node. next() may be called from several threads, all
/// else from one; the lock that this takes is no part of the list, which must not grow by it.
class MoveList {
public:
    static constexpr std::size_t capacity = 256;

    // NOLINTNEXTLINE(modernize-use-equals-default): defaulted, `MoveList()` would clear the room
    MoveList() {}
    MoveList(const MoveList& other);
    MoveList& operator=(const MoveList& other);
    ~MoveList() = default;

    std::size_t size() const { return m_count; }
    bool empty() const { return m_count == 0; }
    Move& operator[](std::size_t index) { return begin()[index]; }
    const Move& operator[](std::size_t index) const { return begin()[index]; }
    Move* begin() { return std::launder(reinterpret_cast<Move*>(m_storage.data())); }
    Move* end() { return begin() + m_count; }
    const Move* begin() const { return std::launder(reinterpret_cast<const Move*>(m_storage.data())); }
    const Move* end() const { return begin() + m_count; }

    void clear();
    void push_back(Move move) {
        if (m_count < capacity) std::construct_at(begin() + m_count++, move);
    }

    /// Takes the first equal move out and closes the gap.
    void remove(Move move);

    /// Moves the first equal move to the front; those before it go up by one.
    void to_front(Move move);

    /// The moves in coordinate form, one blank between them.
    std::string to_string() const;

    /// Hands out the moves that were not handed out yet, the best by the ordering comparison first; the empty
    /// move at the end.
    ///
    /// It selects instead of sorting: a search that finds a good move early asks for few of them.
    Move next();

    /// Whether generation into this list has finished.
    bool generated() const { return m_generated; }
    void set_generated(bool generated) { m_generated = generated; }

    /// Same count and, position by position, equal moves.
    friend bool operator==(const MoveList& a, const MoveList& b);

    /// Appends generated moves without asking for room at each: a piece may write up to `slack` moves after
    /// full() was asked.
    ///
    /// It holds the place in a register; through the list's own count every move would be a store to
    /// memory that the next one has to wait for.
    class Writer {
    public:
        explicit Writer(MoveList& list) : m_list(list), m_out(list.end()), m_limit(list.begin() + capacity) {}

        bool full() const { return m_out >= m_limit; }
        Move* position() const { return m_out; }

        void put(std::uint32_t word) { std::construct_at(m_out++, Move::from_word(word)); }

        /// Writes always and keeps the move only when `keep`: cheaper than a branch that is hard to predict.
        void put_if(bool keep, std::uint32_t word) {
            std::construct_at(m_out, Move::from_word(word));
            m_out += keep ? 1 : 0;
        }

        /// Writes `base` with each of the targets, without a look at the room: REQUIRES: !full() ahead of it.
        void put_each(std::uint32_t base, Bitboard targets) {
            while (targets.any()) put(base | static_cast<std::uint32_t>(targets.pop_square().value()));
        }

        /// Drops what was written beyond the capacity and sets the count.
        void finish() {
            if (full()) m_out = m_limit;
            m_list.m_count = static_cast<std::size_t>(m_out - m_list.begin());
        }

    private:
        MoveList& m_list;
        Move* m_out;
        Move* m_limit;
    };

private:
    /// More than any piece has moves: a queen has 27.
    static constexpr std::size_t slack = 32;

    std::size_t m_count = 0;
    bool m_generated = false;
    std::size_t m_next = 0;  ///< of the move that next() looks at; guarded by the lock in next()
    alignas(Move) std::array<std::byte, (capacity + slack) * sizeof(Move)> m_storage;
};

}  // namespace velmora
