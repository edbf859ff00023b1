#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "matches/finished_game.h"
#include "matches/match_settings.h"

namespace velmora {

/// The record of a match: each finished game is appended to a PGN file at once.
///
/// A game that can't be written, on a full disk, is kept and tried again with the next one and at the end: a
/// match of a night isn't ended by it.
class MatchPgn {
public:
    struct Settings {
        std::string path;      ///< empty for no record
        bool minimal = false;  ///< the seven tags and the moves alone
        std::string event = "?", site = "?";
        bool chess960 = false;  ///< the tag "Variant" says so
    };
    MatchPgn(Settings settings, std::vector<MatchEngineSetup> engines)
        : m_settings(std::move(settings)), m_engines(std::move(engines)) {}

    /// False when it, or one ahead of it, is not in the file yet; fault() tells why.
    bool add(const FinishedGame& finished);
    /// Tries again what is not in the file.
    bool write_rest();

    const std::string& fault() const { return m_fault; }
    /// The numbers of the games that are not in the file.
    std::vector<std::uint64_t> unsaved() const;

    /// The game's text.
    std::string text(const FinishedGame& finished) const;

private:
    struct Waiting {
        std::uint64_t number;
        std::string text;
    };
    const Settings m_settings;
    const std::vector<MatchEngineSetup> m_engines;
    std::vector<Waiting> m_waiting;
    std::string m_fault;
};

}  // namespace velmora
