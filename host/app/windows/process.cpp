#include "host/app/process.h"

#define WIN32_LEAN_AND_MEAN
#include <windows.h>

#include <filesystem>

namespace host::app {

namespace {

constexpr int kUsualColumns = 80;

struct Job {
    const std::function<int()>* work = nullptr;
    int result = 0;
};

DWORD WINAPI runJob(void* argument) {
    Job* job = static_cast<Job*>(argument);
    job->result = (*job->work)();
    return 0;
}

} // namespace

int runWithStack(std::size_t bytes, const std::function<int()>& work) {
    Job job = {&work, 0};
    HANDLE thread = CreateThread(nullptr, bytes, runJob, &job, STACK_SIZE_PARAM_IS_A_RESERVATION, nullptr);
    if (thread == nullptr) {
        return work();
    }
    WaitForSingleObject(thread, INFINITE);
    CloseHandle(thread);
    return job.result;
}

void ignoreBrokenPipes() {} // writing to one is an ordinary error here

bool isErrorTerminal() {
    DWORD mode = 0;
    return GetConsoleMode(GetStdHandle(STD_ERROR_HANDLE), &mode) != 0;
}

int errorTerminalColumns() {
    CONSOLE_SCREEN_BUFFER_INFO info{};
    const bool isKnown = GetConsoleScreenBufferInfo(GetStdHandle(STD_ERROR_HANDLE), &info) != 0;
    return isKnown ? info.srWindow.Right - info.srWindow.Left + 1 : kUsualColumns;
}

std::string programFolder() {
    wchar_t path[32768];
    const DWORD length = GetModuleFileNameW(nullptr, path, 32768);
    return length == 0 ? std::string()
                       : std::filesystem::path(std::wstring(path, length)).parent_path().generic_u8string() + "/";
}

bool isWritableFolder(const std::string&) {
    return true; // access rights are lists here; opening the file tells
}

} // namespace host::app
