#include "plugin/programInterface.h"

#include "export/exportSettings.h"
#include "export/optionTable.h"
#include "plugin/hostCall.h"
#include "scene/messages.h"

#include <string>

const char* tvkOptionKeys() {
    static std::string keys;
    keys.clear();
    for (const tvk::OptionRow& row : tvk::kOptionRows) {
        keys.append(row.key).append(";");
    }
    return keys.c_str();
}

const char* tvkSettingsOptions(const char* path) {
    static std::string options;
    const MStatus status = tvk::hostCall([&] {
        MString text;
        bool outputs[6] = {};
        const MStatus read = tvk::readExportSettings(text, outputs, path);
        options = tvk::textOf(text);
        return read;
    });
    return status ? options.c_str() : nullptr;
}

int tvkWarningRaised() {
    return tvk::warningRaised() ? 1 : 0;
}
