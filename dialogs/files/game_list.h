#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include <gtkmm/box.h>
#include <gtkmm/button.h>
#include <gtkmm/label.h>

#include "dialogs/files/chooser_list.h"
#include "dialogs/files/game_survey.h"
#include "dialogs/files/remark_list.h"

namespace velmora {

struct GameHeader;

/// A game's row: its players, result and date, and where it begins.
FileEntry game_entry(const GameHeader& header);

/// The dialog "Choose Game" over the headers of a PGN file.
///
/// Only headers are read here and no moves; so a large file is listed soon, and a game whose moves are
/// broken can be chosen like any other, and the fault is told when it is loaded.
///
/// Once all is listed, the file is looked through for games that only the second reader reads. A line below
/// the list tells how many there are, and a button why; games that have no row yet get one at the end.
class GameList : public ChooserList {
public:
    class ModelColumns : public NumberedColumns {
    public:
        ModelColumns() {
            add(white);
            add(black);
            add(result);
            add(date);
        }
        Gtk::TreeModelColumn<Glib::ustring> white;
        Gtk::TreeModelColumn<Glib::ustring> black;
        Gtk::TreeModelColumn<Glib::ustring> result;
        Gtk::TreeModelColumn<Glib::ustring> date;
    };

    GameList();
    ~GameList() override;

    /// Lets the user pick a game of the file; gives its number among the headers, from 1, or 0 when none was
    /// chosen. A file that can't be opened shows an empty list.
    int choose_game(Gtk::Window& parent, const std::string& path);

    /// Where the chosen game begins, in bytes from the start of the file, so that only it need be read.
    std::uint64_t chosen_offset() const { return m_chosen_offset; }

private:
    explicit GameList(const ModelColumns& columns);

    void on_listed() override;
    void on_left() override;
    bool take_found();
    void take(const FoundGame& found);
    int number_of(const FoundGame& found);
    void show_found();

    std::uint64_t m_chosen_offset = 0;
    std::string m_path;

    std::unique_ptr<GameSurvey> m_survey;  // null while no file is looked through
    sigc::connection m_timer;
    std::size_t m_listed = 0;  // the entries of the headers, ahead of those that the survey has added
    std::size_t m_repaired = 0, m_damaged = 0;
    std::vector<RemarkRow> m_remarks;
    Gtk::Box m_found_box{Gtk::ORIENTATION_HORIZONTAL};
    Gtk::Label m_found;
    Gtk::Button m_show{"_Why...", true};
};

}  // namespace velmora
