#include "channel/engine_line.h"

#include "base/text.h"

namespace velmora {

namespace {

constexpr std::string_view arrival_mark = " TS=";
constexpr std::string_view stopped_mark = " stopped";

/// Takes the marks off that encode() has put behind a best move. The move itself is none, whatever it reads.
void take_marks(EngineLine& line) {
    const auto move = line.move();
    const auto behind_move = static_cast<std::size_t>(move.data() + move.size() - line.text.data());
    if (line.text.substr(behind_move).ends_with(stopped_mark)) {
        line.stopped = true;
        line.text.remove_suffix(stopped_mark.size());
    }
    const auto place = line.text.rfind(arrival_mark);
    if (place == std::string_view::npos) return;
    line.arrival = text::strict_integer<std::uint32_t>(line.text.substr(place + arrival_mark.size()));
    if (line.arrival) line.text = line.text.substr(0, place);
}

}  // namespace

int sender_of(std::string_view line) { return text::WordReader(line).integer<int>().value_or(-1); }

EngineWord engine_word(std::string_view text) {
    const auto word = text::first_word(text);
    if (word == "info") return EngineWord::info;
    if (word == "bestmove") return EngineWord::best_move;
    if (word == "resign") return EngineWord::resign;
    if (word == "offer" && text::trim_blanks(text).ends_with(" draw")) return EngineWord::offer_draw;
    return EngineWord::other;
}

std::string_view EngineLine::rest() const {
    text::WordReader reader(text);
    reader.word();
    return reader.rest();
}

std::string_view EngineLine::move() const { return text::first_word(rest()); }

std::string encode(const EngineLine& line) {
    std::string text = std::to_string(static_cast<int>(line.seat));
    text += ' ';
    text += std::to_string(line.instance_id);
    text += ' ';
    text += line.text;
    if (line.arrival) text.append(arrival_mark).append(std::to_string(*line.arrival));
    if (line.stopped) text += stopped_mark;
    return text;
}

std::optional<EngineLine> decode_engine_line(std::string_view line) {
    text::WordReader reader(line);
    const int sender = reader.integer<int>().value_or(-1);
    if (!is_seat(sender)) return {};
    EngineLine decoded;
    decoded.seat = static_cast<Seat>(sender);
    decoded.instance_id = reader.integer<std::uint64_t>().value_or(0);
    decoded.text = text::trim_leading_blanks(reader.rest());
    if (decoded.word() == EngineWord::best_move) take_marks(decoded);
    return decoded;
}

}  // namespace velmora
