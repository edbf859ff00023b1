#include "game/foreign/foreign_file.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "game/pgn_error.h"
#include "game/pgn_file.h"

namespace velmora {

namespace {

/// A game as the strict reader has cut it, and where it begins.
struct StrictText {
    std::string text;
    std::uint64_t offset = 0;
};

/// The first game at or behind an offset. Nothing when there is none or it can't be cut; `fault` then has the
/// reason.
std::optional<StrictText> strict_text(const std::string& path, std::uint64_t offset,
                                      std::optional<pgn_error>& fault) {
    PgnFile file;
    if (!file.open(path)) return std::nullopt;
    try {
        auto text = file.read_game_at(offset);
        if (!text.empty()) return StrictText{std::move(text), file.game_offset()};
    } catch (const pgn_error& error) {
        fault = error;
    }
    return std::nullopt;
}

/// Whether a game has moves, or has none because there were none: what only has words is no game.
bool is_game(const ForeignGame& game) {
    return game.plies > 0 || std::ranges::none_of(game.remarks, [](const Remark& remark) {
               return is_loss(remark.kind) || remark.kind == RemarkKind::word ||
                      remark.kind == RemarkKind::variation || remark.kind == RemarkKind::tags_missing;
           });
}

/// Whether the strict reader keeps less of a game than there is.
bool is_lost(const ForeignText& game) {
    return game.is_utf16 || game.runs_into_next() || needs_repair(game.text);
}

/// The list of headers leaves out games without an event tag.
bool has_event_tag(std::string_view text) { return text.find("[Event") != std::string_view::npos; }

}  // namespace

ForeignFile::ForeignFile(std::stop_token leaving)
    : m_lines(std::move(leaving)), m_splitter(m_lines, GameSplitter::Begin::tag_or_number) {}

bool ForeignFile::open(const std::string& path) {
    m_splitter.restart();
    return m_lines.open(path);
}

bool ForeignFile::next(ForeignText& game) {
    game.is_utf16 = is_utf16();
    return m_splitter.next(game);
}

bool ForeignFile::read_at(std::uint64_t offset, ForeignText& game) {
    m_lines.seek(offset);
    m_splitter.restart();
    return next(game);
}

AnyGame read_any_game(const std::string& path, std::uint64_t offset) {
    std::optional<pgn_error> fault;
    auto strict = strict_text(path, offset, fault);
    ForeignFile file;
    ForeignText source;
    const bool has_source =
        file.open(path) && file.read_at(offset, source) && (!strict || source.offset <= strict->offset);
    const bool is_missed = !strict || (has_source && source.offset < strict->offset);
    if (has_source && (is_missed || is_lost(source))) {
        auto game = repair_game(source);
        const bool is_better = is_missed || game.is_repaired() || source.runs_into_next();
        if (is_better && is_game(game)) return {std::move(game.text), std::move(game.remarks)};
    }
    if (strict) return {std::move(strict->text), {}};
    throw pgn_error(fault ? fault->text() : std::string());
}

bool is_utf16_file(const std::string& path) {
    ForeignFile file;
    return file.open(path) && file.is_utf16();
}

FileSurvey::FileSurvey(const std::string& path, std::stop_token leaving)
    : m_file(std::move(leaving)), m_is_open(m_file.open(path)) {}

bool FileSurvey::next(SurveyedGame& found) {
    while (m_is_open && m_file.next(m_text)) {
        ++m_games;
        const bool is_needed = is_lost(m_text);
        if (!is_needed && has_event_tag(m_text.text)) continue;
        auto game = repair_game(m_text);
        if (!is_game(game)) continue;
        found.is_repaired = is_needed && (game.is_repaired() || m_text.runs_into_next());
        found.offset = m_text.offset;
        found.size = m_text.text.size();
        found.game = std::move(game);
        return true;
    }
    return false;
}

}  // namespace velmora
