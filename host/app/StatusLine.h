#pragma once

#include "host/api/FeedbackLine.h"

#include <chrono>
#include <functional>
#include <string>

namespace host::app {

/// The line at the bottom of a terminal that tells how far the work is. Every text that is printed otherwise must come
/// behind hide().
class StatusLine {
public:
    /// `write` puts characters on the terminal as they are; `columns` tells its width.
    StatusLine(std::function<void(const std::string&)> write, std::function<int()> columns);
    ~StatusLine();
    StatusLine(const StatusLine&) = delete;
    StatusLine& operator=(const StatusLine&) = delete;

    /// Shows the line's text, unless it was redrawn just now and only its values have changed. A line whose slots 0 and
    /// 1 hold a count and its total gets a bar.
    void show(const FeedbackLine& line);
    void hide();

private:
    std::function<void(const std::string&)> write_;
    std::function<int()> columns_;
    std::string shownFormat_;
    std::chrono::steady_clock::time_point lastDrawn_;
    bool isVisible_ = false;
};

/// The line as it is drawn, in at most `columns` characters: "[#####.....] text".
std::string statusText(const FeedbackLine& line, int columns);

} // namespace host::app
