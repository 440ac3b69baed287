#include "FinishedProgram.h"

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <sstream>

namespace tvk {
namespace {

namespace fs = std::filesystem;

// Sanitizers reserve terabytes of addresses, and keep what was freed.
#ifdef __SANITIZE_ADDRESS__
constexpr bool kLimitsAddresses = false;
constexpr double kMostMegabytes = 4000.0;
#else
constexpr bool kLimitsAddresses = true;
constexpr double kMostMegabytes = 1000.0;
#endif
constexpr uid_t kNobody = 65534;                   // by custom of every Linux
constexpr rlim_t kAddressBytes = rlim_t{4} << 30U; // the program's stack alone may reach half a gigabyte

std::string contents(const std::string& path) {
    std::ifstream stream(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

void redirect(int descriptor, const std::string& path) {
    if (path == "-") {
        close(descriptor);
        return;
    }
    const int file = open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600);
    dup2(file, descriptor);
    close(file);
}

std::vector<char*> pointersTo(std::vector<std::string>& words) {
    std::vector<char*> pointers;
    std::transform(words.begin(), words.end(), std::back_inserter(pointers),
                   [](std::string& word) { return &word[0]; });
    pointers.push_back(nullptr);
    return pointers;
}

/// Another user may not reach the place where the program was built, but the folder for temporary files: copies it
/// there with all that it loads from beside itself.
std::string copyProgramTo(const TemporaryFolder& folder) {
    const fs::path built(TVK_PROGRAM);
    for (const fs::path& file : {built, fs::path(TVK_PLUGIN), fs::path(TVK_HOST_LIBRARY)}) {
        fs::copy_file(file, folder.path(file.filename().string()));
    }
    return folder.path(built.filename().string());
}

/// The child's side: becomes the program.
[[noreturn]] void become(const std::string& program, std::vector<std::string> arguments,
                         const FinishedProgram::Surroundings& surroundings, const std::string& folder,
                         const std::string& outPath, const std::string& errorPath) {
    for (const auto& [name, value] : surroundings.environment) {
        setenv(name.c_str(), value.c_str(), 1);
    }
    unsetenv("TVK_PLUGIN");
    setenv("ASAN_OPTIONS", "abort_on_error=1", 1); // a failed check is a signal, not the status of a failed export
    setenv("UBSAN_OPTIONS", "abort_on_error=1:print_stacktrace=1", 1);
    redirect(STDOUT_FILENO, outPath);
    redirect(STDERR_FILENO, errorPath);
    const rlimit addresses{kAddressBytes, kAddressBytes};
    const bool isLimited = !kLimitsAddresses || setrlimit(RLIMIT_AS, &addresses) == 0;
    alarm(static_cast<unsigned int>(surroundings.limitSeconds)); // outlives the change of program
    arguments.insert(arguments.begin(), program);
    const bool isUser = !surroundings.asNobody || geteuid() != 0 || setuid(kNobody) == 0;
    if (isLimited && isUser && chdir(folder.c_str()) == 0) {
        execv(program.c_str(), pointersTo(arguments).data());
    }
    _exit(127);
}

} // namespace

std::vector<std::string> ProgramRun::errorLines() const {
    std::istringstream in(error);
    std::vector<std::string> lines;
    for (std::string line; std::getline(in, line);) {
        if (!line.empty()) {
            lines.push_back(line);
        }
    }
    return lines;
}

ProgramRun FinishedProgram::run(const std::vector<std::string>& arguments, const Surroundings& surroundings) const {
    const TemporaryFolder printed;
    const std::string outPath = surroundings.out.empty() ? printed.path("out") : surroundings.out;
    const std::string errorPath = printed.path("error");
    std::string program = surroundings.program.empty() ? TVK_PROGRAM : surroundings.program;
    if (surroundings.asNobody) {
        program = copyProgramTo(printed);
    }
    const pid_t child = fork();
    if (child == 0) {
        become(program, arguments, surroundings, path(surroundings.workingFolder), outPath, errorPath);
    }
    ProgramRun result;
    int ending = 0;
    rusage usage{};
    if (child < 0 || wait4(child, &ending, 0, &usage) != child) {
        ADD_FAILURE() << "the program cannot be started";
        return result;
    }
    result.status = WIFEXITED(ending) ? WEXITSTATUS(ending) : -1;
    result.signal = WIFSIGNALED(ending) ? WTERMSIG(ending) : 0;
    result.out = surroundings.out.empty() ? contents(outPath) : "";
    result.error = contents(errorPath);
    result.peakMegabytes = static_cast<double>(usage.ru_maxrss) / 1024.0;
    EXPECT_NE(result.signal, SIGALRM) << "took more than " << surroundings.limitSeconds << " seconds";
    EXPECT_EQ(result.signal, 0) << result.error;
    EXPECT_NE(result.status, 127) << "the program is not there";
    EXPECT_LT(result.peakMegabytes, kMostMegabytes);
    return result;
}

void FinishedProgram::write(const std::string& name, const std::string& bytes) const {
    std::ofstream(path(name), std::ios::binary) << bytes;
}

std::string FinishedProgram::bytes(const std::string& name) const {
    EXPECT_TRUE(fs::is_regular_file(path(name))) << name;
    return contents(path(name));
}

std::vector<std::string> FinishedProgram::names(const std::string& folder) const {
    std::vector<std::string> names;
    for (const fs::directory_entry& entry : fs::directory_iterator(path(folder))) {
        names.push_back(entry.path().filename().string());
    }
    std::sort(names.begin(), names.end());
    return names;
}

std::string withoutMaker(const std::string& text) {
    std::istringstream in(text);
    std::string kept;
    for (std::string line; std::getline(in, line);) {
        kept += line.find("create user=\"") == std::string::npos ? line + "\n" : "";
    }
    return kept;
}

std::string realScene(const std::string& name) {
    const std::string path = TVK_SCENES "/" + name;
    EXPECT_TRUE(fs::is_regular_file(path)) << path;
    return contents(path);
}

} // namespace tvk
