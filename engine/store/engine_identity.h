#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

namespace velmora {

/// The protocols; the numbers travel in the "load" command.
enum class Protocol : std::uint32_t { autodetect = 0, uci = 1, xboard_v1 = 2, xboard_v2 = 3 };

/// Which program an engine is, how it is spoken with, and under which names it plays.
struct EngineIdentity {
    /// Three names, since one program may be installed several times with other settings: `name` is the key
    /// of the list, `player_name` the user's wish for the record, `engine_name` what the program says of
    /// itself.
    std::string name;         ///< under which the engine is installed
    std::string filename;     ///< path of the program
    std::string player_name;  ///< for the PGN tags, preferred to engine_name
    std::string elo;          ///< for the PGN tags, free text
    Protocol protocol = Protocol::autodetect;
    bool uci_flag = false;  ///< recognised as UCI

    std::string engine_name = "NoNameYet";  ///< as the engine reports it
    std::string author;                     ///< as the engine reports it

    /// Bytes of a reported name that are kept: it goes into titles and tags.
    static constexpr std::size_t longest_name = 255;

    /// The reported name, cut at a character, which also becomes `name` while that is empty.
    void set_engine_name(const std::string& reported);

    /// The name under which it plays: its alias, else what it calls itself.
    const std::string& playing_name() const { return player_name.empty() ? engine_name : player_name; }
};

}  // namespace velmora
