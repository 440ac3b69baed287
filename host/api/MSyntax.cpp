#include <maya/MSyntax.h>

#include "host/api/commandSyntax.h"
#include "host/api/statusResult.h"

#include <array>
#include <cctype>
#include <string>

using host::CommandSyntax;
using host::succeed;

MSyntax::MSyntax() : syntax_(std::make_unique<CommandSyntax>()) {}
MSyntax::MSyntax(const MSyntax& other) : syntax_(std::make_unique<CommandSyntax>(*other.syntax_)) {}
MSyntax::~MSyntax() = default;

MSyntax& MSyntax::operator=(const MSyntax& other) {
    *syntax_ = *other.syntax_;
    return *this;
}

namespace {

constexpr std::size_t kLongestShortName = 3;
constexpr std::size_t kShortestLongName = 4;

std::string bareName(const char* name) {
    const std::string text = name != nullptr ? name : "";
    return !text.empty() && text.front() == '-' ? text.substr(1) : text;
}

bool isName(const std::string& name) {
    return !name.empty() && std::isalpha(static_cast<unsigned char>(name.front())) != 0;
}

bool isValueType(MSyntax::MArgType type) {
    return type > MSyntax::kNoArg && type < MSyntax::kLastArgType;
}

} // namespace

MStatus MSyntax::addFlag(const char* shortName, const char* longName, MArgType argType1, MArgType argType2,
                         MArgType argType3, MArgType argType4, MArgType argType5, MArgType argType6) {
    CommandSyntax::Flag flag;
    flag.shortName = bareName(shortName);
    flag.longName = bareName(longName);
    const std::size_t none = syntax_->flags.size();
    const bool areNames = isName(flag.shortName) && flag.shortName.size() <= kLongestShortName &&
                          isName(flag.longName) && flag.longName.size() >= kShortestLongName;
    if (!areNames || syntax_->find(flag.shortName) != none || syntax_->find(flag.longName) != none) {
        return MStatus::kInvalidParameter;
    }
    for (const MArgType type : {argType1, argType2, argType3, argType4, argType5, argType6}) {
        if (type == kNoArg) {
            break;
        }
        if (!isValueType(type)) {
            return MStatus::kInvalidParameter;
        }
        flag.arguments.push_back(type);
    }
    syntax_->flags.push_back(flag);
    return MStatus::kSuccess;
}

MStatus MSyntax::makeFlagMultiUse(const char* name) {
    const std::size_t row = syntax_->find(bareName(name));
    if (row == syntax_->flags.size()) {
        return MStatus::kInvalidParameter;
    }
    syntax_->flags[row].multiUse = true;
    return MStatus::kSuccess;
}

MStatus MSyntax::makeFlagQueryWithFullArgs(const char* name, bool argumentsAreOptional) {
    const std::size_t row = syntax_->find(bareName(name));
    if (row == syntax_->flags.size()) {
        return MStatus::kInvalidParameter;
    }
    syntax_->flags[row].keepsArgumentsInQuery = true;
    syntax_->flags[row].lacksArgumentsInQuery = argumentsAreOptional;
    return MStatus::kSuccess;
}

MStatus MSyntax::addArg(MArgType type) {
    if (!isValueType(type)) {
        return MStatus::kInvalidParameter;
    }
    syntax_->arguments.push_back(type);
    return MStatus::kSuccess;
}

void MSyntax::enableQuery(bool supportsQuery) {
    syntax_->query = supportsQuery;
}

void MSyntax::enableEdit(bool supportsEdit) {
    syntax_->edit = supportsEdit;
}

bool MSyntax::canQuery(MStatus* ReturnStatus) const {
    return succeed(ReturnStatus, syntax_->query);
}

bool MSyntax::canEdit(MStatus* ReturnStatus) const {
    return succeed(ReturnStatus, syntax_->edit);
}

void MSyntax::setObjectType(MObjectFormat format, unsigned int minimumObjects) {
    syntax_->objects = format;
    syntax_->minimumObjects = minimumObjects;
}

void MSyntax::setObjectType(MObjectFormat format, unsigned int minimumObjects, unsigned int maximumObjects) {
    setObjectType(format, minimumObjects);
    setMaxObjects(maximumObjects);
}

void MSyntax::setMinObjects(unsigned int minimumObjects) {
    syntax_->minimumObjects = minimumObjects;
}

void MSyntax::setMaxObjects(unsigned int maximumObjects) {
    syntax_->maximumObjects = maximumObjects;
}

void MSyntax::useSelectionAsDefault(bool use) {
    syntax_->selectionAsDefault = use;
}
