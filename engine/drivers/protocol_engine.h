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
    bool ended_at_uci() const;
    /// The part of the handshake that is left when the program has been started once more.
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
