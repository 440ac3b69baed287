#pragma once

#include <functional>
#include <map>
#include <string>

namespace host {

/// What a plug-in shows of its progress: a format with value slots, the values, a title, and whether it wants to be
/// seen. Whoever shows it listens through onChange.
class FeedbackLine {
public:
    const std::string& format() const { return format_; }
    const std::string& title() const { return title_; }
    const std::map<int, double>& values() const { return values_; }
    bool shown() const { return shown_; }

    /// The format with its slots filled: "^6.3f" gives slot 0 in 6 columns with 3 decimals, the next "^…f" slot 1, and
    /// so on; a slot without a value stays blank. A caret that begins no slot stands for itself.
    std::string text() const;

    void setFormat(std::string format); // forgets the values
    void setTitle(std::string title);
    void setValue(int slot, double value);
    void setShown(bool shown);
    void clear(); // format, title and values

    std::function<void()> onChange;

private:
    void changed() const;

    std::string format_, title_;
    std::map<int, double> values_;
    bool shown_ = false;
};

} // namespace host
