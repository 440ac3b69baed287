#include "export/batchLog.h"

#include "export/exportMessages.h"
#include "platform/fileSystem.h"
#include "scene/Run.h"

#include <iostream>

namespace tvk {

std::string defaultBatchLogPath() {
    return tempFolder() + kPathSeparator + "maya50_batch_log.txt";
}

bool BatchLog::open() {
    ownedByRun = run().options.batchLogPath.empty();
    path = ownedByRun ? defaultBatchLogPath() : run().options.batchLogPath;
    if (!openForWriting(stream, path, WriteMode::kAppend)) {
        say(kCantOpenFile, path);
        return false;
    }
    run().messages = &stream;
    return true;
}

BatchLog::~BatchLog() {
    if (stream.is_open()) {
        finish(false);
    }
}

void BatchLog::finish(bool clean) {
    if (clean) {
        stream << "Success\n";
    }
    stream << '\n';
    run().messages = &std::cerr;
    stream.close();
    if (stream.fail()) {
        say(kCantWriteFile, path);
    }
    if (ownedByRun) {
        (void)deleteFile(path); // one that stays behind harms nobody: the next run appends to it
    }
}

} // namespace tvk
