#include <random>
#include <stdexcept>
#include <unistd.h>

#include "base/text.h"
#include "chess/moves/legal_moves.h"
#include "chess/moves/position.h"
#include "chess/notation/san_move.h"
#include "tests/support/scripted_engine.h"

namespace velmora::scripted {

namespace {

/// Chooses moves: those of the given lines, else random ones.
class Player {
public:
    explicit Player(const PlayerSettings& settings)
        : m_settings(settings), m_random(static_cast<std::uint32_t>(::getpid())) {}

    /// What is to happen in place of the move that is due now; empty for an ordinary move.
    std::string incident() {
        ++m_moves_made;
        for (const auto& incident : m_settings.incidents) {
            if (incident.move_number == m_moves_made) return incident.command;
        }
        return {};
    }

    /// The empty move when there is no legal one.
    Move choose(const ChessPosition& position) {
        const MoveList moves = legal_moves(position);
        if (moves.empty()) return Move();
        const std::string wanted = next_of_line(position);
        for (const Move& move : moves) {
            if (move.to_string(false) == wanted) return move;
        }
        return moves[m_random() % moves.size()];
    }

private:
    std::string next_of_line(const ChessPosition& position) const {
        std::string played = position.moves_text();
        if (!played.empty()) played += ' ';
        for (const std::string& line : m_settings.lines) {
            if (line.starts_with(played)) return std::string(text::first_word(line.substr(played.size())));
        }
        return {};
    }

    const PlayerSettings& m_settings;
    std::minstd_rand m_random;
    int m_moves_made = 0;
};

/// Plays a move in coordinate form or, if it is none, in SAN; false when it is not legal.
bool play(ChessPosition& position, const std::string& word) {
    const auto read = [&position](const auto& parse) -> std::optional<Move> {
        try {
            return find_legal(position, parse());
        } catch (const std::logic_error&) {
            return std::nullopt;
        }
    };
    auto move = read([&] { return position.convert_to_move(word); });
    if (!move) move = read([&]() -> Move { return SanMove(position, word); });
    if (move) position.do_move(*move);
    return move.has_value();
}

/// What the speakers of both protocols have.
class Speaker {
public:
    Speaker(const PlayerSettings& settings, Wire& wire, Script& script)
        : m_settings(settings), m_wire(wire), m_script(script), m_player(settings) {
        m_position.new_game();
    }

protected:
    const PlayerSettings& m_settings;
    Wire& m_wire;
    Script& m_script;
    Player m_player;
    ChessPosition m_position;
};

class UciPlayer : private Speaker {
public:
    using Speaker::Speaker;

    void run() {
        for (auto line = m_wire.read_line(); line && *line != "quit"; line = m_wire.read_line()) {
            text::WordReader reader(*line);
            const auto word = reader.word();
            if (word == "uci") {
                m_wire.write_line("id name " + m_settings.name);
                m_wire.write_line("id author Nobody");
                for (const auto& option : m_settings.options) m_wire.write_line("option " + option);
                m_wire.write_line("uciok");
            } else if (word == "isready") {
                m_wire.write_line("readyok");
            } else if (word == "position") {
                set_up(reader);
            } else if (word == "go") {
                search(*line);
                if (m_quit) return;
            }
        }
    }

private:
    void set_up(text::WordReader& reader) {
        m_position.new_game();
        std::string fen;
        auto word = reader.word();
        if (word == "fen") {
            for (word = reader.word(); !word.empty() && word != "moves"; word = reader.word()) {
                fen.append(word) += ' ';
            }
            m_position.set_fen(fen);
        }
        while (!word.empty() && word != "moves") word = reader.word();
        for (word = reader.word(); !word.empty(); word = reader.word()) play(m_position, std::string(word));
    }

