#include "host/scene/TextFiles.h"
#include "host/scene/commandGroups.h"
#include "host/scene/sceneMessages.h"

#include <memory>
#include <utility>

namespace host {

namespace {

using mel::CommandResult;

constexpr const char* kWhiteSpace = " \t\n\r\v\f";

/// One call on an open file: `name FILE arguments…`. Quoted words that look like flags are texts here.
struct FileCall {
    std::fstream& file;
    const std::vector<mel::Argument>& arguments; // behind the file's number

    std::string text(std::size_t index, const std::string& otherwise = "") const {
        return index < arguments.size() ? arguments[index].value.toText() : otherwise;
    }
};

struct FileCommandRow {
    const char* name;
    std::size_t fewest, most; // arguments behind the file's number
    CommandResult (*run)(const FileCall& call);
};

CommandResult runPrint(const FileCall& call) {
    call.file.clear();
    call.file << call.arguments[0].value.printText();
    return {};
}

CommandResult runGetLine(const FileCall& call) {
    return CommandResult(readLine(call.file));
}

CommandResult runGetWord(const FileCall& call) {
    return CommandResult(readWord(call.file, call.text(0, kWhiteSpace)));
}

/// Asked for text, a read takes all that is left.
CommandResult runRead(const FileCall& call) {
    if (!call.arguments[0].value.isString()) {
        return CommandResult::failure("fread: only text can be read");
    }
    return CommandResult(readRest(call.file));
}

CommandResult runAtEnd(const FileCall& call) {
    return CommandResult(call.file.eof());
}

CommandResult runFlush(const FileCall& call) {
    call.file.flush();
    return {};
}

CommandResult runRewind(const FileCall& call) {
    call.file.clear();
    call.file.seekg(0);
    return {};
}

constexpr FileCommandRow kRows[] = {
    {"fprint", 1, 1, runPrint},   {"fgetline", 0, 0, runGetLine}, {"fgetword", 0, 1, runGetWord},
    {"fread", 1, 1, runRead},     {"feof", 0, 0, runAtEnd},       {"fflush", 0, 0, runFlush},
    {"frewind", 0, 0, runRewind},
};

using SharedFiles = std::shared_ptr<TextFiles>;
using Arguments = std::vector<mel::Argument>;

CommandResult runOn(TextFiles& files, const FileCommandRow& row, const Arguments& arguments) {
    const std::size_t count = arguments.size();
    if (count < row.fewest + 1 || count > row.most + 1) {
        return CommandResult::failure(std::string(row.name) + ": wrong number of arguments");
    }
    std::fstream* const file = files.find(arguments[0].value.toInt());
    if (file == nullptr) {
        return CommandResult::failure(std::string(row.name) + ": no file is open under " + arguments[0].value.toText());
    }
    return row.run({*file, {arguments.begin() + 1, arguments.end()}});
}

CommandResult openTextFile(TextFiles& files, const Arguments& arguments) {
    if (arguments.size() != 2) {
        return CommandResult::failure("fopen: a path and a mode are needed");
    }
    return CommandResult(files.open(arguments[0].value.toText(), arguments[1].value.toText()));
}

CommandResult closeTextFile(TextFiles& files, const Arguments& arguments) {
    const bool isGiven = arguments.size() == 1;
    if (!isGiven || files.find(arguments[0].value.toInt()) == nullptr) {
        return CommandResult::failure("fclose: no file is open under " +
                                      (isGiven ? arguments[0].value.toText() : std::string("nothing")));
    }
    if (!files.close(arguments[0].value.toInt())) {
        return CommandResult::failure("fclose: the file cannot be written in full");
    }
    return {};
}

} // namespace

void registerTextFileCommands(mel::CommandTable& commands) {
    const auto files = std::make_shared<TextFiles>();
    const auto add = [&](const char* name, auto command) {
        (void)commands.add(name, [files, command](mel::Interpreter&, const mel::Invocation& call) {
            return command(*files, call.arguments);
        });
    };
    add("fopen", openTextFile);
    add("fclose", closeTextFile);
    for (const FileCommandRow& row : kRows) {
        add(row.name, [&row](TextFiles& open, const Arguments& arguments) { return runOn(open, row, arguments); });
    }
}

} // namespace host
