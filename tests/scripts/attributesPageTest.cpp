#include "ScriptSession.h"

#include "textFiles.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <map>
#include <regex>
#include <set>
#include <sstream>

namespace tvk {
namespace {

// What the page calls a type of the host.
std::string typeWord(const std::string& type) {
    static const std::map<std::string, std::string> kWords = {
        {"bool", "boolean"}, {"long", "integer"}, {"enum", "choice"}, {"matrix", "matrix"}, {"string", "text"}};
    return kWords.at(type);
}

std::string replaced(std::string text, const std::string& what, const std::string& with) {
    for (std::size_t at = text.find(what); at != std::string::npos; at = text.find(what, at + with.size())) {
        text.replace(at, what.size(), with);
    }
    return text;
}

// The first cells of an attribute's row: name, label, type, default, range.
std::vector<std::string> expectedCells(const ExpectedAttribute& row) {
    static const std::regex kDescription(R"((\S+) (\S+) (-|\[.*\]) (\S+) (.*))");
    std::smatch parts;
    const std::string description = row.description;
    EXPECT_TRUE(std::regex_match(description, parts, kDescription)) << description;
    const std::string type = parts[1], start = parts[2], range = parts[3], words = parts[4];
    std::string choice = start;
    std::string values = replaced(replaced(replaced(range, "[", ""), "]", ""), ", ", " to ");
    if (type == "enum") {
        values = replaced(words, ":", ", ");
        std::istringstream all(words);
        for (int word = 0; word <= start[0] - '0'; ++word) {
            std::getline(all, choice, ':');
        }
    } else if (type == "bool") {
        choice = start == "1" ? "on" : "off";
        values = "off, on";
    } else if (type == "matrix") {
        choice = "identity";
        values = "any";
    } else if (type == "string") {
        choice = "empty";
        values = "see below";
    }
    return {row.name, parts[5], typeWord(type), choice, values};
}

TEST(AttributesPage, HasARowForEveryAttributeAndNoOther) {
    const std::vector<std::vector<std::string>> rows = namedRows(sourceText("docs/attributes.md"));
    ASSERT_EQ(rows.size(), kExpectedAttributes.size());
    for (std::size_t at = 0; at < rows.size(); ++at) {
        ASSERT_EQ(rows[at].size(), 6U) << rows[at][0];
        EXPECT_EQ(std::vector<std::string>(rows[at].begin(), rows[at].begin() + 5),
                  expectedCells(kExpectedAttributes[at]));
        EXPECT_NE(rows[at][5], "") << rows[at][0];
    }
}

TEST(AttributesPage, NamesTheRowsOfTheScript) {
    const std::string script = sourceText("scripts/TVK_Attributes.mel");
    const std::regex row("\"(tvk_[a-z0-9_]+)\\|");
    std::vector<std::string> inScript, inTest;
    for (std::sregex_iterator at(script.begin(), script.end(), row), end; at != end; ++at) {
        inScript.push_back((*at)[1]);
    }
    for (const ExpectedAttribute& attribute : kExpectedAttributes) {
        inTest.emplace_back(attribute.name);
    }
    EXPECT_EQ(inScript, inTest);
}

// A misspelt name would read as an attribute that nobody has.
TEST(AttributesPage, TheExporterReadsTheseAttributesAndNoOthers) {
    namespace fs = std::filesystem;
    std::set<std::string> known, read;
    for (const ExpectedAttribute& attribute : kExpectedAttributes) {
        known.insert(attribute.name);
    }
    const std::regex name("\"(tvk_[a-z0-9_]+)\"");
    for (const std::string room : {"material", "scene", "geometry", "animation", "export"}) {
        for (const fs::directory_entry& entry : fs::recursive_directory_iterator(sourcePath("src/" + room))) {
            if (entry.path().extension() != ".cpp") {
                continue;
            }
            const std::string text = sourceText(entry.path().lexically_relative(sourcePath("")).generic_string());
            for (std::sregex_iterator at(text.begin(), text.end(), name), end; at != end; ++at) {
                read.insert((*at)[1]);
            }
        }
    }
    EXPECT_EQ(read, known);
}

} // namespace
} // namespace tvk
