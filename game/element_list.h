#pragma once

#include <cstddef>
#include <utility>
#include <vector>

#include "game/move_section_element.h"

namespace velmora {

/// Records by index. Those that are dropped keep their memory and serve again, so that reading game after
/// game soon allocates nothing.
///
/// A record has four texts and a list, each with memory of its own: a plain vector would give all of it
/// back at every clear() only to ask for it again for the next game.
class ElementList {
public:
    /// A default record at the end. Invalidates references.
    MoveSectionElement& append() {
        if (m_size == m_elements.size()) {
            m_elements.emplace_back();
        } else {
            m_elements[m_size].reset();
        }
        return m_elements[m_size++];
    }

    void clear() { m_size = 0; }
    /// REQUIRES: !empty().
    void drop_back() { --m_size; }
    std::size_t size() const { return m_size; }
    bool empty() const { return m_size == 0; }

    /// REQUIRES: index < size().
    MoveSectionElement& operator[](std::size_t index) { return m_elements[index]; }
    const MoveSectionElement& operator[](std::size_t index) const { return m_elements[index]; }
    MoveSectionElement& back() { return m_elements[m_size - 1]; }
    const MoveSectionElement& back() const { return m_elements[m_size - 1]; }

    void swap(ElementList& other) noexcept {
        m_elements.swap(other.m_elements);
        std::swap(m_size, other.m_size);
    }

private:
    std::vector<MoveSectionElement> m_elements;  // the first m_size are in use
    std::size_t m_size = 0;
};

}  // namespace velmora
