#include "textFiles.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <iterator>
#include <sstream>

namespace tvk {
namespace {

std::string cellText(std::string cell) {
    cell.erase(std::remove(cell.begin(), cell.end(), '`'), cell.end());
    const std::size_t first = cell.find_first_not_of(' ');
    return first == std::string::npos ? "" : cell.substr(first, cell.find_last_not_of(' ') - first + 1);
}

} // namespace

std::string sourcePath(const std::string& relativePath) {
    return std::string(TVK_SOURCE_DIR) + "/" + relativePath;
}

std::string sourceText(const std::string& relativePath) {
    std::ifstream in(sourcePath(relativePath), std::ios_base::binary);
    EXPECT_TRUE(in.is_open()) << relativePath;
    return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

std::vector<std::vector<std::string>> namedRows(const std::string& markdown) {
    std::vector<std::vector<std::string>> rows;
    std::istringstream lines(markdown);
    for (std::string line; std::getline(lines, line);) {
        if (line.rfind("| `", 0) != 0) {
            continue;
        }
        std::vector<std::string> cells;
        std::istringstream text(line.substr(1));
        for (std::string cell; std::getline(text, cell, '|');) {
            cells.push_back(cellText(cell));
        }
        rows.push_back(cells);
    }
    return rows;
}

} // namespace tvk
