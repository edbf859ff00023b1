#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <functional>
#include <mutex>
#include <optional>
#include <string>

#include "channel/command_sink.h"
#include "channel/to_referee.h"
#include "channel/to_window.h"
#include "game/foreign/foreign_file.h"
#include "game/game.h"
#include "review/game_review.h"
#include "tools/velmora_console/review_arguments.h"

namespace velmora {

/// Has the referee's engine review the games of a PGN file, one behind the other, and writes each when it is
/// done.
///
/// The window's end of the channel, like the Console; so the same referee serves both. Whatever ends it
/// early, the game under way is written with what has been judged of it. A game that can't be read is
/// copied.
class FileReview : public CommandSink {
public:
    /// @param out       gets the games
    /// @param progress  gets a word on how far it has come; on a terminal one line that is written over
    /// @param leave     called, from any thread, when the referee has answered "quit"
    FileReview(ReviewArguments arguments, std::FILE* out, std::FILE* progress, std::function<void()> leave);

    /// Where commands go; set once, before begin().
    void set_referee(CommandSink& referee) { m_referee = &referee; }

    /// Opens the file and asks for the engine. False, with a message, where one of them isn't there.
    bool begin();
    /// Ends with what has been done; from any thread.
    void interrupt();
    /// Has the referee look whether the engine lives; to be called once a second.
    void wake_up();

    void put_command(const std::string& line) override;

    /// Whether all games have been reviewed and written. Of use after `leave`.
    bool is_complete() const { return m_complete; }

private:
    template <class Line>
    void handle(const Line& /*line*/) {}
    void handle(const to_window::EngineName& line);
    void handle(const to_window::TellUser& line);
    void handle(const to_window::Reviewed& line);
    void handle(const to_window::ReviewLeftOut& line);
    void handle(const to_window::ReviewFinished& line);
    void handle(const to_window::Quit& line);

    void next_game();
    bool start(const ForeignText& text);
    bool write(const std::string& text);
    void show_progress();
    void tell(const std::string& message);
    void send(const to_referee::Line& command);
    void quit();

    const ReviewArguments m_arguments;
    std::FILE* const m_out;
    std::FILE* const m_progress;
    const std::function<void()> m_leave;
    CommandSink* m_referee = nullptr;

    std::mutex m_mutex;  // guards all below
    ForeignFile m_file;
    std::string m_engine;  // its name, empty until it is there
    Game m_game;
    std::optional<GameReview> m_review;  // of m_game, while it is under way
    std::int32_t m_number = 0;           // of the game, from 1; the run's, too
    std::size_t m_done = 0;              // positions of it
    bool m_interrupted = false;
    bool m_quit_sent = false;
    bool m_complete = false;
};

}  // namespace velmora
