#include "game/foreign/pasted_text.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

#include "base/text.h"
#include "chess/moves/position.h"
#include "game/foreign/foreign_header.h"
#include "game/foreign/game_splitter.h"

namespace velmora {

namespace {

constexpr std::string_view utf8_mark = "\xEF\xBB\xBF";

bool looks_like_position(std::string_view text) {
    const auto board = text::first_word(text);
    return std::ranges::count(board, '/') == 7;
}

/// A placement with a point for each empty square.
std::string squares_of(std::string_view placement) {
    std::string squares;
    for (const char c : placement) {
        if (c >= '1' && c <= '8') {
            squares.append(static_cast<std::size_t>(c - '0'), '.');
        } else {
            squares += c;
        }
    }
    return squares;
}

PastedText position_of(std::string_view text) {
    PastedText pasted;
    const auto line = text::trim_white_space(text.substr(0, text.find('\n')));
    try {
        ChessPosition position;
        position.fen(line);
        if (squares_of(text::first_word(position.fen())) != squares_of(text::first_word(line)))
            throw std::logic_error("a rank hasn't eight squares");
        pasted.kind = PastedText::Kind::position;
        pasted.position = line;
    } catch (const std::logic_error& error) {
        pasted.fault = std::string("The position can't be set up: ") + error.what();
    }
    return pasted;
}

/// Why there is no game, from the first remark that says it.
std::string fault_of(const ForeignGame& game) {
    for (const auto& remark : game.remarks) {
        if (is_loss(remark.kind) || remark.kind == RemarkKind::word)
            return "No game was found: " + describe(remark);
    }
    return "No game was found";
}

}  // namespace

PastedText read_pasted(std::string_view text, std::size_t most_games) {
    if (text.starts_with(utf8_mark)) text.remove_prefix(utf8_mark.size());
    PastedText pasted;
    if (text::trim_white_space(text).empty()) {
        pasted.fault = "There is no text";
        return pasted;
    }
    if (const auto begin = text.find_first_not_of(text::white_space); looks_like_position(text.substr(begin)))
        return position_of(text.substr(begin));

    TextLines lines(text);
    GameSplitter splitter(lines, GameSplitter::Begin::anything);
    ForeignText source;
    while (pasted.games.size() < most_games && splitter.next(source)) {
        auto game = repair_game(source);
        const bool has_tags = begins_with_tag(source.text.substr(0, source.text.find('\n')));
        if (game.plies == 0 && !has_tags) {
            if (pasted.fault.empty()) pasted.fault = fault_of(game);
            continue;
        }
        if (has_tags && !source.runs_into_next() && !needs_repair(source.text))
            game = {source.text, {}, game.plies};
        pasted.games.push_back(std::move(game));
    }
    if (pasted.games.empty()) return pasted;
    pasted.kind = PastedText::Kind::games;
    pasted.fault.clear();
    return pasted;
}

}  // namespace velmora
