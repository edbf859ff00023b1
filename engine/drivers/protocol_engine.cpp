#include "engine/drivers/protocol_engine.h"

#include <condition_variable>
#include <iostream>
#include <mutex>

#include "base/text.h"
#include "engine/drivers/xboard_feature.h"
#include "engine/process/engio.h"

namespace velmora {

namespace {

// The tries are counted in looks into the queue, not in time: a talkative engine uses them up sooner.
// With 50 ms between two looks these are 10 and 5 seconds of silence.
constexpr int uci_looks = 201;
constexpr int xboard_looks = 101;

}  // namespace

void ProtocolEngine::load(std::uint32_t id, const std::string& filename, Protocol protocol, bool debug) {
    m_protocol = protocol;
    m_found = false;
    m_error_text.clear();
    variables().reset_for_load();
    state().reset_for_load();
    variables().set_engine_name("");
    variables().filename = filename;
    engio().set_engine_id(id);
    engio().set_logging(debug);
    if (!engio().is_alive()) {
        std::cerr << "ProtocolEngine::load \"" + filename + "\"  m_pengio->bad\n";
        return;
    }
    set_protocol();
}

void ProtocolEngine::set_protocol() {
    if (m_protocol == Protocol::autodetect || m_protocol == Protocol::uci) try_uci();
    if (!ended_at_uci()) go_on_with_xboard();
}

bool ProtocolEngine::ended_at_uci() const {
    return m_protocol == Protocol::autodetect && has_crashed() && variables().engine_name.empty() &&
           variables().options.empty();
}

void ProtocolEngine::go_on_with_xboard() {
    if (m_protocol == Protocol::autodetect || m_protocol == Protocol::xboard_v2) try_xboard_v2();
    // One feature is enough for version 2, even when the engine never said that it was done.
    if (m_protocol == Protocol::autodetect || m_protocol == Protocol::xboard_v1) try_xboard_v1();
}

void ProtocolEngine::answered_as(Protocol protocol) {
    m_protocol = protocol;
    variables().protocol = protocol;
    m_found = true;
}

void ProtocolEngine::not_answered(const char* text) {
    m_found = false;
    m_error_text = text;
}

/// Sleeps between two looks into the queue. A dead process will not answer, so its looks take no time.
void ProtocolEngine::pause() const {
    if (!is_alive()) return;
    std::mutex mutex;
    std::unique_lock lock(mutex);
    std::condition_variable_any().wait_for(lock, m_leaving, m_interval, [] { return false; });
}

/// An engine with a hundred options says them in one go, and each takes a look; so after a line with an
/// "option" in it the next look follows at once.
void ProtocolEngine::try_uci() {
    send("uci");
    for (int looks = uci_looks; looks > 0; --looks) {
        const std::string line = next_line().text;
        if (line.find("uciok") != std::string::npos) {
            answered_as(Protocol::uci);
            variables().uci_flag = true;
            return;
        }
        read_uci_line(line);
        if (line.find("option") == std::string::npos) pause();
    }
    not_answered("ProtocolEngine::set_protocol()  no uci engine found");
}

void ProtocolEngine::read_uci_line(std::string_view line) {
    text::WordReader reader(line);
    const auto word = reader.word();
    if (word == "option") {
        variables().add_option(Option(line));
    } else if (word == "id") {
        const auto what = reader.word();
        const std::string value(text::trim_blanks(reader.rest()));
        if (what == "name") variables().set_engine_name(value);
        if (what == "author") variables().author = value;
    }
}

void ProtocolEngine::try_xboard_v2() {
    variables().uci_flag = false;
    send("xboard");
    int looks = xboard_looks;
    // Some engines lose the second of two lines that they read at once before they are in xboard mode.
    // A fifth of the looks at most goes on this, so that an engine that doesn't read still gets its
    // "protover".
    for (; looks > xboard_looks * 4 / 5 && !engio().has_taken_input(); --looks) pause();
    send("protover 2");
    for (; looks > 0; --looks) {
        const std::string line = next_line().text;
        text::WordReader reader(line);
        if (reader.word() == "feature" && read_features(reader.rest())) return;
        pause();
    }
    not_answered("ProtocolEngine::set_protocol()  no xboard engine found");
}

/// Reads and answers the pairs of one line; true when the engine is done, what follows that is not looked at.
bool ProtocolEngine::read_features(std::string_view rest) {
    while (const auto feature = take_feature(rest)) {
        answered_as(Protocol::xboard_v2);
        // Options that xboard engines define themselves are not offered to the user, and not answered.
        if (feature->name == "option") continue;
        apply_feature(*feature, variables());
        send("accepted " + feature->name);
        if (feature->name == "done" && feature->value == "1") return true;
    }
    return false;
}

void ProtocolEngine::try_xboard_v1() {
    variables().uci_flag = false;
    send("xboard");
    answered_as(Protocol::xboard_v1);
}

}  // namespace velmora
