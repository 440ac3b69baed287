#pragma once

#include <string>
#include <vector>

namespace tvk {

// One text file of the repository.
struct SourceFile {
    std::string path; // from the root, with '/'
    std::vector<std::string> lines;
};

// Reads the .h and .cpp files below a folder of the repository, and its CMakeLists.txt files, sorted by path.
//   folder   from the root, "src" for example; a folder that does not exist gives an empty list
std::vector<SourceFile> readSourceTree(const std::string& folder);

// Each of the finders below returns one complaint per offence, "path:line: …" or "path: …"; none means clean.

// A file of more lines than limit.
std::vector<std::string> findLongFiles(const std::vector<SourceFile>& files, std::size_t limit);

// A line that contains one of the words, whatever its case.
std::vector<std::string> findWords(const std::vector<SourceFile>& files, const std::vector<std::string>& words);

// A line that contains one of the marks in capitals, as a word of its own.
std::vector<std::string> findMarks(const std::vector<SourceFile>& files, const std::vector<std::string>& marks);

// A quoted include that starts with "../" or has no folder while the file is in a room (a path of two folders or more).
std::vector<std::string> findIncludesAroundDoors(const std::vector<SourceFile>& files);

// A header whose first line of code is not "#pragma once".
std::vector<std::string> findHeadersWithoutGuard(const std::vector<SourceFile>& files);

// A source with a header of its own name beside it that includes another file first: only then is it proven that the
// header compiles alone.
std::vector<std::string> findOwnHeaderNotFirst(const std::vector<SourceFile>& files);

// A .cpp file that no CMakeLists.txt of its own folder or of a folder above it names: it would never be compiled.
std::vector<std::string> findUnbuiltSources(const std::vector<SourceFile>& files);

} // namespace tvk
