#pragma once

#include "host/mel/Value.h"

#include <map>
#include <string>

namespace host {

/// The user's stored settings (MEL `optionVar`): ints, floats, strings and arrays of them, by name. They belong to the
/// host, not to a scene, and live as long as the process.
using OptionVars = std::map<std::string, mel::Value, std::less<>>;

} // namespace host
