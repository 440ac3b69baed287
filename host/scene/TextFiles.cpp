#include "host/scene/TextFiles.h"

#include "host/mel/filePath.h"

#include <array>
#include <filesystem>
#include <iterator>
#include <utility>

namespace host {

namespace {

using Mode = std::ios_base;

struct ModeRow {
    const char* word;
    Mode::openmode flags;
};

const std::array<ModeRow, 6> kModes = {{
    {"r", Mode::in},
    {"w", Mode::out | Mode::trunc},
    {"a", Mode::out | Mode::app},
    {"r+", Mode::in | Mode::out},
    {"w+", Mode::in | Mode::out | Mode::trunc},
    {"a+", Mode::in | Mode::out | Mode::app},
}};

} // namespace

std::int64_t TextFiles::open(const std::string& path, const std::string& mode) {
    for (const ModeRow& row : kModes) {
        if (mode != row.word) {
            continue;
        }
        const std::filesystem::path file = filePath(path);
        std::error_code ignored;
        auto stream = std::make_unique<std::fstream>();
        if (!std::filesystem::is_directory(file, ignored)) {
            stream->open(file, row.flags | Mode::binary);
        }
        if (!stream->is_open()) {
            return 0;
        }
        files_[++last_] = std::move(stream);
        return last_;
    }
    return 0;
}

std::fstream* TextFiles::find(std::int64_t number) const {
    const auto found = files_.find(number);
    return found != files_.end() ? found->second.get() : nullptr;
}

bool TextFiles::close(std::int64_t number) {
    const auto found = files_.find(number);
    if (found == files_.end()) {
        return false;
    }
    found->second->clear(); // having read to the end is no failure
    found->second->close();
    const bool isWritten = !found->second->fail();
    files_.erase(found);
    return isWritten;
}

std::string readLine(std::fstream& file) {
    std::string line;
    if (std::getline(file, line) && !file.eof()) {
        line += '\n';
    }
    return line;
}

std::string readWord(std::fstream& file, const std::string& separators) {
    std::string word;
    for (int byte = file.get(); file; byte = file.get()) {
        const char c = static_cast<char>(byte);
        const bool separates = separators.find(c) != std::string::npos;
        if (separates && !word.empty()) {
            file.unget();
            break;
        }
        if (!separates) {
            word += c;
        }
    }
    return word;
}

std::string readRest(std::fstream& file) {
    std::string rest{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    file.setstate(std::ios_base::eofbit);
    return rest;
}

} // namespace host
