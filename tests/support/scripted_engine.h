#pragma once

#include <optional>
#include <string>
#include <vector>

/// The scripted engine: a chess engine program that does what a test tells it to, good or bad.
///
/// An engine gets no arguments, so the script is found by the name of the program: started as "dir/name.any"
/// (a link to scripted_engine) it runs "dir/name.script", else the file named by VELMORA_ENGINE_SCRIPT, else
/// the one line "play". Every line that it is sent is appended at once to "dir/name.sent".
///
/// A script is read line by line; blank lines and lines beginning with # say nothing. <bytes> may hold the
/// escapes of C strings for line feed, return, tab, backslash and a byte in hexadecimal.
///
///   expect <line>        the next line sent must be this one, else it complains and ends with status 9
///   until <text>         takes lines until one begins with the text
///   answer <bytes>       writes the bytes and a line feed
///   write <bytes>        writes the bytes as they are: lines split at will
///   wait <ms>            sleeps
///   flood <n> <bytes>    writes the bytes and a line feed n times, %d being the number from 1
///   close stdout         as it says
///   ignore quit          from here on neither "quit" nor the end of input ends the program
///   hang                 neither reads nor writes again
///   die [status]         ends at once
///   kill <signal>        ends by the signal
///   rest                 takes lines until "quit" or the end of input, as at the end of every script
///
/// A "quit" ends the program wherever lines are taken, unless it is waited for. An engine that is forgotten
/// ends by itself after two minutes.
///
/// To play whole games with the rules of chess, at full speed, a script sets up the player and starts it:
///
///   name <text>          the reported name
///   option <rest>        announces "option <rest>" (UCI)
///   line <moves>         a game in coordinate form, followed as long as the game agrees with it; the first
///                        line that fits gives the move, else it is a random one
///   info <n>             thinking lines ahead of each move
///   think <ms>           time for each move
///   ponder               names the expected reply with each move (UCI)
///   at <n> <command>     runs a script command in place of the n-th move that the process makes, counted
///                        from 1: "at 5 die", "at 3 answer bestmove e2e5", "at 2 hang"
///   play [uci|xboard]    speaks the protocol until "quit"; uci when not said
namespace velmora::scripted {

/// How the player plays; filled by the script lines above.
struct PlayerSettings {
    struct Incident {
        int move_number;
        std::string command;
    };
    std::string name = "Scripted Engine";
    std::vector<std::string> options;
    std::vector<std::string> lines;  ///< each a game, coordinate moves with single blanks between
    int infos = 0;
    int think_ms = 0;
    bool ponder = false;
    std::vector<Incident> incidents;
};

/// The two streams to the program under test, and the record of what came in.
class Wire {
public:
    explicit Wire(std::string record_path) : m_record_path(std::move(record_path)) {}

    /// The next line without its line end; nothing at the end of input.
    std::optional<std::string> read_line();
    /// Whether a line waits; blocks for at most `timeout_ms`.
    bool has_line(int timeout_ms);
    void write_bytes(const std::string& bytes);
    void write_line(const std::string& line) { write_bytes(line + '\n'); }

private:
    bool fill();

    std::string m_record_path;
    std::string m_pending;
};

/// Runs script commands; the player calls it for its incidents.
class Script {
public:
    explicit Script(Wire& wire) : m_wire(wire) {}

    void run(const std::string& command_line);
    /// Takes lines until "quit" or the end of input.
    void rest();

private:
    /// A line; a "quit" that is not `awaited` and the end of input end the program.
    std::string take_line(const std::string& awaited);

    Wire& m_wire;
    PlayerSettings m_settings;
    bool m_ignores_quit = false;
};

void play_uci(const PlayerSettings& settings, Wire& wire, Script& script);
void play_xboard(const PlayerSettings& settings, Wire& wire, Script& script);

}  // namespace velmora::scripted
