#pragma once

#include "ExportSession.h"

#include <string>
#include <vector>

namespace tvk {

/// A host session in which the script of the "tvk_" attributes was sourced.
class ScriptSession : public ExportSession {
public:
    ScriptSession();

    /// What the scripts printed since the last call or the beginning.
    std::string takePrinted();

    /// What the attribute is, as one line: "enum 1 [0, 255] front:back Nice Name", '-' for what it does not have.
    std::string describe(const std::string& node, const std::string& attribute);

private:
    std::string printed;
};

/// One attribute as the scripts are meant to make it.
struct ExpectedAttribute {
    const char* kind; // "shader", "transform" or "texture"
    const char* name;
    const char* description; // as describe() gives it
    const char* section;     // of the attribute editor
};

extern const std::vector<ExpectedAttribute> kExpectedAttributes;

} // namespace tvk
