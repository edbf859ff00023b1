#include "collection/game_filter.h"

#include <algorithm>
#include <span>

namespace velmora {

namespace {

using Kind = FilterTerm::Kind;

/// Clears the games that don't fit.
template <class Fits>
void keep_if(std::span<const GameColumns> games, std::vector<std::uint8_t>& fitting, Fits fits) {
    for (std::size_t i = 0; i < games.size(); ++i) {
        if (fitting[i] != 0) fitting[i] = fits(games[i]) ? 1 : 0;
    }
}

bool lies_in(std::uint32_t number, const FilterTerm& term) {
    return number >= term.low && number <= term.high;
}

std::uint32_t GameColumns::*text_column(Kind kind) {
    switch (kind) {
        case Kind::white:
            return &GameColumns::white;
        case Kind::black:
            return &GameColumns::black;
        case Kind::event:
            return &GameColumns::event;
        case Kind::site:
            return &GameColumns::site;
        case Kind::opening:
            return &GameColumns::opening;
        default:
            return &GameColumns::round;
    }
}

void apply(const FilterTerm& term, const CollectionIndex& collection, std::vector<std::uint8_t>& fitting) {
    const auto games = collection.games();
    switch (term.kind) {
        case Kind::elo:
            return keep_if(games, fitting, [&](const GameColumns& game) {
                return game.white_elo > 0 && game.black_elo > 0 && lies_in(game.white_elo, term) &&
                       lies_in(game.black_elo, term);
            });
        case Kind::year:
            return keep_if(games, fitting, [&](const GameColumns& game) {
                return game.date > 0 && lies_in(game.year(), term);
            });
        case Kind::eco:
            return keep_if(games, fitting,
                           [&](const GameColumns& game) { return game.eco > 0 && lies_in(game.eco, term); });
        case Kind::moves:
            return keep_if(games, fitting,
                           [&](const GameColumns& game) { return lies_in((game.plies + 1) / 2, term); });
        case Kind::result:
            return keep_if(games, fitting,
                           [&](const GameColumns& game) { return game.result == term.result; });
        default:
            break;
    }
    const auto texts = collection.texts().containing(term.text);
    // A number that the table hasn't is no reason to fail.
    const auto fits = [&texts](std::uint32_t number) { return number < texts.size() && texts[number]; };
    if (term.kind != Kind::word) {
        const auto column = text_column(term.kind);
        return keep_if(games, fitting, [&](const GameColumns& game) { return fits(game.*column); });
    }
    keep_if(games, fitting, [&](const GameColumns& game) {
        return fits(game.white) || fits(game.black) || fits(game.event) || fits(game.site) ||
               fits(game.opening);
    });
}

}  // namespace

std::vector<std::uint8_t> fitting_games(const CollectionIndex& collection, const FilterLine& filter) {
    std::vector<std::uint8_t> fitting(collection.size(), 1);
    for (const auto& term : filter.terms) apply(term, collection, fitting);
    return fitting;
}

}  // namespace velmora
