#include "dialogs/game/earlier_games_dialog.h"

#include "base/text.h"
#include "dialogs/parts/modal_dialog.h"
#include "dialogs/parts/numbered_list.h"

namespace velmora {

namespace {

constexpr int width = 560, height = 400;  // pixels, with a font of ordinary size

struct GameColumns : NumberedColumns {
    GameColumns() {
        for (auto* const column : {&date, &players, &moves}) add(*column);
    }
    Gtk::TreeModelColumn<Glib::ustring> date, players, moves;
};

}  // namespace

std::optional<std::size_t> choose_earlier_game(Gtk::Window& parent,
                                               const std::vector<EarlierGameRow>& games) {
    ModalDialog dialog("Earlier games", parent);
    dialog.set_ordinary_size(width, height);
    const GameColumns columns;
    NumberedList list(columns, {{columns.date, "Date", 11, false},
                                {columns.players, "Players", 30, true},
                                {columns.moves, "Moves", 7, false}});
    for (const auto& game : games) {
        list.append({text::displayable(game.date), text::displayable(game.players), game.moves});
    }
    list.signal_answered().connect([&dialog] { dialog.response(Gtk::RESPONSE_OK); });
    dialog.body().pack_start(list, Gtk::PACK_EXPAND_WIDGET);
    dialog.add_note("These games stand neither in the archive nor in a file.");
    dialog.add_answer("Cancel", Gtk::RESPONSE_CANCEL);
    dialog.add_answer("Take up", Gtk::RESPONSE_OK);
    dialog.set_default_response(Gtk::RESPONSE_OK);
    list.select_first();
    return dialog.run() == Gtk::RESPONSE_OK ? list.selected() : std::nullopt;
}

}  // namespace velmora
