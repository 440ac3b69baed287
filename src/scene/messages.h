#pragma once

#include <string>
#include <string_view>

namespace tvk {

enum class Severity { kError, kWarning };

/// A message as the rooms' tables hold it: what it is and its text up to the subject.
struct Message {
    Severity severity;
    std::string_view text;
};

/// Writes one line to the run's message stream: "Error: " or "Warning: ", the text, the subject. A warning raises the
/// run's warning flag; there is no other way to write one.
void say(const Message& message, std::string_view subject = {});

/// Shows a line in the host's information output, except in batch runs, where nobody looks at it.
void showInformation(std::string_view text);

/// The run's single warning flag. Never cleared by a later success.
void raiseWarning();
bool warningRaised();
void clearWarning();

} // namespace tvk
