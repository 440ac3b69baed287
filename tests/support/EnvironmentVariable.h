#pragma once

#include <cstdlib>
#include <optional>
#include <string>

namespace tvk {

/// Sets an environment variable for a test; nothing unsets it. As it was afterwards.
class EnvironmentVariable {
public:
    EnvironmentVariable(const char* variable, const char* value) : name(variable) {
        if (const char* const before = std::getenv(variable)) {
            old = before;
        }
        set(value);
    }
    ~EnvironmentVariable() { set(old ? old->c_str() : nullptr); }
    EnvironmentVariable(const EnvironmentVariable&) = delete;
    EnvironmentVariable& operator=(const EnvironmentVariable&) = delete;

private:
    void set(const char* value) const {
#ifdef _WIN32
        _putenv_s(name, value != nullptr ? value : ""); // which unsets it
#else
        if (value != nullptr) {
            setenv(name, value, 1);
        } else {
            unsetenv(name);
        }
#endif
    }

    const char* name;
    std::optional<std::string> old;
};

} // namespace tvk
