#include "plugin/TvkCheckElementNameCmd.h"

#include "export/nameCheck.h"
#include "plugin/hostCall.h"
#include "plugin/pluginMessages.h"
#include "scene/hostCompatibility.h"

#include <maya/MArgDatabase.h>
#include <maya/MPxFileTranslator.h>
#include <maya/MString.h>
#include <maya/MStringArray.h>

#include <string>
#include <vector>

namespace tvk {
namespace {

constexpr const char* kTargetFlag = "t";

using Mode = MPxFileTranslator::FileAccessMode;

// Fails, with a message, on arguments that make no sense.
MStatus readTarget(const MSyntax& syntax, const MArgList& arguments, Mode& mode) {
    MString target = "all";
    MStatus status;
    const MArgDatabase parsed(syntax, arguments, &status);
    if (status && parsed.isFlagSet(kTargetFlag)) {
        status = parsed.getFlagArgument(kTargetFlag, 0, target);
    }
    if (!status) {
        MGlobal::displayError(kCantGetTarget);
        return status;
    }
    if (target != "all" && target != "selection") {
        MGlobal::displayError(MString(kInvalidTarget) + target);
        return MS::kFailure;
    }
    mode = target == "all" ? MPxFileTranslator::kExportAccessMode : MPxFileTranslator::kExportActiveAccessMode;
    return MS::kSuccess;
}

MStringArray hostTexts(const std::vector<std::string>& texts) {
    MStringArray array;
    for (const std::string& text : texts) {
        array.append(hostText(text));
    }
    return array;
}

} // namespace

void* TvkCheckElementNameCmd::create() {
    return new TvkCheckElementNameCmd;
}

MSyntax TvkCheckElementNameCmd::newSyntax() {
    MSyntax syntax;
    syntax.addFlag(kTargetFlag, "target", MSyntax::kString);
    return syntax;
}

TvkCheckElementNameCmd::~TvkCheckElementNameCmd() = default;

MStatus TvkCheckElementNameCmd::doIt(const MArgList& arguments) {
    return hostCall([&]() -> MStatus {
        clearResult();
        Mode mode = MPxFileTranslator::kUnknownAccessMode;
        MStatus status = readTarget(syntax(), arguments, mode);
        std::vector<std::string> pairs;
        if (status) {
            status = checkElementNames(mode, pairs);
        }
        if (status) {
            setResult(hostTexts(pairs));
        }
        return status;
    });
}

} // namespace tvk
