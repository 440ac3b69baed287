#include <maya/MStatus.h>

#include <maya/MString.h>

#include <iostream>
#include <mutex>
#include <set>
#include <string>

namespace {

struct CodeText {
    const char* name;
    const char* meaning;
};

constexpr CodeText kCodeTexts[] = {
    {"kSuccess", "the call succeeded"},
    {"kFailure", "the call failed"},
    {"kInsufficientMemory", "there is not enough memory"},
    {"kInvalidParameter", "an argument or the object does not fit the call"},
    {"kLicenseFailure", "the licence does not allow the call"},
    {"kUnknownParameter", "an argument is not known"},
    {"kNotImplemented", "the object has no such operation"},
    {"kNotFound", "nothing was found"},
    {"kEndOfFile", "the end of the file was reached"},
};
static_assert(sizeof kCodeTexts / sizeof kCodeTexts[0] == MStatus::kEndOfFile + 1, "a text for every code");

// Statuses are copied everywhere, so they point to texts that never go away instead of owning them.
const char* keepText(const char* text) {
    static std::mutex guard;
    static std::set<std::string> texts;
    const std::lock_guard<std::mutex> lock(guard);
    return texts.insert(text).first->c_str();
}

} // namespace

void MStatus::set(bool success, MStatusCode code, const char* text) {
    code_ = success ? kSuccess : code == kSuccess ? kFailure : code;
    text_ = text == nullptr ? nullptr : keepText(text);
}

MString MStatus::errorString() const {
    const CodeText& texts = kCodeTexts[code_];
    return MString("(") + texts.name + "): " + (text_ == nullptr ? texts.meaning : text_);
}

void MStatus::perror(const char* context) const {
    std::cerr << (context == nullptr ? "" : context) << ": " << *this << '\n';
}

std::ostream& operator<<(std::ostream& stream, const MStatus& status) {
    return stream << status.errorString();
}

namespace host::api {

bool checkStatus(const MStatus& status, const char* file, int line) {
    if (status.error()) {
        std::cerr << file << ':' << line << ": " << status << '\n';
    }
    return !status.error();
}

} // namespace host::api
