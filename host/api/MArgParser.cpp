#include <maya/MArgParser.h>

#include "host/api/ApiAccess.h"
#include "host/api/Host.h"
#include "host/api/argumentValues.h"
#include "host/api/commandSyntax.h"
#include "host/api/statusResult.h"

#include <maya/MGlobal.h>

#include <algorithm>

using host::ApiAccess;
using host::fail;
using host::ParsedArguments;
using host::succeed;

namespace {

std::string nameOf(const char* flag) {
    return flag != nullptr ? flag : "";
}

/// The names of what is selected, for a command that takes the selection when no objects were given.
void takeSelection(ParsedArguments& parsed) {
    MSelectionList selection;
    MStringArray names;
    MGlobal::getActiveSelectionList(selection);
    selection.getSelectionStrings(names);
    for (unsigned int i = 0; i < names.length(); ++i) {
        parsed.objects.push_back(names[i]);
    }
}

} // namespace

MArgParser::MArgParser(const MSyntax& syntax, const MArgList& arguments, MStatus* ReturnStatus)
    : parsed_(std::make_unique<ParsedArguments>()) {
    const auto error = host::parseArguments(ApiAccess::syntax(syntax), arguments, *parsed_);
    if (error) {
        host::Host::instance().error(*error);
    } else if (parsed_->syntax.selectionAsDefault && parsed_->objects.empty()) {
        takeSelection(*parsed_);
    }
    host::report(ReturnStatus, error ? MStatus::kFailure : MStatus::kSuccess);
}

MArgParser::~MArgParser() = default;

bool MArgParser::isFlagSet(const char* flag, MStatus* ReturnStatus) const {
    const bool isKnown = parsed_->isValid && parsed_->syntax.find(nameOf(flag)) != parsed_->syntax.flags.size();
    return isKnown ? succeed(ReturnStatus, parsed_->use(nameOf(flag)) != nullptr)
                   : fail<bool>(ReturnStatus, MStatus::kInvalidParameter);
}

bool MArgParser::isEdit(MStatus* ReturnStatus) const {
    return succeed(ReturnStatus, parsed_->isEdit);
}

bool MArgParser::isQuery(MStatus* ReturnStatus) const {
    return succeed(ReturnStatus, parsed_->isQuery);
}

unsigned int MArgParser::numberOfFlagsUsed() const {
    return static_cast<unsigned int>(parsed_->uses.size());
}

unsigned int MArgParser::numberOfFlagUses(const char* flag) const {
    const std::size_t row = parsed_->syntax.find(nameOf(flag));
    return static_cast<unsigned int>(
        std::count_if(parsed_->uses.begin(), parsed_->uses.end(), [&](const auto& use) { return use.flag == row; }));
}

MStatus MArgParser::getFlagArgumentList(const char* flag, unsigned int use, MArgList& arguments) const {
    const ParsedArguments::Use* found = parsed_->isValid ? parsed_->use(nameOf(flag), use) : nullptr;
    if (found == nullptr) {
        return MStatus::kFailure;
    }
    MArgList list;
    for (const MString& value : found->values) {
        list.addArg(value);
    }
    arguments = list;
    return MStatus::kSuccess;
}

MStatus MArgParser::getObjects(MStringArray& objects) const {
    if (!parsed_->isValid) {
        return MStatus::kFailure;
    }
    objects.clear();
    for (const MString& object : parsed_->objects) {
        objects.append(object);
    }
    return MStatus::kSuccess;
}

// What has one form per type of value. NOLINTBEGIN(readability-identifier-naming,bugprone-macro-parentheses): they are
// members of this class, and types cannot stand in parentheses.
#define HOST_FLAG_FORMS(type)                                                                                          \
    MStatus MArgParser::getFlagArgument(const char* flag, unsigned int index, type& result) const {                    \
        return host::takeFlagArgument(*parsed_, flag, index, result);                                                  \
    }
#define HOST_COMMAND_FORMS(type)                                                                                       \
    MStatus MArgParser::getCommandArgument(unsigned int index, type& result) const {                                   \
        return host::takeCommandArgument(*parsed_, index, result);                                                     \
    }
#define HOST_RESULT_FORMS(type, name)                                                                                  \
    type MArgParser::name(const char* flag, unsigned int index, MStatus* ReturnStatus) const {                         \
        type result{};                                                                                                 \
        host::report(ReturnStatus, getFlagArgument(flag, index, result));                                              \
        return result;                                                                                                 \
    }

HOST_FLAG_FORMS(bool)
HOST_FLAG_FORMS(int)
HOST_FLAG_FORMS(double)
HOST_FLAG_FORMS(MString)
HOST_FLAG_FORMS(unsigned int)
HOST_FLAG_FORMS(MDistance)
HOST_FLAG_FORMS(MAngle)
HOST_FLAG_FORMS(MTime)

HOST_COMMAND_FORMS(bool)
HOST_COMMAND_FORMS(int)
HOST_COMMAND_FORMS(double)
HOST_COMMAND_FORMS(MString)
HOST_COMMAND_FORMS(MDistance)
HOST_COMMAND_FORMS(MAngle)
HOST_COMMAND_FORMS(MTime)

HOST_RESULT_FORMS(bool, flagArgumentBool)
HOST_RESULT_FORMS(int, flagArgumentInt)
HOST_RESULT_FORMS(double, flagArgumentDouble)
HOST_RESULT_FORMS(MString, flagArgumentString)

#undef HOST_FLAG_FORMS
#undef HOST_COMMAND_FORMS
#undef HOST_RESULT_FORMS
// NOLINTEND(readability-identifier-naming,bugprone-macro-parentheses)
