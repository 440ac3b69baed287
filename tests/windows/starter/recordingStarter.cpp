// Stands in for the program that the Material Workbench is started by. Writes what it was started with beside itself,
// and then does what the files beside it say.

#include <windows.h>
// Needs the types above.
#include <shellapi.h>

#include <filesystem>
#include <fstream>
#include <string>

namespace {

namespace fs = std::filesystem;

fs::path folderOfProgram() {
    wchar_t path[32768];
    const DWORD length = GetModuleFileNameW(nullptr, path, 32768);
    return fs::path(std::wstring(path, length)).parent_path();
}

/// The command line as it is, and one word of it a line, in UTF-8. Nobody sees the words half-written.
void record(const fs::path& folder) {
    std::ofstream(folder / "line", std::ios::binary) << fs::path(GetCommandLineW()).u8string();
    {
        std::ofstream out(folder / "words.part", std::ios::binary);
        int count = 0;
        wchar_t** const words = CommandLineToArgvW(GetCommandLineW(), &count);
        for (int i = 1; i < count; ++i) {
            out << fs::path(words[i]).u8string() << '\n';
        }
        LocalFree(words);
    }
    fs::rename(folder / "words.part", folder / "words");
}

int chosenStatus(const fs::path& folder) {
    int value = 0;
    std::ifstream(folder / "status") >> value;
    return value;
}

} // namespace

int wmain() {
    const fs::path folder = folderOfProgram();
    record(folder);
    while (fs::exists(folder / "wait")) {
        Sleep(20);
    }
    return chosenStatus(folder);
}
