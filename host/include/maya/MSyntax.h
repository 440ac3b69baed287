#pragma once

#include <maya/MStatus.h>

#include <memory>

namespace host {
class ApiAccess;
struct CommandSyntax;
} // namespace host

/// The flags, arguments and objects that a command takes.
class MSyntax {
public:
    enum MArgType {
        kInvalidArgType = 0,
        kNoArg = 1,
        kBoolean = 2,
        kLong = 3,
        kDouble = 4,
        kString = 5,
        kUnsigned = 6,
        kDistance = 7,
        kAngle = 8,
        kTime = 9,
        kSelectionItem = 10,
        kLastArgType = 11,
    };
    enum MObjectFormat { kInvalidObjectFormat = 0, kNone = 1, kStringObjects = 2, kSelectionList = 3 };

    MSyntax();
    MSyntax(const MSyntax& other);
    ~MSyntax();
    MSyntax& operator=(const MSyntax& other);

    /// Names with or without '-'. kInvalidParameter when the short one has no or more than 3 characters, the long one
    /// fewer than 4, one of them begins with no letter or is taken, or an argument type is none.
    MStatus addFlag(const char* shortName, const char* longName, MArgType argType1 = kNoArg, MArgType argType2 = kNoArg,
                    MArgType argType3 = kNoArg, MArgType argType4 = kNoArg, MArgType argType5 = kNoArg,
                    MArgType argType6 = kNoArg);
    /// Fail when there is no such flag.
    MStatus makeFlagMultiUse(const char* name);
    MStatus makeFlagQueryWithFullArgs(const char* name, bool argumentsAreOptional);
    MStatus addArg(MArgType type);
    void enableQuery(bool supportsQuery = true);
    void enableEdit(bool supportsEdit = true);
    bool canQuery(MStatus* ReturnStatus = nullptr) const;
    bool canEdit(MStatus* ReturnStatus = nullptr) const;

    void setObjectType(MObjectFormat format, unsigned int minimumObjects = 0);
    void setObjectType(MObjectFormat format, unsigned int minimumObjects, unsigned int maximumObjects);
    void setMinObjects(unsigned int minimumObjects);
    void setMaxObjects(unsigned int maximumObjects);
    void useSelectionAsDefault(bool use = false);

private:
    friend class host::ApiAccess;
    std::unique_ptr<host::CommandSyntax> syntax_;
};
