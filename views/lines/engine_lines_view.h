#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include <gtkmm/box.h>

#include "analysis/shown_search.h"
#include "views/lines/search_block.h"

namespace velmora {

/// The engines' lines beside the board: a block for each engine that searches.
///
/// It knows no chess: it shows finished texts, and reports which move of which line was pressed. A block is
/// changed in place, text by text, and only where the text differs: lines come ten times a second, and what
/// is read or pointed at must not jump.
class EngineLinesView : public Gtk::Box {
public:
    /// @param position_of  the FEN behind a move of a line, for the small board that shows when the pointer
    ///                     rests on it; an empty text shows none
    explicit EngineLinesView(std::function<std::string(const LineMovePlace&)> position_of);

    /// Shows one block for each search.
    void show_searches(const std::vector<ShownSearch>& searches);

    /// A move has been pressed.
    sigc::signal<void, LineMovePlace>& signal_move_chosen() { return m_move_chosen; }
    /// One line fewer (-1) or more (1) is wanted.
    sigc::signal<void, int>& signal_lines_wanted() { return m_lines_wanted; }
    /// The person wants to see what is covered.
    sigc::signal<void>& signal_uncovered() { return m_uncovered; }

private:
    std::unique_ptr<SearchBlock> make_block(std::size_t index);

    const std::function<std::string(const LineMovePlace&)> m_position_of;
    std::vector<std::unique_ptr<SearchBlock>> m_blocks;
    sigc::signal<void, LineMovePlace> m_move_chosen;
    sigc::signal<void, int> m_lines_wanted;
    sigc::signal<void> m_uncovered;
};

}  // namespace velmora
