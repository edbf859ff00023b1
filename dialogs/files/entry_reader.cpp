#include "dialogs/files/entry_reader.h"

#include <exception>
#include <iostream>
#include <iterator>
#include <utility>

namespace velmora {

EntryReader::EntryReader(OpenSource open_source)
    : m_thread([this, open = std::move(open_source)] { run(open); }) {}

EntryReader::~EntryReader() {
    m_stop = true;
    m_thread.join();
}

bool EntryReader::take(std::vector<FileEntry>& entries) {
    const std::lock_guard lock(m_mutex);
    entries.insert(entries.end(), std::make_move_iterator(m_waiting.begin()),
                   std::make_move_iterator(m_waiting.end()));
    m_waiting.clear();
    return !m_finished;
}

void EntryReader::wait_for(std::size_t entries, std::chrono::milliseconds limit) {
    std::unique_lock lock(m_mutex);
    m_came.wait_for(lock, limit, [&] { return m_finished || m_waiting.size() >= entries; });
}

void EntryReader::run(const OpenSource& open_source) {
    try {
        read_all(*open_source());
    } catch (const std::exception& error) {  // out of memory: what has been listed can still be chosen
        std::cerr << "EntryReader: " << error.what() << '\n';
    }
    m_progress = 1;
    {
        const std::lock_guard lock(m_mutex);
        m_finished = true;
    }
    m_came.notify_one();
}

void EntryReader::read_all(EntrySource& source) {
    constexpr std::size_t batch_size = 256;
    constexpr auto longest_wait = std::chrono::milliseconds(10);  // for entries that are far between
    std::vector<FileEntry> batch;
    auto handed_over = std::chrono::steady_clock::now();
    FileEntry entry;
    while (!m_stop && source.next(entry)) {
        batch.push_back(std::move(entry));
        entry = {};
        const auto now = std::chrono::steady_clock::now();
        if (batch.size() < batch_size && now - handed_over < longest_wait) continue;
        hand_over(batch);
        handed_over = now;
        const std::uint64_t size = source.file_size();
        m_progress = size == 0 ? 0.0 : static_cast<double>(source.position()) / static_cast<double>(size);
    }
    hand_over(batch);
}

void EntryReader::hand_over(std::vector<FileEntry>& batch) {
    {
        const std::lock_guard lock(m_mutex);
        m_waiting.insert(m_waiting.end(), std::make_move_iterator(batch.begin()),
                         std::make_move_iterator(batch.end()));
    }
    m_came.notify_one();
    batch.clear();
}

}  // namespace velmora
