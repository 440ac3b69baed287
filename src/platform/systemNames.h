#pragma once

#include <string>

namespace tvk {

// For userEnvironment.cpp only: what the system itself says; empty when it says nothing. Windows: UTF-8.
std::string readUserName();
std::string readHostName();

} // namespace tvk
