#include "guidePages.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <fstream>
#include <iterator>
#include <sstream>

namespace tvk {

std::string guidePage(const std::string& name) {
    std::ifstream in(TVK_DOCS "/" + name);
    return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

std::string guideBlock(const std::string& page, const std::string& begin) {
    const std::string text = guidePage(page);
    const std::size_t start = text.find("\n```\n" + begin);
    if (start == std::string::npos) {
        ADD_FAILURE() << page << " has no block that begins with " << begin;
        return "";
    }
    const std::size_t from = start + 5;
    return text.substr(from, text.find("```", from) - from);
}

std::vector<std::string> guideCommands(const std::string& page, const std::string& word) {
    std::vector<std::string> commands;
    std::istringstream in(guidePage(page));
    for (std::string line; std::getline(in, line);) {
        if (line.compare(0, 4, "    ") == 0 && line.find(word) != std::string::npos) {
            commands.push_back(line.substr(4));
        }
    }
    EXPECT_FALSE(commands.empty()) << page << " has no command with " << word;
    return commands;
}

} // namespace tvk
