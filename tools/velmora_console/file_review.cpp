#include "tools/velmora_console/file_review.h"

#include <filesystem>
#include <stdexcept>
#include <unistd.h>
#include <utility>
#include <variant>

#include <glib.h>

#include "analysis/search_info.h"
#include "base/text.h"
#include "channel/sender.h"
#include "engine/store/installed_engines.h"

namespace velmora {

namespace {

/// The path of a program: one that is there as it stands, or in the search path, or where Debian puts games,
/// which isn't in everybody's search path. Empty for none.
std::string find_program(const std::string& name) {
    if (std::filesystem::is_regular_file(name)) return std::filesystem::absolute(name).string();
    if (name.find('/') != std::string::npos) return {};
    if (char* const found = g_find_program_in_path(name.c_str())) {
        std::string path = found;
        g_free(found);
        return path;
    }
    const std::string game = "/usr/games/" + name;
    return std::filesystem::is_regular_file(game) ? game : std::string();
}

/// Nothing where neither a program nor an installed engine has that name. Throws as read_engines_cfg() does.
std::optional<to_referee::Load> load_command(const std::string& engine) {
    InstalledEngines installed;
    installed.read_engines_cfg();
    if (installed.engines().contains(engine)) {
        return to_referee::Load{0, to_referee::Load::Source::name, engine};
    }
    const std::string path = find_program(engine);
    if (path.empty()) return std::nullopt;
    return to_referee::Load{0, to_referee::Load::Source::filename, path};
}

}  // namespace

FileReview::FileReview(ReviewArguments arguments, std::FILE* out, std::FILE* progress,
                       std::function<void()> leave)
    : m_arguments(std::move(arguments)), m_out(out), m_progress(progress), m_leave(std::move(leave)) {}

bool FileReview::begin() {
    const std::lock_guard lock(m_mutex);
    if (!m_file.open(m_arguments.file)) {
        tell(m_arguments.file + " can't be read");
        return false;
    }
    try {
        if (const auto command = load_command(m_arguments.engine)) {
            send(*command);
            return true;
        }
        tell("there is neither a program nor an installed engine \"" + m_arguments.engine + '"');
    } catch (const std::runtime_error& error) {
        tell(error.what());
    }
    return false;
}

void FileReview::interrupt() {
    const std::lock_guard lock(m_mutex);
    m_interrupted = true;
    if (m_review) return send(to_referee::ReviewStop());
    quit();
}

void FileReview::wake_up() {
    const std::lock_guard lock(m_mutex);
    if (!m_review) return;
    send(to_referee::WakeUp());
    show_progress();
}

void FileReview::put_command(const std::string& line) {
    const auto said = to_window::decode(line);
    if (!said) return;
    const std::lock_guard lock(m_mutex);
    std::visit([this](const auto& of) { handle(of); }, *said);
}

void FileReview::handle(const to_window::EngineName& line) {
    // One that has died and come back says its name again.
    if (line.seat != Seat::first || !m_engine.empty() || line.name.empty()) return;
    m_engine = line.name;
    next_game();
}

/// Before the engine is there, the referee has only one thing to tell of.
void FileReview::handle(const to_window::TellUser& line) {
    tell(text::underscores_to_blanks(line.headline) + text::underscores_to_blanks(line.details));
    if (m_engine.empty()) quit();
}

void FileReview::handle(const to_window::Reviewed& line) {
    if (!m_review || line.run != m_number) return;
    ++m_done;
    const auto ply = static_cast<std::size_t>(line.ply);
    const Side side = m_review->line().at(ply).to_move;
    m_review->take(m_game, ply, read_search_info(line.text, side), line.choice);
}

void FileReview::handle(const to_window::ReviewLeftOut& line) {
    if (!m_review || line.run != m_number) return;
    ++m_done;
    tell("game " + std::to_string(m_number) + ": nothing was said about the position behind ply " +
         std::to_string(line.ply));
}

void FileReview::handle(const to_window::ReviewFinished& line) {
    if (!m_review || line.run != m_number) return;
    show_progress();
    m_review->finish(m_game);
    m_review.reset();
    const bool failed = line.reason == to_window::ReviewFinished::Reason::failed;
    if (!write(m_game.pgn()) || failed || m_interrupted) return quit();
    next_game();
}

void FileReview::handle(const to_window::Quit& /*line*/) { m_leave(); }

/// Goes on with the next game that an engine has to look at; those that need none are written at once.
void FileReview::next_game() {
    ForeignText text;
    while (!m_interrupted && m_file.next(text)) {
        ++m_number;
        m_done = 0;
        if (!start(text)) return quit();
        if (m_review) return;
    }
    m_complete = !m_interrupted;
    quit();
}

/// False when the output is at its end.
bool FileReview::start(const ForeignText& text) {
    try {
        const AnyGame any = read_any_game(m_arguments.file, text.offset);
        for (const Remark& remark : any.remarks) {
            tell("game " + std::to_string(m_number) + ", " + describe(remark));
        }
        m_game.parse_pgn(any.text);
    } catch (const std::exception& error) {
        tell("game " + std::to_string(m_number) + ", line " + std::to_string(text.line) +
             ", is copied and not reviewed: " + error.what());
        return write(text.text + "\n\n");
    }
    m_review.emplace(m_game, m_arguments.settings, m_engine);
    const ReviewedLine& line = m_review->line();
    if (!line.unreadable_move().empty()) {
        tell("game " + std::to_string(m_number) + ": " + line.unreadable_move() +
             " can't be played; the moves ahead of it are reviewed");
    }
    if (line.plies() > 0 && !m_review->wanted().empty()) {
        std::string plies;
        for (const auto ply : m_review->wanted()) plies += (plies.empty() ? "" : ",") + std::to_string(ply);
        const std::string level = m_arguments.settings.level.text();
        text::WordReader words(level);
        to_referee::Review command;
        command.run = m_number;
        command.mode = words.word();
        command.amount = words.word();
        command.plies = plies;
        command.position = line.text();
        send(command);
        return true;
    }
    if (line.plies() > 0) m_review->finish(m_game);
    m_review.reset();
    return write(m_game.pgn());
}

bool FileReview::write(const std::string& text) {
    std::fputs(text.c_str(), m_out);
    if (std::fflush(m_out) == 0 && std::ferror(m_out) == 0) return true;
    tell("the output can't be written");
    return false;
}

/// "Game 3, 12 of 80 positions".
void FileReview::show_progress() {
    if (isatty(fileno(m_progress)) == 0 && m_done < m_review->wanted().size()) return;
    const char* const end = isatty(fileno(m_progress)) == 0 ? "\n" : "\x1b[K\r";
    std::fprintf(m_progress, "Game %d, %zu of %zu positions%s", m_number, m_done, m_review->wanted().size(),
                 end);
    std::fflush(m_progress);
}

void FileReview::tell(const std::string& message) {
    std::fprintf(m_progress, "velmora-console: %s\n", message.c_str());
}

void FileReview::send(const to_referee::Line& command) {
    m_referee->put_command(window_line(to_referee::encode(command)));
}

void FileReview::quit() {
    if (!std::exchange(m_quit_sent, true)) send(to_referee::Quit());
}

}  // namespace velmora
