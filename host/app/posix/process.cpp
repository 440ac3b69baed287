#include "host/app/process.h"

#include <pthread.h>
#include <sys/ioctl.h>
#include <unistd.h>

#include <csignal>
#include <filesystem>
#include <system_error>

namespace host::app {

namespace {

constexpr int kUsualColumns = 80;

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

void ignoreBrokenPipes() {
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

bool isWritableFolder(const std::string& folder) {
    return access(folder.c_str(), W_OK | X_OK) == 0;
}

} // namespace host::app
