#pragma once

#include <cstddef>
#include <string>

#include <gdkmm/rectangle.h>
#include <gtkmm/textview.h>

namespace velmora {

/// The moves that a text shows, as a screen reader finds them: counted from 0 in the order of the text.
class ReadableMoves {
public:
    virtual ~ReadableMoves() = default;
    virtual std::size_t count() const = 0;
    /// "12. Nf3, good move, +0.35"
    virtual std::string name(std::size_t index) const = 0;
    /// In pixels from the upper left corner of the widget; may be out of sight.
    virtual Gdk::Rectangle place(std::size_t index) const = 0;
    virtual bool is_current(std::size_t index) const = 0;
    virtual void press(std::size_t index) = 0;
};

/// The text of the moves. To a screen reader it is a text, which can be read line by line, whose children are
/// the moves, each a button with a name that can be pressed.
///
/// A type of its own in the toolkit, so that it can have an accessible object of its own. The children exist
/// for the accessibility bus alone and are made when somebody asks for them: they cost a game of 300 moves
/// nothing.
class MovesText : public Gtk::TextView {
public:
    /// @param moves  must outlive this
    explicit MovesText(ReadableMoves& moves);
    ~MovesText() override;
    MovesText(const MovesText&) = delete;
    MovesText& operator=(const MovesText&) = delete;

    /// Null while the widget goes.
    ReadableMoves* moves() const { return m_moves; }

    /// Tells those who listen that other moves stand there now.
    void moves_changed();
    /// Tells those who listen which one is the current move.
    void current_changed(std::size_t index);

private:
    ReadableMoves* m_moves;
};

}  // namespace velmora
