#include "runShell.h"

#include "TemporaryFolder.h"

#include <sys/wait.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>

namespace tvk {

ShellRun runShell(const std::string& folder, const std::string& lines, int limitSeconds) {
    const TemporaryFolder own;
    std::ofstream(own.path("lines.sh")) << "set -e\nunset TVK_PLUGIN\ncd '" << folder << "'\n" << lines << "\n";
    const std::string programs = std::filesystem::path(TVK_PROGRAM).parent_path().string();
    const int ending = std::system(("HOME='" + own.path("") + "' PATH='" + programs + "':$PATH timeout " +
                                    std::to_string(limitSeconds) + " sh '" + own.path("lines.sh") + "' >'" +
                                    own.path("said") + "' 2>&1")
                                       .c_str());
    std::ifstream said(own.path("said"));
    return {WIFEXITED(ending) ? WEXITSTATUS(ending) : -1,
            {std::istreambuf_iterator<char>(said), std::istreambuf_iterator<char>()}};
}

} // namespace tvk
