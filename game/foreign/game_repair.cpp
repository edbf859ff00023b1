#include "game/foreign/game_repair.h"

#include <algorithm>
#include <optional>

#include "base/text.h"
#include "chess/moves/position.h"
#include "game/foreign/encoding.h"
#include "game/foreign/foreign_header.h"
#include "game/foreign/foreign_tokens.h"
#include "game/foreign/game_rebuilder.h"

namespace velmora {

namespace {

/// The position in which the moves begin; the standard one when the tag can't be read, as everywhere.
ChessPosition start_of(const GameTags& tags, RemarkList& remarks) {
    ChessPosition position;
    position.new_game();
    if (!tags.contains("FEN")) return position;
    ChessPosition from_tag;
    try {
        from_tag.fen(tags.fen());
    } catch (const std::logic_error&) {
        remarks.add(RemarkKind::bad_fen, 0, {}, tags.fen());
        return position;
    }
    return from_tag;
}

/// A game says its result behind the moves and in a tag; each stands in for the other.
std::string settle_result(std::string_view behind_moves, std::size_t end, GameTags& tags,
                          RemarkList& remarks) {
    const auto tag = tags.get("Result");
    const bool tag_is_known = tag == "1-0" || tag == "0-1" || tag == "1/2-1/2";
    std::string result(behind_moves);
    if (behind_moves.empty()) {
        remarks.add(RemarkKind::result_missing, end);
        result = tag_is_known ? tag : "*";
    }
    if (!tag_is_known) tags.set("Result", result);
    return result;
}

}  // namespace

bool ForeignGame::is_repaired() const {
    return std::ranges::any_of(remarks, [](const Remark& remark) {
        return !is_loss(remark.kind) && remark.kind != RemarkKind::result_missing;
    });
}

bool ForeignGame::has_losses() const {
    return std::ranges::any_of(remarks, [](const Remark& remark) { return is_loss(remark.kind); });
}

ForeignGame repair_game(std::string_view bytes, std::uint64_t first_line) {
    auto first_changed = std::string_view::npos;
    const auto text = utf8_of_bytes(bytes, first_changed);
    RemarkList remarks(text, first_line);
    if (first_changed != std::string_view::npos) remarks.add(RemarkKind::encoding, first_changed);

    auto header = read_foreign_header(text, remarks);
    if (!header.has_tags) remarks.add(RemarkKind::tags_missing, 0);
    const auto start = start_of(header.tags, remarks);
    GameRebuilder rebuilder(text, start, header.tags.start_move_number(), remarks);
    rebuilder.add_start_comment(header.comment);
    ForeignTokens tokens(text, header.moves_begin);
    auto token = tokens.next();
    for (; token.kind != ForeignToken::Kind::end; token = tokens.next()) rebuilder.take(token);
    rebuilder.take(token);

    const auto result = settle_result(rebuilder.result(), text.size(), header.tags, remarks);
    bool cut = false;
    bool split = false;
    ForeignGame game;
    const auto moves = rebuilder.moves().text(result, cut, split);
    if (split && !remarks.has(RemarkKind::long_comment))
        remarks.add(RemarkKind::long_comment, header.moves_begin);
    if (cut) remarks.add(RemarkKind::comment_cut, header.moves_begin);
    game.text = header.tags.print() + "\n" + moves;
    game.plies = rebuilder.main_line_plies();
    game.remarks = remarks.take();
    return game;
}

ForeignGame repair_game(const ForeignText& source) {
    auto game = repair_game(source.text, source.line);
    if (source.is_utf16)
        game.remarks.insert(game.remarks.begin(), {RemarkKind::encoding, source.line, 1, 1, {}, {}});
    if (source.is_too_long) game.remarks.push_back({RemarkKind::too_long, source.line, 1, 1, {}, {}});
    return game;
}

}  // namespace velmora