    void search(const std::string& go_line) {
        bool endless =
            go_line.find("infinite") != std::string::npos || go_line.find("ponder") != std::string::npos;
        const Move move = m_player.choose(m_position);
        for (int i = 1; i <= m_settings.infos; ++i) {
            m_wire.write_line("info depth " + std::to_string(i) + " score cp 15 time " + std::to_string(i) +
                              " nodes 1000 nps 100000 pv " + move.to_string(false));
        }
        while ((endless || m_settings.think_ms > 0) && m_wire.has_line(endless ? -1 : m_settings.think_ms)) {
            const auto line = m_wire.read_line();
            m_quit = !line || *line == "quit";
            if (m_quit) return;
            if (*line == "stop") break;
            if (*line == "ponderhit") endless = false;
            if (*line == "isready") m_wire.write_line("readyok");
            if (*line == "ponderhit" && m_settings.think_ms == 0) break;
        }
        if (const std::string incident = m_player.incident(); !incident.empty())
            return m_script.run(incident);
        std::string answer = "bestmove " + (move.empty() ? "(none)" : move.to_string(false));
        if (m_settings.ponder && !move.empty()) {
            ChessPosition next = m_position;
            next.do_move(move);
            if (const Move reply = m_player.choose(next); !reply.empty()) {
                answer += " ponder " + reply.to_string(false);
            }
        }
        m_wire.write_line(answer);
    }

    bool m_quit = false;
};

class XboardPlayer : private Speaker {
public:
    using Speaker::Speaker;

    void run() {
        for (auto line = m_wire.read_line(); line && *line != "quit"; line = m_wire.read_line()) obey(*line);
    }

private:
    void obey(const std::string& line) {
        text::WordReader reader(line);
        const std::string word(reader.word());
        const std::string argument(text::trim_leading_blanks(reader.rest()));
        if (word == "protover") {
            m_wire.write_line("feature setboard=1 usermove=1 time=1 reuse=1 colors=0 ping=1 san=0 myname=\"" +
                              m_settings.name + "\" done=1");
        } else if (word == "new") {
            m_position.new_game();
            m_plays = Side::black;
        } else if (word == "force") {
            m_plays.reset();
        } else if (word == "setboard") {
            m_position.set_fen(argument);
        } else if (word == "go") {
            m_plays = m_position.side_to_move();
            move_if_due();
        } else if (word == "ping") {
            m_wire.write_line("pong " + argument);
        } else if (word == "post" || word == "nopost") {
            m_posts = word == "post";
        } else if (word == "usermove" || is_move(word)) {
            const std::string& text = word == "usermove" ? argument : word;
            if (play(m_position, text)) return move_if_due();
            m_wire.write_line("Illegal move: " + text);
        }
    }

    /// Whether the word looks like a move; all others are commands to be taken in silence.
    static bool is_move(const std::string& word) {
        return word.starts_with("O-O") ||
               (word.size() >= 2 && word.size() <= 8 && word.find_first_of("12345678") != std::string::npos);
    }

    void move_if_due() {
        if (m_plays != m_position.side_to_move()) return;
        const Move move = m_player.choose(m_position);
        if (move.empty()) return;
        for (int i = 1; m_posts && i <= m_settings.infos; ++i) {
            m_wire.write_line(std::to_string(i) + " 15 1 1000 " + move.to_string(false));
        }
        if (m_settings.think_ms > 0) ::usleep(static_cast<useconds_t>(m_settings.think_ms) * 1000);
        if (const std::string incident = m_player.incident(); !incident.empty())
            return m_script.run(incident);
        m_wire.write_line("move " + move.to_string(false));
        m_position.do_move(move);
    }

    std::optional<Side> m_plays = Side::black;
    bool m_posts = false;
};

}  // namespace

void play_uci(const PlayerSettings& settings, Wire& wire, Script& script) {
    UciPlayer(settings, wire, script).run();
}

void play_xboard(const PlayerSettings& settings, Wire& wire, Script& script) {
    XboardPlayer(settings, wire, script).run();
}

}  // namespace velmora::scripted
