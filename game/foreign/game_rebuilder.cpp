#include "game/foreign/game_rebuilder.h"

#include <utility>

#include "base/text.h"
#include "chess/notation/san_writer.h"
#include "game/pgn_limits.h"

namespace velmora {

namespace {

/// A variation that is nested deeper becomes a comment; the strict reader takes 500, and long comments add
/// one.
constexpr std::size_t deepest_line = 400;

/// Moves after which a position forgets its history: a copy has all of it, and variations and checks need
/// copies.
constexpr std::size_t longest_history = 64;

}  // namespace

GameRebuilder::GameRebuilder(std::string_view text, const ChessPosition& start, std::int32_t first_number,
                             RemarkList& remarks)
    : m_text(text), m_remarks(remarks), m_moves(first_number, start.side_to_move() == Side::black) {
    m_lines.emplace_back();
    m_lines.back().position = start;
}

void GameRebuilder::take(const ForeignToken& token) {
    using Kind = ForeignToken::Kind;
    if (token.kind == Kind::end) return finish();
    if (m_lines.back().is_broken) return take_in_broken_line(token);
    switch (token.kind) {
        case Kind::comment:
        case Kind::line_comment:
            return take_comment(token);
        case Kind::variation_open:
            return open_variation(token);
        case Kind::variation_close:
            return close_variation(token.offset);
        case Kind::glyph:
            return m_moves.add_glyph(m_lines.back().last_move, token.text);
        case Kind::result:
            return take_result(token);
        case Kind::word:
            return take_word(token);
        case Kind::end:
            return;
    }
}

/// Looks for the end of the line; all else is part of the text that becomes a comment.
void GameRebuilder::take_in_broken_line(const ForeignToken& token) {
    auto& line = m_lines.back();
    if (token.kind == ForeignToken::Kind::variation_open) {
        ++line.broken_depth;
    } else if (token.kind == ForeignToken::Kind::variation_close) {
        if (line.broken_depth > 0) {
            --line.broken_depth;
        } else if (m_lines.size() > 1) {
            finish_broken_line(token.offset);
            close_variation(token.offset);
        }
    } else if (token.kind == ForeignToken::Kind::result && m_lines.size() == 1 && line.broken_depth == 0) {
        finish_broken_line(token.offset);
        take_result(token);
    }
}

void GameRebuilder::take_comment(const ForeignToken& token) {
    auto& line = m_lines.back();
    auto text = token.text;
    if (token.kind == ForeignToken::Kind::line_comment) {
        remark(RemarkKind::semicolon_comment, token);
        text = text::trim_white_space(text);
    }
    if (text.size() > pgn_limits::comment) remark(RemarkKind::long_comment, token);
    if (!token.is_closed) remark(RemarkKind::open_comment, token);
    if (m_lines.size() > 1 && !line.has_moves) {
        remark(RemarkKind::comment_place, token);
        if (!line.lead.empty() && !text.empty()) line.lead += ' ';
        line.lead += text;
    } else {
        if (m_is_over) remark(RemarkKind::comment_place, token);
        comment(text);
    }
}

void GameRebuilder::comment(std::string_view text) { m_moves.append_comment(m_lines.back().last_move, text); }

void GameRebuilder::take_word(const ForeignToken& token) {
    if (m_is_over) {
        remark(RemarkKind::word, token);
        return comment(token.text);
    }
    const auto word = take_apart(token.text);
    const auto& line = m_lines.back();
    if (word.is_null) return break_line(RemarkKind::null_move, token);
    if (!word.may_be_move()) {
        // A sign of its own stands behind its move; "e.p." is said by the move.
        for (const auto& glyph : word.glyphs) m_moves.add_glyph(line.last_move, glyph);
        const bool says_something = word.glyphs.empty() && word.spelling.empty();
        for (const auto kind : word.spelling) remark(kind, token);
        if (says_something) {
            remark(RemarkKind::word, token);
            comment(token.text);
        }
        return;
    }
    bool several = false;
    const auto move = find_move(line.position, word, several);
    if (!move) return break_line(several ? RemarkKind::ambiguous_move : RemarkKind::illegal_move, token);
    for (const auto kind : word.spelling) remark(kind, token);
    make(*move);
    for (const auto& glyph : word.glyphs) m_moves.add_glyph(line.last_move, glyph);
}

void GameRebuilder::make(Move move) {
    auto& line = m_lines.back();
    if (line.history == longest_history) {
        line.position.set_fen(line.position.fen());
        line.history = 0;
    }
    line.last_move = m_moves.add_move(write_san(line.position, move), line.plies, m_lines.size() - 1);
    line.position.do_move(move);
    ++line.plies;
    ++line.history;
    line.has_moves = true;
    comment(std::exchange(line.lead, {}));
}

/// A result within a variation says how it would have ended.
void GameRebuilder::take_result(const ForeignToken& token) {
    if (m_lines.size() > 1) {
        remark(RemarkKind::variation, token);
        const auto behind = m_text.find_first_not_of(text::white_space, token.offset + token.text.size());
        if (behind != std::string_view::npos) return comment(token.text);
        while (m_lines.size() > 1) close_variation(token.offset);  // they were never closed
    }
    if (token.text != token.result) remark(RemarkKind::result_form, token);
    m_result = token.result;
    m_is_over = true;
}

void GameRebuilder::open_variation(const ForeignToken& token) {
    const auto& around = m_lines.back();
    Line line;
    line.last_move = around.last_move;
    line.opened_at = token.offset;
    if (!around.has_moves || m_lines.size() > deepest_line || m_is_over) {
        remark(RemarkKind::variation, token);
        line.is_broken = true;  // all up to the closing parenthesis is text
        line.broken_at = token.offset + 1;
    } else {
        line.position = around.position;
        line.position.undo_move();
        line.plies = around.plies - 1;
        line.history = around.history - 1;
    }
    m_lines.push_back(std::move(line));
    m_moves.open_variation();
}

void GameRebuilder::close_variation(std::size_t offset) {
    if (m_lines.size() == 1) return;
    const auto line = std::move(m_lines.back());
    m_lines.pop_back();
    if (line.has_moves) return m_moves.close_variation();
    m_moves.drop_open_variation();
    const bool has_text = !line.is_broken && !line.lead.empty();
    if (has_text) comment(line.lead);
    if (!has_text && !line.is_broken) m_remarks.add(RemarkKind::variation, offset);
}

void GameRebuilder::break_line(RemarkKind kind, const ForeignToken& token) {
    remark(kind, token);
    auto& line = m_lines.back();
    line.is_broken = true;
    line.broken_at = token.offset;
}

/// Of a line without a move the parentheses are kept, so that one sees what it was.
void GameRebuilder::finish_broken_line(std::size_t end) {
    auto& line = m_lines.back();
    const auto rest = text::trim_white_space(m_text.substr(line.broken_at, end - line.broken_at));
    const bool in_parentheses = m_lines.size() > 1 && !line.has_moves;
    std::string text(rest);
    if (in_parentheses) {
        if (!line.lead.empty()) text = line.lead + " " + text;
        text = "(" + text + ")";
        // The variation goes, and the text with it to the move that it was about.
        m_moves.append_comment(m_lines[m_lines.size() - 2].last_move, text);
    } else {
        comment(text);
    }
    line.lead.clear();
    line.broken_depth = 0;
    if (m_lines.size() == 1) line.is_broken = false;
}

/// A game ends whatever is open.
void GameRebuilder::finish() {
    if (m_lines.size() > 1) m_remarks.add(RemarkKind::variation, m_lines.back().opened_at);
    while (m_lines.size() > 1 || m_lines.back().is_broken) {
        if (m_lines.back().is_broken) finish_broken_line(m_text.size());
        close_variation(m_text.size());
    }
}

void GameRebuilder::remark(RemarkKind kind, const ForeignToken& token) {
    m_remarks.add(kind, token.offset, m_moves.number(m_lines.back().plies), token.text);
}

}  // namespace velmora
