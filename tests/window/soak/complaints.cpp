#include "tests/window/soak/complaints.h"

#include <atomic>
#include <iostream>

#include <glib.h>

namespace velmora::soak {

namespace {

std::atomic<Complaints*> listener{nullptr};

GLogWriterOutput write_log(GLogLevelFlags level, const GLogField* fields, gsize count, gpointer /*data*/) {
    if (Complaints* const complaints = listener;
        complaints && (level & G_LOG_LEVEL_MASK) <= G_LOG_LEVEL_WARNING) {
        std::string text;
        for (const GLogField* field = fields; field != fields + count; ++field) {
            const std::string_view key = field->key;
            if (key != "GLIB_DOMAIN" && key != "MESSAGE") continue;
            if (!text.empty()) text += ": ";
            text += static_cast<const char*>(field->value);
        }
        complaints->add(text);
    }
    return g_log_writer_default(level, fields, count, nullptr);
}

}  // namespace

Complaints::Complaints() : m_errors(std::cerr.rdbuf()) {
    listener = this;
    // The hook can be set once in a process, and stays.
    static const bool hooked = (g_log_set_writer_func(&write_log, nullptr, nullptr), true);
    static_cast<void>(hooked);
    std::cerr.rdbuf(this);
}

Complaints::~Complaints() {
    std::cerr.rdbuf(m_errors);
    listener = nullptr;
}

void Complaints::add(std::string_view text) {
    const std::lock_guard lock(m_mutex);
    m_list.emplace_back(text);
}

std::vector<std::string> Complaints::list() const {
    const std::lock_guard lock(m_mutex);
    return m_list;
}

Complaints::int_type Complaints::overflow(int_type character) {
    const char letter = traits_type::to_char_type(character);
    take({&letter, 1});
    return character;
}

std::streamsize Complaints::xsputn(const char* text, std::streamsize size) {
    take({text, static_cast<std::size_t>(size)});
    return size;
}

void Complaints::take(std::string_view text) {
    const std::lock_guard lock(m_mutex);
    m_errors->sputn(text.data(), static_cast<std::streamsize>(text.size()));
    for (const char letter : text) {
        if (letter != '\n') {
            m_line += letter;
            continue;
        }
        // How the window tells of a line of the referee that it could not carry out.
        if (m_line.starts_with("The line \"")) m_list.push_back(m_line);
        m_line.clear();
    }
}

}  // namespace velmora::soak
