#include "platform/userEnvironment.h"

#include "platform/systemNames.h"

#include "common/numberText.h"

#include <chrono>

namespace tvk {

namespace {

// A cut inside a UTF-8 character would make the rest of the name unreadable, so it moves in front of it.
std::string limitName(std::string name, size_t limit) {
    if (name.empty())
        return "unknown";
    if (name.size() > limit) {
        while (limit > 0 && (static_cast<unsigned char>(name[limit]) & 0xC0) == 0x80)
            --limit;
        name.resize(limit);
    }
    return name;
}

} // namespace

std::string userName() {
    return limitName(readUserName(), kUserNameLimit);
}

std::string hostName() {
    return limitName(readHostName(), kHostNameLimit);
}

std::string localTimeText(const LocalTime& time) {
    std::string text = integerText(time.year).str();
    const struct {
        char separator;
        int value;
    } fields[] = {{'-', time.month}, {'-', time.day}, {'T', time.hour}, {':', time.minute}, {':', time.second}};
    for (const auto& field : fields) {
        text += field.separator;
        text += twoDigitText(field.value).view();
    }
    return text;
}

int64_t wallClockSeconds() {
    const auto sinceEpoch = std::chrono::system_clock::now().time_since_epoch();
    return std::chrono::duration_cast<std::chrono::seconds>(sinceEpoch).count();
}

} // namespace tvk
