#pragma once

#include <functional>
#include <map>
#include <optional>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "window/session/dialogs.h"

namespace velmora {

/// A person who has the answers ready, and leaves alone what has none.
class ScriptedDialogs : public Dialogs {
public:
    std::vector<std::string> told;  // headline, "|", details
    Piece piece_answer;
    PieceKind promotion_answer = PieceKind::none;
    int hints_answer = 3;
    std::map<FileKind, std::string> files;
    std::optional<std::uint64_t> game;
    std::optional<ChosenPosition> position;
    std::optional<Protocol> protocol;
    std::optional<EngineVariables> engine;
    std::vector<EngineVariables> found;
    std::vector<std::string> installed_paths;  // as the search was told
    std::vector<std::string> installed;  // the names that were installed, and those offered for a tournament
    std::function<void(std::vector<Option>&)> do_to_options = [](std::vector<Option>&) {};
    std::optional<Level> time_control;
    std::optional<std::optional<std::int64_t>> strength;
    StrengthControl shown_strength;
    std::optional<std::optional<ReviewSettings>> review;  // taken as offered without one
    std::optional<GameOutcome> result;                    // what the rules say without one
    std::optional<TagList> tags;                          // as they are to be
    TagList shown_tags;
    std::optional<std::size_t> earlier_game;
    std::vector<EarlierGame> earlier_games;  // that were shown
    TournamentEdit tournament;
    std::optional<Tournament> shown_tournament;  // what was to be changed
    TournamentChoice chosen_tournament;
    bool broken = false;  // what reads files of its own can't

    void tell_user(const std::string& headline, const std::string& details) override {
        told.push_back(headline + "|" + details);
    }
    void about() override {}

    Piece choose_piece() override { return piece_answer; }
    PieceKind choose_promotion(Side /*side*/) override { return promotion_answer; }
    int choose_hints() override { return hints_answer; }

    std::string choose_file(FileKind kind) override { return files[kind]; }
    std::optional<std::uint64_t> choose_game(const std::string& /*path*/) override { return game; }
    std::optional<ChosenPosition> choose_position(const std::string& /*path*/) override { return position; }

    std::optional<Protocol> choose_protocol() override { return protocol; }
    std::optional<EngineVariables> choose_installed() override {
        if (broken) throw std::runtime_error("no list");
        return engine;
    }
    std::vector<EngineVariables> find_engines(const std::vector<std::string>& paths) override {
        installed_paths = paths;
        return found;
    }
    void install(const EngineVariables& asked) override {
        if (broken) throw std::runtime_error("no list");
        installed.push_back(asked.name);
    }
    std::vector<Option> edit_options(std::vector<Option> options) override {
        do_to_options(options);
        return options;
    }
    std::optional<std::optional<std::int64_t>> ask_strength(const std::string& /*engine*/,
                                                            const StrengthControl& control) override {
        shown_strength = control;
        return strength;
    }
    std::optional<Level> ask_time_control(const Level& /*level*/) override { return time_control; }

    std::optional<ReviewSettings> ask_review(const ReviewSettings& settings) override {
        return review ? *review : settings;
    }

    std::optional<GameOutcome> ask_result(const std::optional<GameOutcome>& known) override {
        return result ? result : known;
    }

    std::optional<TagList> edit_tags(const TagList& shown) override {
        shown_tags = shown;
        return tags;
    }

    std::optional<std::size_t> choose_earlier_game(const std::vector<EarlierGame>& games) override {
        earlier_games = games;
        return earlier_game;
    }

    TournamentEdit edit_tournament(const Tournament& shown,
                                   const std::vector<std::string>& engines) override {
        shown_tournament = shown;
        installed = engines;
        return tournament;
    }
    TournamentChoice choose_tournament(const std::vector<std::string>& /*names*/) override {
        return chosen_tournament;
    }
};

}  // namespace velmora
