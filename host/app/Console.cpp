#include "host/app/Console.h"

#include "host/app/process.h"

#include <iostream>

namespace host::app {

namespace {

constexpr const char* kWarning = "Warning:";
constexpr const char* kError = "Error:";
constexpr std::size_t kLongestPrefix = 8;

} // namespace

MessageCounter::int_type MessageCounter::overflow(int_type c) {
    if (traits_type::eq_int_type(c, traits_type::eof())) {
        return traits_type::not_eof(c);
    }
    look(traits_type::to_char_type(c));
    return target_.sputc(traits_type::to_char_type(c));
}

std::streamsize MessageCounter::xsputn(const char* text, std::streamsize count) {
    for (std::streamsize i = 0; i < count; ++i) {
        look(text[i]);
    }
    return target_.sputn(text, count);
}

void MessageCounter::look(char c) {
    if (atLineStart_) {
        statusLine_.hide();
        lineStart_.clear();
    }
    atLineStart_ = c == '\n';
    if (lineStart_.size() >= kLongestPrefix) {
        return;
    }
    lineStart_ += c;
    warnings_ += lineStart_ == kWarning ? 1U : 0U;
    errors_ += lineStart_ == kError ? 1U : 0U;
}

Console::Console(Host& host, const Settings& settings)
    : host_(host), settings_(settings), errorBuffer_(*std::cerr.rdbuf()),
      statusLine_(
          [this](const std::string& text) {
              errorBuffer_.sputn(text.data(), static_cast<std::streamsize>(text.size()));
              errorBuffer_.pubsync();
          },
          errorTerminalColumns),
      counter_(errorBuffer_, statusLine_) {
    std::cerr.rdbuf(&counter_);
    Messages& messages = host_.messages();
    messages.info = [this](const std::string& text) { info(text); };
    messages.warning = [this](const std::string& text) { warning(text); };
    messages.error = [this](const std::string& text) { error(text); };
    messages.print = [this](const std::string& text) {
        if (!settings_.quiet) {
            statusLine_.hide();
            std::cout << text;
        }
    };
    if (settings_.progress) {
        host_.feedbackLine().onChange = [this] { statusLine_.show(host_.feedbackLine()); };
    }
}

Console::~Console() {
    host_.messages() = {};
    host_.feedbackLine().onChange = nullptr;
    statusLine_.hide();
    std::cerr.rdbuf(&errorBuffer_);
}

void Console::info(const std::string& text) {
    if (!settings_.quiet) {
        statusLine_.hide();
        std::cout << text << '\n';
    }
}

// What was printed before stands before, also when both streams end in one file.
void Console::warning(const std::string& text) {
    std::cout.flush();
    std::cerr << kWarning << ' ' << text << '\n';
}

void Console::error(const std::string& text) {
    std::cout.flush();
    std::cerr << kError << ' ' << text << '\n';
}

} // namespace host::app
