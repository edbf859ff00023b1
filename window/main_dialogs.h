#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include <gtkmm/window.h>

#include "window/file_chooser.h"
#include "window/session/dialogs.h"

namespace velmora {

class ChessBoard;

/// The questions of the real window, each a modal dialog above it.
///
/// Each function makes its dialog, runs it and drops it; nothing is kept between two questions but what the
/// file chooser remembers.
class MainDialogs : public Dialogs {
public:
    /// @param board  lends the choosers its images, which have the size of its squares
    MainDialogs(Gtk::Window& parent, ChessBoard& board)
        : m_parent(parent), m_board(board), m_chooser(parent) {}

    void tell_user(const std::string& headline, const std::string& details) override;
    void about() override;

    Piece choose_piece() override;
    PieceKind choose_promotion(Side side) override;
    int choose_hints() override;

    std::string choose_file(FileKind kind) override { return m_chooser.choose(kind); }
    std::optional<std::uint64_t> choose_game(const std::string& path) override;
    std::optional<ChosenPosition> choose_position(const std::string& path) override;

    std::optional<Protocol> choose_protocol() override;
    std::optional<EngineVariables> choose_installed() override;
    std::vector<EngineVariables> find_engines(const std::vector<std::string>& installed) override;
    void install(const EngineVariables& engine) override;
    std::vector<Option> edit_options(std::vector<Option> options) override;
    std::optional<std::optional<std::int64_t>> ask_strength(const std::string& engine,
                                                            const StrengthControl& control) override;
    std::optional<Level> ask_time_control(const Level& level) override;
    std::optional<ReviewSettings> ask_review(const ReviewSettings& settings) override;

    std::optional<GameOutcome> ask_result(const std::optional<GameOutcome>& known) override;

    std::optional<TagList> edit_tags(const TagList& tags) override;

    std::optional<std::size_t> choose_earlier_game(const std::vector<EarlierGame>& games) override;

    TournamentEdit edit_tournament(const Tournament& tournament,
                                   const std::vector<std::string>& installed) override;
    TournamentChoice choose_tournament(const std::vector<std::string>& names) override;

private:
    Gtk::Window& m_parent;
    ChessBoard& m_board;
    FileChooser m_chooser;
};

}  // namespace velmora
