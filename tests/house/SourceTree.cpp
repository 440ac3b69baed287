#include "SourceTree.h"

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <fstream>

namespace tvk {

namespace {

const std::string kBuildList = "CMakeLists.txt";

std::string lowerCase(std::string text) {
    std::transform(text.begin(), text.end(), text.begin(), [](unsigned char c) { return std::tolower(c); });
    return text;
}

bool endsWith(const std::string& text, const std::string& end) {
    return text.size() >= end.size() && text.compare(text.size() - end.size(), end.size(), end) == 0;
}

bool startsWith(const std::string& text, const std::string& start) {
    return text.compare(0, start.size(), start) == 0;
}

std::string folderOf(const std::string& path) {
    const std::size_t slash = path.rfind('/');
    return slash == std::string::npos ? std::string() : path.substr(0, slash);
}

std::string fileNameOf(const std::string& path) {
    return path.substr(path.rfind('/') + 1);
}

std::string complaint(const SourceFile& file, std::size_t lineIndex, const std::string& words) {
    return file.path + ":" + std::to_string(lineIndex + 1) + ": " + words;
}

// The text between the quotes of a quoted include; empty for every other line.
std::string quotedInclude(const std::string& line) {
    const std::string start = "#include \"";
    const std::size_t end = line.rfind('"');
    return startsWith(line, start) && end > start.size() ? line.substr(start.size(), end - start.size())
                                                         : std::string();
}

bool isBuildList(const SourceFile& file) {
    return fileNameOf(file.path) == kBuildList;
}

SourceFile readFile(const std::filesystem::path& root, const std::filesystem::path& path) {
    SourceFile file;
    file.path = path.lexically_relative(root).generic_string();
    std::ifstream stream(path);
    for (std::string line; std::getline(stream, line);) {
        file.lines.push_back(line);
    }
    return file;
}

// Whether the list names the path as written from the list's own folder, as a word of its own, or the file in a folder
// that a variable chooses ("${system}/process.cpp").
bool namesSource(const SourceFile& list, const std::string& path) {
    const std::string folder = folderOf(list.path);
    if (!startsWith(path, folder + "/")) {
        return false;
    }
    const std::string relative = path.substr(folder.size() + 1);
    const std::string chosen = "}/" + fileNameOf(path);
    const auto isPartOfName = [](char c) { return std::isalnum(static_cast<unsigned char>(c)) || c == '/'; };
    return std::any_of(list.lines.begin(), list.lines.end(), [&](const std::string& line) {
        const std::size_t at = line.find(relative);
        const bool isNamed = at != std::string::npos && (at == 0 || !isPartOfName(line[at - 1]));
        return isNamed || line.find(chosen) != std::string::npos;
    });
}

bool containsWholeWord(const std::string& line, const std::string& word) {
    const auto isPartOfName = [](char c) { return std::isalnum(static_cast<unsigned char>(c)) || c == '_'; };
    for (std::size_t at = line.find(word); at != std::string::npos; at = line.find(word, at + 1)) {
        const std::size_t end = at + word.size();
        if ((at == 0 || !isPartOfName(line[at - 1])) && (end == line.size() || !isPartOfName(line[end]))) {
            return true;
        }
    }
    return false;
}

// One complaint for each line and word for which contains(line, word) holds.
template <typename Contains>
std::vector<std::string> findLines(const std::vector<SourceFile>& files, const std::vector<std::string>& words,
                                   Contains contains) {
    std::vector<std::string> found;
    for (const SourceFile& file : files) {
        for (std::size_t i = 0; i < file.lines.size(); ++i) {
            for (const std::string& word : words) {
                if (contains(file.lines[i], word)) {
                    found.push_back(complaint(file, i, "says '" + word + "'"));
                }
            }
        }
    }
    return found;
}

} // namespace

std::vector<SourceFile> readSourceTree(const std::string& folder) {
    const std::filesystem::path root(TVK_SOURCE_DIR);
    std::vector<SourceFile> files;
    if (!std::filesystem::exists(root / folder)) {
        return files;
    }
    for (const auto& entry : std::filesystem::recursive_directory_iterator(root / folder)) {
        const std::string ending = entry.path().extension().string();
        if (ending == ".h" || ending == ".cpp" || entry.path().filename() == kBuildList) {
            files.push_back(readFile(root, entry.path()));
        }
    }
    std::sort(files.begin(), files.end(), [](const auto& a, const auto& b) { return a.path < b.path; });
    return files;
}

std::vector<std::string> findLongFiles(const std::vector<SourceFile>& files, std::size_t limit) {
    std::vector<std::string> found;
    for (const SourceFile& file : files) {
        if (file.lines.size() > limit) {
            found.push_back(file.path + ": " + std::to_string(file.lines.size()) + " lines");
        }
    }
    return found;
}

std::vector<std::string> findWords(const std::vector<SourceFile>& files, const std::vector<std::string>& words) {
    return findLines(files, words, [](const std::string& line, const std::string& word) {
        return lowerCase(line).find(lowerCase(word)) != std::string::npos;
    });
}

std::vector<std::string> findMarks(const std::vector<SourceFile>& files, const std::vector<std::string>& marks) {
    return findLines(files, marks, containsWholeWord);
}

std::vector<std::string> findIncludesAroundDoors(const std::vector<SourceFile>& files) {
    std::vector<std::string> found;
    for (const SourceFile& file : files) {
        for (std::size_t i = 0; i < file.lines.size(); ++i) {
            const std::string included = quotedInclude(file.lines[i]);
            if (startsWith(included, "../") || (!included.empty() && folderOf(included).empty())) {
                found.push_back(complaint(file, i, "includes \"" + included + "\" around its room's door"));
            }
        }
    }
    return found;
}

std::vector<std::string> findHeadersWithoutGuard(const std::vector<SourceFile>& files) {
    std::vector<std::string> found;
    for (const SourceFile& file : files) {
        const auto isCode = [](const std::string& line) { return !line.empty() && !startsWith(line, "//"); };
        const auto first = std::find_if(file.lines.begin(), file.lines.end(), isCode);
        if (endsWith(file.path, ".h") && (first == file.lines.end() || *first != "#pragma once")) {
            found.push_back(file.path + ": does not start with #pragma once");
        }
    }
    return found;
}

std::vector<std::string> findOwnHeaderNotFirst(const std::vector<SourceFile>& files) {
    std::vector<std::string> found;
    for (const SourceFile& file : files) {
        if (!endsWith(file.path, ".cpp")) {
            continue;
        }
        const std::string header = file.path.substr(0, file.path.size() - 4) + ".h";
        const bool hasHeader =
            std::any_of(files.begin(), files.end(), [&](const SourceFile& other) { return other.path == header; });
        const auto isInclude = [](const std::string& line) { return startsWith(line, "#include"); };
        const auto first = std::find_if(file.lines.begin(), file.lines.end(), isInclude);
        if (hasHeader && (first == file.lines.end() || fileNameOf(quotedInclude(*first)) != fileNameOf(header))) {
            found.push_back(file.path + ": does not include its own header first");
        }
    }
    return found;
}

std::vector<std::string> findUnbuiltSources(const std::vector<SourceFile>& files) {
    std::vector<std::string> found;
    for (const SourceFile& file : files) {
        const auto names = [&](const SourceFile& list) { return isBuildList(list) && namesSource(list, file.path); };
        if (endsWith(file.path, ".cpp") && std::none_of(files.begin(), files.end(), names)) {
            found.push_back(file.path + ": no " + kBuildList + " names it");
        }
    }
    return found;
}

} // namespace tvk
