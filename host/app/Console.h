#pragma once

#include "host/api/Host.h"
#include "host/app/StatusLine.h"

#include <cstddef>
#include <iosfwd>
#include <memory>
#include <streambuf>
#include <string>

namespace host::app {

/// Passes everything on to another stream buffer, counts the lines that begin with "Warning:" and "Error:", and takes
/// the status line away before a line begins. Plug-ins write their messages straight to the error stream, so this is
/// where they can be seen.
class MessageCounter : public std::streambuf {
public:
    MessageCounter(std::streambuf& target, StatusLine& statusLine) : target_(target), statusLine_(statusLine) {}

    std::size_t warnings() const { return warnings_; }
    std::size_t errors() const { return errors_; }

protected:
    int_type overflow(int_type c) override;
    std::streamsize xsputn(const char* text, std::streamsize count) override;
    int sync() override { return target_.pubsync(); }

private:
    void look(char c);

    std::streambuf& target_;
    StatusLine& statusLine_;
    std::string lineStart_; // as much of the line as tells what it is
    std::size_t warnings_ = 0, errors_ = 0;
    bool atLineStart_ = true;
};

/// Everything that the program prints: the host's messages, the status line, and what plug-ins write to the error
/// stream, while it exists.
class Console {
public:
    struct Settings {
        bool quiet = false;    // info and MEL's prints are dropped
        bool progress = false; // there is a status line
    };

    Console(Host& host, const Settings& settings);
    ~Console();
    Console(const Console&) = delete;
    Console& operator=(const Console&) = delete;

    void info(const std::string& text);    // standard output
    void warning(const std::string& text); // standard error: "Warning: text"
    void error(const std::string& text);   // standard error: "Error: text"

    std::size_t warnings() const { return counter_.warnings(); }
    std::size_t errors() const { return counter_.errors(); }

private:
    Host& host_;
    Settings settings_;
    std::streambuf& errorBuffer_;
    StatusLine statusLine_;
    MessageCounter counter_;
};

} // namespace host::app
