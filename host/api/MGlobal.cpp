#include <maya/MGlobal.h>

#include "host/api/ApiAccess.h"
#include "host/api/Host.h"
#include "host/api/melResults.h"
#include "host/api/statusResult.h"
#include "host/api/values/TimeTicks.h"

#include <vector>

using host::ApiAccess;
using host::Host;
using host::SelectionItem;
using host::succeed;

namespace {

/// Runs a command; its value, or nothing when it failed, which has been shown then.
std::optional<host::mel::Value> run(const MString& command, bool displayEnabled) {
    Host& host = Host::instance();
    if (displayEnabled) {
        host.info(command.asChar());
    }
    host::mel::EvalResult result = host.execute(command.asChar());
    return result.ok() ? std::optional(std::move(result.value)) : std::nullopt;
}

template <class T>
MStatus runInto(const MString& command, T& result, bool displayEnabled) {
    const std::optional<host::mel::Value> value = run(command, displayEnabled);
    return value ? host::takeResult(*value, result) : MStatus(MStatus::kFailure);
}

void adjust(const std::vector<SelectionItem>& items, MGlobal::ListAdjustment adjustment) {
    host::Selection& selection = Host::instance().scene().selection();
    const std::vector<SelectionItem> before = selection.items();
    if (adjustment == MGlobal::kReplaceList || adjustment == MGlobal::kAddToHeadOfList) {
        selection.clear();
    }
    for (const SelectionItem& item : items) {
        const bool isIn = selection.contains(item);
        if (adjustment == MGlobal::kRemoveFromList || (adjustment == MGlobal::kXORWithList && isIn)) {
            selection.remove(item);
        } else {
            selection.add(item);
        }
    }
    if (adjustment == MGlobal::kAddToHeadOfList) {
        for (const SelectionItem& item : before) {
            selection.add(item);
        }
    }
}

MStatus adjustWith(MSelectionList& list, const MStatus& added, MGlobal::ListAdjustment adjustment) {
    if (added == MStatus::kSuccess) {
        adjust(ApiAccess::items(list), adjustment);
    }
    return added;
}

} // namespace

MString MGlobal::mayaVersion() {
    return host::kHostVersion;
}

int MGlobal::apiVersion() {
    return MAYA_API_VERSION;
}

MGlobal::MMayaState MGlobal::mayaState(MStatus* ReturnStatus) {
    return succeed(ReturnStatus, kBatch);
}

bool MGlobal::isYAxisUp(MStatus* ReturnStatus) {
    return succeed(ReturnStatus, true);
}

void MGlobal::displayInfo(const MString& message) {
    Host::instance().info(message.asChar());
}

void MGlobal::displayWarning(const MString& message) {
    Host::instance().warning(message.asChar());
}

void MGlobal::displayError(const MString& message) {
    Host::instance().error(message.asChar());
}

MStatus MGlobal::executeCommand(const MString& command, bool displayEnabled, bool) {
    return run(command, displayEnabled) ? MStatus::kSuccess : MStatus::kFailure;
}

MStatus MGlobal::executeCommand(const MString& command, MCommandResult& result, bool displayEnabled, bool) {
    std::optional<host::mel::Value> value = run(command, displayEnabled);
    if (!value) {
        return MStatus::kFailure;
    }
    ApiAccess::setValue(result, std::move(*value));
    return MStatus::kSuccess;
}

MStatus MGlobal::executeCommand(const MString& command, int& result, bool displayEnabled, bool) {
    return runInto(command, result, displayEnabled);
}
MStatus MGlobal::executeCommand(const MString& command, MIntArray& result, bool displayEnabled, bool) {
    return runInto(command, result, displayEnabled);
}
MStatus MGlobal::executeCommand(const MString& command, double& result, bool displayEnabled, bool) {
    return runInto(command, result, displayEnabled);
}
MStatus MGlobal::executeCommand(const MString& command, MDoubleArray& result, bool displayEnabled, bool) {
    return runInto(command, result, displayEnabled);
}
MStatus MGlobal::executeCommand(const MString& command, MString& result, bool displayEnabled, bool) {
    return runInto(command, result, displayEnabled);
}
MStatus MGlobal::executeCommand(const MString& command, MStringArray& result, bool displayEnabled, bool) {
    return runInto(command, result, displayEnabled);
}
MStatus MGlobal::executeCommand(const MString& command, MVector& result, bool displayEnabled, bool) {
    return runInto(command, result, displayEnabled);
}
MStatus MGlobal::executeCommand(const MString& command, MVectorArray& result, bool displayEnabled, bool) {
    return runInto(command, result, displayEnabled);
}
MStatus MGlobal::executeCommand(const MString& command, MMatrix& result, bool displayEnabled, bool) {
    return runInto(command, result, displayEnabled);
}

MString MGlobal::executeCommandStringResult(const MString& command, bool displayEnabled, bool, MStatus* ReturnStatus) {
    MString result;
    host::report(ReturnStatus, runInto(command, result, displayEnabled));
    return result;
}

MStatus MGlobal::sourceFile(const MString& fileName) {
    Host& host = Host::instance();
    const host::mel::EvalResult result = host.interpreter().source(fileName.asChar());
    if (!result.ok()) {
        host.error(result.error->describe());
        return MStatus::kFailure;
    }
    return MStatus::kSuccess;
}

MStatus MGlobal::getActiveSelectionList(MSelectionList& list, bool) {
    list.clear();
    for (const SelectionItem& item : Host::instance().scene().selection().items()) {
        ApiAccess::append(list, item);
    }
    return MStatus::kSuccess;
}

MStatus MGlobal::setActiveSelectionList(const MSelectionList& list, ListAdjustment adjustment) {
    adjust(ApiAccess::items(list), adjustment);
    return MStatus::kSuccess;
}

MStatus MGlobal::getSelectionListByName(const MString& name, MSelectionList& list) {
    MSelectionList found;
    const MStatus status = found.add(name);
    if (status == MStatus::kSuccess) {
        list = found;
    }
    return status;
}

MStatus MGlobal::selectByName(const MString& name, ListAdjustment adjustment) {
    MSelectionList list;
    const MStatus added = list.add(name);
    return adjustWith(list, added, adjustment);
}

MStatus MGlobal::select(const MObject& node, ListAdjustment adjustment) {
    MSelectionList list;
    const MStatus added = list.add(node);
    return adjustWith(list, added, adjustment);
}

MStatus MGlobal::select(const MDagPath& path, const MObject& component, ListAdjustment adjustment) {
    MSelectionList list;
    const MStatus added = list.add(path, component);
    return adjustWith(list, added, adjustment);
}

MStatus MGlobal::unselect(const MObject& node) {
    return select(node, kRemoveFromList);
}

MStatus MGlobal::unselect(const MDagPath& path, const MObject& component) {
    return select(path, component, kRemoveFromList);
}

MStatus MGlobal::clearSelectionList() {
    Host::instance().scene().selection().clear();
    return MStatus::kSuccess;
}

MStatus MGlobal::viewFrame(const MTime& time) {
    Host::instance().setCurrentTime(host::api::TimeTicks::of(time));
    return MStatus::kSuccess;
}

MStatus MGlobal::viewFrame(double frame) {
    return viewFrame(MTime(frame, MTime::uiUnit()));
}
