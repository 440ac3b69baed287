#include "host/app/process.h"

#define WIN32_LEAN_AND_MEAN
#include <windows.h>
// Needs the types above.
#include <shellapi.h>

#include <filesystem>
#include <mutex>

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

std::vector<std::string> programArguments(int /*count*/, char** /*arguments*/) {
    // What `main` gets went through the user's code page and may have lost letters.
    std::vector<std::string> words;
    int count = 0;
    wchar_t** const wide = CommandLineToArgvW(GetCommandLineW(), &count);
    for (int i = 0; i < count; ++i) {
        words.push_back(std::filesystem::path(wide[i]).u8string());
    }
    LocalFree(wide);
    return words;
}

void prepareStreams() {
    // The console is the user's, who goes on working in it afterwards. Writing to a broken pipe is an ordinary error.
    struct Utf8Console {
        Utf8Console() : before(GetConsoleOutputCP()) { SetConsoleOutputCP(CP_UTF8); }
        ~Utf8Console() { SetConsoleOutputCP(before); }

        UINT before;
    };
    static const Utf8Console console;
}

bool isErrorTerminal() {
    const HANDLE terminal = GetStdHandle(STD_ERROR_HANDLE);
    DWORD mode = 0;
    return GetConsoleMode(terminal, &mode) != 0 &&
           SetConsoleMode(terminal, mode | ENABLE_VIRTUAL_TERMINAL_PROCESSING) != 0;
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

namespace {

/// A word as programs take their command line apart: backslashes count before quotes only.
std::wstring quoted(const std::wstring& word) {
    std::wstring text = L"\"";
    std::size_t backslashes = 0;
    for (const wchar_t c : word) {
        text.append(c == L'"' ? backslashes + 1 : 0, L'\\');
        text += c;
        backslashes = c == L'\\' ? backslashes + 1 : 0;
    }
    return text.append(backslashes, L'\\') + L"\"";
}

/// Programs in it end when its last handle is closed, at the latest with this program.
HANDLE jobOfChildren() {
    static const HANDLE job = [] {
        HANDLE made = CreateJobObjectW(nullptr, nullptr);
        JOBOBJECT_EXTENDED_LIMIT_INFORMATION limits{};
        limits.BasicLimitInformation.LimitFlags = JOB_OBJECT_LIMIT_KILL_ON_JOB_CLOSE;
        SetInformationJobObject(made, JobObjectExtendedLimitInformation, &limits, sizeof limits);
        return made;
    }();
    return job;
}

/// Starts the program with its standard error at the writing end; false when it cannot be started.
bool start(const std::vector<std::string>& words, HANDLE writing, PROCESS_INFORMATION& process) {
    std::wstring line;
    for (const std::string& word : words) {
        line += (line.empty() ? L"" : L" ") + quoted(std::filesystem::u8path(word).wstring());
    }
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    startup.dwFlags = STARTF_USESTDHANDLES;
    startup.hStdError = writing;
    if (CreateProcessW(nullptr, line.data(), nullptr, nullptr, TRUE, CREATE_SUSPENDED, nullptr, nullptr, &startup,
                       &process) == 0) {
        return false;
    }
    AssignProcessToJobObject(jobOfChildren(), process.hProcess);
    ResumeThread(process.hThread);
    CloseHandle(process.hThread);
    return true;
}

} // namespace

EndedProcess runProgram(const std::vector<std::string>& words) {
    static std::mutex starting; // no other child may hold the writing end open
    HANDLE reading = nullptr;
    PROCESS_INFORMATION process{};
    {
        const std::lock_guard<std::mutex> lock(starting);
        SECURITY_ATTRIBUTES inherited{sizeof(SECURITY_ATTRIBUTES), nullptr, TRUE};
        HANDLE writing = nullptr;
        if (CreatePipe(&reading, &writing, &inherited, 0) == 0) {
            return {};
        }
        SetHandleInformation(reading, HANDLE_FLAG_INHERIT, 0);
        const bool isRunning = start(words, writing, process);
        CloseHandle(writing);
        if (!isRunning) {
            CloseHandle(reading);
            return {};
        }
    }
    EndedProcess ended;
    char buffer[4096];
    for (DWORD count = 0; ReadFile(reading, buffer, sizeof buffer, &count, nullptr) != 0 && count > 0;) {
        ended.error.append(buffer, count);
    }
    CloseHandle(reading);
    WaitForSingleObject(process.hProcess, INFINITE);
    DWORD status = 0;
    ended.status = GetExitCodeProcess(process.hProcess, &status) != 0 ? static_cast<int>(status) : -1;
    CloseHandle(process.hProcess);
    return ended;
}

bool isWritableFolder(const std::string&) {
    return true; // access rights are lists here; opening the file tells
}

} // namespace host::app
