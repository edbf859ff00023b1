#pragma once

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

namespace velmora {

/// One entry of a file of games or positions, as a chooser lists it.
struct FileEntry {
    std::uint64_t offset = 0;        ///< where it begins in the file, in bytes
    std::vector<std::string> cells;  ///< what the list shows, valid UTF-8
    std::string text;                ///< what the caller gets when it is chosen; may be empty
};

/// Goes through the entries of a file, one after another.
class EntrySource {
public:
    virtual ~EntrySource() = default;

    /// The next entry; false at the end. All fields of `entry` are overwritten.
    virtual bool next(FileEntry& entry) = 0;

    virtual std::uint64_t position() const = 0;   ///< bytes read
    virtual std::uint64_t file_size() const = 0;  ///< bytes to be read in all
};

/// Reads a source on a thread of its own and hands over what there is at any time.
///
/// The thread ends by itself at the end of the file. What it has read waits in one vector, and the mutex is
/// held for moving entries alone, so that the main thread never waits for the disk.
class EntryReader {
public:
    /// Makes the source; called on the reader's thread, since opening a file can take its time too.
    using OpenSource = std::function<std::unique_ptr<EntrySource>()>;

    explicit EntryReader(OpenSource open_source);
    /// Stops reading behind the entry at hand.
    /// Waits for that entry, which a file on a slow disk may take its time for; the file's end isn't waited
    /// for.
    ~EntryReader();
    EntryReader(const EntryReader&) = delete;  // the thread holds its address
    EntryReader& operator=(const EntryReader&) = delete;

    /// Moves the entries that have come since the last call to the end of `entries`. False once all have
    /// been handed over and none will come.
    bool take(std::vector<FileEntry>& entries);

    /// Waits until so many entries can be taken or all are there, but no longer than `limit`.
    void wait_for(std::size_t entries, std::chrono::milliseconds limit);

    /// The part of the file that has been read, 0 to 1.
    /// Any thread.
    double progress() const { return m_progress; }

private:
    void run(const OpenSource& open_source);
    void read_all(EntrySource& source);
    void hand_over(std::vector<FileEntry>& batch);

    std::mutex m_mutex;
    std::condition_variable m_came;
    std::vector<FileEntry> m_waiting;  // guarded by m_mutex
    bool m_finished = false;           // guarded by m_mutex
    std::atomic<bool> m_stop = false;
    std::atomic<double> m_progress = 0;
    std::thread m_thread;  // last: it uses all of the above
};

}  // namespace velmora
