#include "chess/moves/move_list.h"

#include <algorithm>
#include <mutex>
#include <utility>

namespace velmora {

MoveList::MoveList(const MoveList& other) : m_count(other.m_count), m_generated(other.m_generated) {
    std::uninitialized_copy(other.begin(), other.end(), begin());
    m_next = other.m_next;
}

MoveList& MoveList::operator=(const MoveList& other) {
    if (this == &other) return *this;
    std::uninitialized_copy(other.begin(), other.end(), begin());
    m_count = other.m_count;
    m_generated = other.m_generated;
    m_next = other.m_next;
    return *this;
}

void MoveList::clear() {
    m_count = 0;
    m_generated = false;
    m_next = 0;
}

void MoveList::remove(Move move) {
    Move* const place = std::find(begin(), end(), move);
    if (place == end()) return;
    std::move(place + 1, end(), place);
    --m_count;
}

void MoveList::to_front(Move move) {
    Move* const place = std::find(begin(), end(), move);
    if (place != end()) std::rotate(begin(), place, place + 1);
}

std::string MoveList::to_string() const {
    std::string text;
    for (const Move& move : *this) {
        if (!text.empty()) text += ' ';
        text += move.to_string(false);
    }
    return text;
}

Move MoveList::next() {
    // One for all lists. Lists that are handed out to several threads are rare and short-lived.
    static std::mutex mutex;
    const std::lock_guard lock(mutex);
    if (m_next >= m_count) return {};
    Move& place = (*this)[m_next];
    for (std::size_t i = m_next + 1; i < m_count; ++i) {
        if (place.yields_to((*this)[i])) std::swap(place, (*this)[i]);
    }
    ++m_next;
    return place;
}

bool operator==(const MoveList& a, const MoveList& b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end());
}

}  // namespace velmora
