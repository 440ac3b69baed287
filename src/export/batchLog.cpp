#include "export/batchLog.h"

#include "common/numberText.h"
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
    setupStream(stream);
    run().messages = &stream;
    return true;
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
    if (ownedByRun && !deleteFile(path)) {
        say(kCantWriteFile, path);
    }
}

} // namespace tvk
