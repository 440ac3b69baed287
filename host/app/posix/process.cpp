#include "host/app/process.h"

#include <fcntl.h>
#include <pthread.h>
#include <sys/ioctl.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <filesystem>
#include <system_error>

namespace host::app {

namespace {

constexpr int kUsualColumns = 80;
constexpr int kNotStarted = 127; // as shells have it

struct Job {
    const std::function<int()>* work = nullptr;
    int result = 0;
};

void* runJob(void* argument) {
    Job* job = static_cast<Job*>(argument);
    job->result = (*job->work)();
    return nullptr;
}

} // namespace

int runWithStack(std::size_t bytes, const std::function<int()>& work) {
    Job job = {&work, 0};
    pthread_attr_t attributes;
    pthread_t thread{};
    pthread_attr_init(&attributes);
    // The system maps the pages only when they are used, so a large stack costs nothing.
    const bool isRunning =
        pthread_attr_setstacksize(&attributes, bytes) == 0 && pthread_create(&thread, &attributes, runJob, &job) == 0;
    pthread_attr_destroy(&attributes);
    if (!isRunning) {
        return work();
    }
    pthread_join(thread, nullptr);
    return job.result;
}

std::vector<std::string> programArguments(int count, char** arguments) {
    return {arguments, arguments + count};
}

void prepareStreams() {
    std::signal(SIGPIPE, SIG_IGN);
}

bool isErrorTerminal() {
    return isatty(STDERR_FILENO) != 0;
}

int errorTerminalColumns() {
    winsize size{};
    const bool isKnown = ioctl(STDERR_FILENO, TIOCGWINSZ, &size) == 0 && size.ws_col > 0;
    return isKnown ? size.ws_col : kUsualColumns;
}

std::string programFolder() {
    std::error_code error;
    const std::filesystem::path program = std::filesystem::read_symlink("/proc/self/exe", error);
    return error ? std::string() : program.parent_path().u8string() + "/";
}

namespace {

/// The child's side: nothing but system calls, since other threads stood still in the middle of anything.
[[noreturn]] void become(char* const* words, int error, pid_t parent) {
    const int nothing = open("/dev/null", O_RDWR);
    const bool isWired = nothing >= 0 && dup2(nothing, STDIN_FILENO) >= 0 && dup2(nothing, STDOUT_FILENO) >= 0 &&
                         dup2(error, STDERR_FILENO) >= 0;
    // The thread that waits for the program is the one whose end it gets to know.
    if (isWired && prctl(PR_SET_PDEATHSIG, SIGTERM) == 0 && getppid() == parent) {
        execv(words[0], words);
    }
    _exit(kNotStarted);
}

std::string readToEnd(int file) {
    std::string text;
    char buffer[4096];
    ssize_t count = 0;
    while ((count = read(file, buffer, sizeof buffer)) > 0 || (count < 0 && errno == EINTR)) {
        text.append(buffer, static_cast<std::size_t>(count > 0 ? count : 0));
    }
    return text;
}

} // namespace

EndedProcess runProgram(const std::vector<std::string>& words) {
    std::vector<std::string> copies = words;
    std::vector<char*> pointers(copies.size() + 1); // the last one stays null: the list's end
    std::transform(copies.begin(), copies.end(), pointers.begin(), [](std::string& word) { return word.data(); });
    int ends[2] = {};
    if (pipe2(ends, O_CLOEXEC) != 0) { // no other child may hold the writing end open
        return {};
    }
    const pid_t parent = getpid();
    const pid_t child = fork();
    if (child == 0) {
        become(pointers.data(), ends[1], parent);
    }
    close(ends[1]);
    EndedProcess ended;
    ended.error = readToEnd(ends[0]);
    close(ends[0]);
    int status = 0;
    pid_t waited = 0;
    while (child > 0 && (waited = waitpid(child, &status, 0)) < 0 && errno == EINTR) {
    }
    const bool hasExited = child > 0 && waited == child && WIFEXITED(status) && WEXITSTATUS(status) != kNotStarted;
    ended.status = hasExited ? WEXITSTATUS(status) : -1;
    return ended;
}

bool isWritableFolder(const std::string& folder) {
    return access(folder.c_str(), W_OK | X_OK) == 0;
}

} // namespace host::app
