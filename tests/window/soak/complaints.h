#pragma once

#include <mutex>
#include <streambuf>
#include <string>
#include <string_view>
#include <vector>

namespace velmora::soak {

/// Gathers what the toolkit and the program complain about, while it lives: warnings and worse of every
/// library, and the lines of standard error that tell of a failed handler. All of it still reaches standard
/// error. One at a time; any thread may complain.
class Complaints : private std::streambuf {
public:
    Complaints();
    ~Complaints() override;
    Complaints(const Complaints&) = delete;  // the hooks know its address
    Complaints& operator=(const Complaints&) = delete;

    void add(std::string_view text);
    std::vector<std::string> list() const;

private:
    int_type overflow(int_type character) override;
    std::streamsize xsputn(const char* text, std::streamsize size) override;
    int sync() override { return m_errors->pubsync(); }
    void take(std::string_view text);

    mutable std::mutex m_mutex;
    std::vector<std::string> m_list;
    std::string m_line;  // of standard error, so far
    std::streambuf* const m_errors;
};

}  // namespace velmora::soak
