#include "collection/game_digester.h"

#include <algorithm>
#include <limits>
#include <stdexcept>

#include "base/text.h"
#include "collection/main_line.h"
#include "collection/position_key.h"
#include "collection/san_resolver.h"

namespace velmora {

namespace {

constexpr std::size_t longest_remark_word = 40;

std::uint16_t rating(std::string_view value) {
    constexpr std::uint16_t highest = 9999;
    const auto number = text::strict_integer<std::uint16_t>(text::trim_white_space(value));
    return number && *number <= highest ? *number : 0;
}

bool names_chess960(std::string_view variant) {
    return variant.find("960") != std::string_view::npos || variant.starts_with("Fischer") ||
           variant.starts_with("fischer");
}

std::string_view trimmed_end(std::string_view text) {
    const auto last = text.find_last_not_of(text::white_space);
    return text.substr(0, last == std::string_view::npos ? 0 : last + 1);
}

}  // namespace

void TextNumbers::clear() {
    m_numbers.clear();
    m_texts.assign(1, std::string());
    m_numbers.emplace(std::string(), 0);
}

std::uint32_t TextNumbers::number_of(std::string_view text) {
    const auto found = m_numbers.find(text);
    if (found != m_numbers.end()) return found->second;
    const auto number = static_cast<std::uint32_t>(m_texts.size());
    m_texts.emplace_back(text);
    m_numbers.emplace(m_texts.back(), number);
    return number;
}

void GameBatch::clear() {
    games.clear();
    start_fens.clear();
    positions.clear();
    texts.clear();
    ends_with_result = true;
}

std::size_t GameDigester::add(const GameSpan& span, GameBatch& batch) {
    if (!m_started) m_start.new_game();
    m_started = true;
    HeaderTags tags;
    const auto header_size = tags.read(span.text);
    GameColumns game;
    game.offset = span.offset;
    batch.start_fens.emplace_back(shown_value(tags[Tag::fen]));

    MainLine line(span.text.substr(header_size));
    m_opening = nullptr;
    if (set_up(tags, game)) replay(line, game, batch);
    line.skip_to_end();
    if (span.is_cut) game.remark = GameRemark::cut;
    const auto size = header_size + line.position();
    game.length = static_cast<std::uint32_t>(trimmed_end(span.text.substr(0, size)).size());
    fill_tags(tags, game, batch);
    // The tag's word counts; many a game ends by its movetext alone.
    game.result = result_of(tags[Tag::result]);
    if (game.result == GameResult::unknown) game.result = result_of(line.result());

    batch.games.push_back(game);
    batch.end = span.offset + size;
    batch.ends_with_result = !line.result().empty();
    return size;
}

/// Puts the start position on the board; false when the game's can't be read.
bool GameDigester::set_up(const HeaderTags& tags, GameColumns& game) {
    const auto fen = tags[Tag::fen];
    if (fen.empty()) {
        m_position = m_start;
        return true;
    }
    game.start = names_chess960(tags[Tag::variant]) ? GameStart::chess960 : GameStart::position;
    try {
        m_position.fen(fen);
        return true;
    } catch (const std::logic_error&) {
        game.remark = GameRemark::bad_start;
        return false;
    }
}

void GameDigester::replay(MainLine& line, GameColumns& game, GameBatch& batch) {
    const auto number = static_cast<std::uint32_t>(batch.games.size());
    while (true) {
        if (const auto* const named = m_openings.find(m_position.key())) m_opening = named;
        const auto key = position_key(m_position);
        const auto word = line.next();
        const Move move = word.empty() ? Move() : resolve_san(m_position, word);
        batch.positions.push_back({key, number, move_code(move)});
        if (move.empty()) {
            if (!word.empty()) {
                game.remark = word == "--" || word == "Z0" ? GameRemark::null_move : GameRemark::illegal_move;
                game.remark_word = batch.texts.number_of(shown_value(word.substr(0, longest_remark_word)));
            }
            return;
        }
        ++game.plies;
        m_position.do_move(move);
    }
}

void GameDigester::fill_tags(const HeaderTags& tags, GameColumns& game, GameBatch& batch) {
    const auto number_of = [&](Tag tag) { return batch.texts.number_of(shown_value(tags[tag])); };
    game.white = number_of(Tag::white);
    game.black = number_of(Tag::black);
    game.event = number_of(Tag::event);
    game.site = number_of(Tag::site);
    game.round = number_of(Tag::round);
    game.date = date_number(tags[Tag::date]);
    game.white_elo = rating(tags[Tag::white_elo]);
    game.black_elo = rating(tags[Tag::black_elo]);
    game.eco = eco_number(tags[Tag::eco]);
    if (game.eco == 0 && m_opening != nullptr) game.eco = eco_number(m_opening->code);

    std::string opening = shown_value(tags[Tag::opening]);
    if (!opening.empty() && !tags[Tag::variation].empty())
        opening += ", " + shown_value(tags[Tag::variation]);
    if (opening.empty() && m_opening != nullptr) opening = full_name(*m_opening);
    game.opening = batch.texts.number_of(opening);
}

}  // namespace velmora
