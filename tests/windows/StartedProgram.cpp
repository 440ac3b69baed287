#include "StartedProgram.h"

#include <gtest/gtest.h>

#include <windows.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <optional>
#include <sstream>

namespace tvk {
namespace {

namespace fs = std::filesystem;

std::wstring wide(const std::string& text) {
    return fs::u8path(text).wstring();
}

/// None of the words in these tests holds a double quote or ends with a backslash.
std::wstring commandLineOf(const std::vector<std::string>& words) {
    std::wstring line;
    for (const std::string& word : words) {
        line += (line.empty() ? L"\"" : L" \"") + wide(word) + L"\"";
    }
    return line;
}

HANDLE inheritableFile(const std::string& path) {
    SECURITY_ATTRIBUTES inherited{sizeof(SECURITY_ATTRIBUTES), nullptr, TRUE};
    return CreateFileW(wide(path).c_str(), GENERIC_WRITE, FILE_SHARE_READ, &inherited, CREATE_ALWAYS,
                       FILE_ATTRIBUTE_NORMAL, nullptr);
}

/// Variables of the test's own that a program inherits; as they were afterwards.
class InheritedVariables {
public:
    explicit InheritedVariables(const std::map<std::string, std::string>& variables) {
        for (const auto& [name, value] : variables) {
            wchar_t before[4096] = {};
            const DWORD length = GetEnvironmentVariableW(wide(name).c_str(), before, 4096);
            before_[wide(name)] = length != 0 ? std::optional<std::wstring>(before) : std::nullopt;
            SetEnvironmentVariableW(wide(name).c_str(), wide(value).c_str());
        }
    }
    ~InheritedVariables() {
        for (const auto& [name, value] : before_) {
            SetEnvironmentVariableW(name.c_str(), value ? value->c_str() : nullptr);
        }
    }
    InheritedVariables(const InheritedVariables&) = delete;
    InheritedVariables& operator=(const InheritedVariables&) = delete;

private:
    std::map<std::wstring, std::optional<std::wstring>> before_;
};

std::string printedText(const std::string& path) {
    std::ifstream in(fs::u8path(path)); // text: line ends become '\n'
    return {std::istreambuf_iterator<char>(in), {}};
}

} // namespace

StartedProgram::StartedProgram(const std::vector<std::string>& words, const Surroundings& surroundings) {
    const InheritedVariables variables(surroundings.environment);
    std::wstring line = commandLineOf(words);
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    startup.dwFlags = STARTF_USESTDHANDLES;
    startup.hStdOutput = inheritableFile(printed_.path("out"));
    startup.hStdError = inheritableFile(printed_.path("error"));
    PROCESS_INFORMATION process{};
    const std::wstring folder = wide(surroundings.workingFolder);
    const BOOL isStarted = CreateProcessW(nullptr, line.data(), nullptr, nullptr, TRUE, 0, nullptr,
                                          folder.empty() ? nullptr : folder.c_str(), &startup, &process);
    CloseHandle(startup.hStdOutput);
    CloseHandle(startup.hStdError);
    EXPECT_TRUE(isStarted) << words[0];
    if (isStarted) {
        CloseHandle(process.hThread);
        process_ = process.hProcess;
    }
}

StartedProgram::~StartedProgram() {
    if (process_ != nullptr) {
        if (!endsWithin(std::chrono::milliseconds(0))) {
            TerminateProcess(process_, 1);
            WaitForSingleObject(process_, INFINITE);
        }
        CloseHandle(process_);
    }
}

bool StartedProgram::endsWithin(std::chrono::milliseconds patience) const {
    return process_ != nullptr && WaitForSingleObject(process_, static_cast<DWORD>(patience.count())) == WAIT_OBJECT_0;
}

int StartedProgram::status() const {
    DWORD code = 0;
    return process_ != nullptr && GetExitCodeProcess(process_, &code) ? static_cast<int>(code) : -1;
}

std::string StartedProgram::out() const {
    return printedText(printed_.path("out"));
}

std::string StartedProgram::error() const {
    return printedText(printed_.path("error"));
}

std::vector<std::string> exporterWords(const std::vector<std::string>& arguments) {
    std::vector<std::string> words = {TVK_PROGRAM};
    words.insert(words.end(), arguments.begin(), arguments.end());
    return words;
}

ProgramRun runExporter(const std::vector<std::string>& arguments, const StartedProgram::Surroundings& surroundings) {
    const StartedProgram program(exporterWords(arguments), surroundings);
    EXPECT_TRUE(program.endsWithin(std::chrono::minutes(2))) << "the program does not end";
    return {program.status(), program.out(), program.error()};
}

std::string fileBytes(const std::string& path) {
    std::ifstream in(fs::u8path(path), std::ios::binary);
    EXPECT_TRUE(in.is_open()) << path;
    return {std::istreambuf_iterator<char>(in), {}};
}

void writeFile(const std::string& path, const std::string& bytes) {
    std::ofstream(fs::u8path(path), std::ios::binary) << bytes;
}

std::string withoutCarriageReturns(const std::string& text) {
    std::string plain;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const bool endsLine = text[i] == '\r' && i + 1 < text.size() && text[i + 1] == '\n';
        const bool isLoneEnd = text[i] == '\n' && (i == 0 || text[i - 1] != '\r');
        EXPECT_FALSE(isLoneEnd || (text[i] == '\r' && !endsLine)) << "at byte " << i;
        plain += endsLine ? "" : std::string(1, text[i]);
    }
    return plain;
}

std::string withoutMaker(const std::string& text) {
    std::istringstream in(text);
    std::string kept;
    for (std::string line; std::getline(in, line);) {
        kept += line.find("create user=\"") == std::string::npos ? line + "\n" : "";
    }
    return kept;
}

} // namespace tvk
