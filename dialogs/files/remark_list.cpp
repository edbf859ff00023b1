#include "dialogs/files/remark_list.h"

#include "dialogs/parts/modal_dialog.h"
#include "dialogs/parts/numbered_list.h"

namespace velmora {

namespace {

class RemarkColumns : public NumberedColumns {
public:
    RemarkColumns() {
        add(game);
        add(players);
        add(remark);
    }
    Gtk::TreeModelColumn<Glib::ustring> game;
    Gtk::TreeModelColumn<Glib::ustring> players;
    Gtk::TreeModelColumn<Glib::ustring> remark;
};

}  // namespace

void show_remarks(Gtk::Window& parent, const std::vector<RemarkRow>& rows) {
    const RemarkColumns columns;
    NumberedList list(columns, {{columns.game, "Game", 7, false},
                                {columns.players, "Players", 24, false},
                                {columns.remark, "Remark", 60, true}});
    for (const auto& row : rows) list.append({std::to_string(row.game), row.players, row.remark});
    list.select_first();

    ModalDialog dialog("Repaired Games", parent);
    dialog.set_ordinary_size(860, 420);
    dialog.body().pack_start(list, true, true);
    dialog.add_answer("CLOSE", Gtk::RESPONSE_CLOSE);
    dialog.set_default_response(Gtk::RESPONSE_CLOSE);
    list.signal_answered().connect([&dialog] { dialog.response(Gtk::RESPONSE_CLOSE); });
    dialog.run();
}

}  // namespace velmora
