#include <maya/MArgDatabase.h>

#include "host/api/Host.h"
#include "host/api/commandSyntax.h"
#include "host/api/statusResult.h"

namespace {

MStatus selectionOf(const MString& name, MSelectionList& result) {
    MSelectionList list;
    const MStatus status = list.add(name);
    if (status == MStatus::kSuccess) {
        result = list;
    }
    return status == MStatus::kSuccess ? status : MStatus(MStatus::kFailure);
}

} // namespace

MArgDatabase::MArgDatabase(const MSyntax& syntax, const MArgList& arguments, MStatus* ReturnStatus)
    : MArgParser(syntax, arguments, ReturnStatus) {
    if (!parsed()->isValid || parsed()->syntax.objects != MSyntax::kSelectionList) {
        return;
    }
    for (const MString& object : parsed()->objects) {
        std::vector<host::SelectionItem> items;
        const host::SceneResult found = host::Host::instance().scene().findItems(object.asChar(), items);
        if (!found.ok()) {
            host::Host::instance().error(found.error);
            host::report(ReturnStatus, MStatus::kFailure);
            return;
        }
    }
}

MArgDatabase::~MArgDatabase() = default;

MStatus MArgDatabase::getFlagArgument(const char* flag, unsigned int index, MSelectionList& result) const {
    MString name;
    const MStatus status = getFlagArgument(flag, index, name);
    return status == MStatus::kSuccess ? selectionOf(name, result) : status;
}

MStatus MArgDatabase::getCommandArgument(unsigned int index, MSelectionList& result) const {
    MString name;
    const MStatus status = getCommandArgument(index, name);
    return status == MStatus::kSuccess ? selectionOf(name, result) : status;
}

MStatus MArgDatabase::getObjects(MSelectionList& objects) const {
    if (!parsed()->isValid) {
        return MStatus::kFailure;
    }
    MSelectionList list;
    for (const MString& object : parsed()->objects) {
        if (list.add(object) != MStatus::kSuccess) {
            return MStatus::kFailure;
        }
    }
    objects = list;
    return MStatus::kSuccess;
}
