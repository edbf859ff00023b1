#pragma once

#include <chrono>
#include <cstdint>
#include <stop_token>
#include <string>
#include <string_view>
#include <utility>

#include "engine/drivers/base_engine.h"

namespace velmora {

/// The first driver of every engine: finds out which protocol it speaks, or checks the one asked for, and
/// fills the record with the engine's name, author, options and features.
///
/// The lines of the handshake wait in the queue for the probe, which runs on the referee's thread. The probe
/// drives nothing: an engine of xboard version 1 keeps it, so that it has a name and a clock but never moves.
///
/// Nobody waits for a line here as the reader does: the looks into the queue are counted, so that an engine
/// that talks without end cannot hold up the referee, and a stop of the program ends the sleep between two.
///
/// Neither protocol lets one ask which is spoken, so the greetings are tried one after the other: "uci"
/// first, which a UCI engine must answer with "uciok"; then "xboard" and "protover 2", which an xboard
/// engine of version 2 answers with at least one "feature"; what answers neither is taken for version 1,
/// where no answer is due. So any program that stays alive counts as an engine, if only as one that never
/// moves.
class ProtocolEngine : public BaseEngine {
public:
    static constexpr std::chrono::milliseconds default_interval{50};

    /// `interval` is the sleep between two looks into the queue; once `leaving` is stopped there is none.
    explicit ProtocolEngine(std::chrono::milliseconds interval = default_interval,
                            std::stop_token leaving = {})
        : m_interval(interval), m_leaving(std::move(leaving)) {}

    /// What was asked for; after load() what was found.
    Protocol protocol() const override { return m_protocol; }

    /// The handshake; blocks until it is answered or given up. REQUIRES: attached.
    void load(std::uint32_t id, const std::string& filename, Protocol protocol, bool debug);

    /// Whether the program is one that ends at a word it does not know. One that said something of what UCI
    /// engines say has ended for another reason.
    /// Only with an open question of protocols: who asked for UCI isn't given something else.
    bool ended_at_uci() const;
    /// The part of the handshake that is left when the program has been started once more.
    /// A function of its own because the owner of the process has to act in between: the probe can send to
    /// a process, but it can't start one.
    void go_on_with_xboard();

    /// Whether the probe was answered, and why not; empty when it was.
    bool found() const { return m_found; }
    const std::string& error_text() const { return m_error_text; }

private:
    void set_protocol();
    void try_uci();
    void try_xboard_v2();
    void try_xboard_v1();

    void answered_as(Protocol protocol);
    void not_answered(const char* text);
    void read_uci_line(std::string_view line);
    bool read_features(std::string_view rest);
    void pause() const;

    const std::chrono::milliseconds m_interval;
    const std::stop_token m_leaving;
    std::string m_error_text;
    bool m_found = false;
    Protocol m_protocol = Protocol::autodetect;
};

}  // namespace velmora
