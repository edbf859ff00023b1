#include "manager/match_opening.h"

namespace velmora {

void play_opening(GuiBook& book, ChessPosition& position, const Tournament& tournament,
                  std::int32_t game_number) {
    if (tournament.random_order()) {
        const bool second_of_pair = tournament.both_colors() && game_number % 2 == 0;
        if (second_of_pair) {
            book.play_again(position);
        } else {
            book.play_random(position);
        }
    } else if (!tournament.both_colors()) {
        book.play_entry(position, game_number);
    } else if (game_number == 1) {
        book.play_first(position);
    } else {
        book.play_entry(position, (game_number + 1) / 2);
    }
}

}  // namespace velmora
