#pragma once

#include <maya/MAngle.h>
#include <maya/MArgList.h>
#include <maya/MDistance.h>
#include <maya/MStatus.h>
#include <maya/MString.h>
#include <maya/MStringArray.h>
#include <maya/MSyntax.h>
#include <maya/MTime.h>

#include <memory>

namespace host {
struct ParsedArguments;
}

/// The arguments of a command, sorted by its syntax. Lengths, angles and times are counted in the units of the user
/// interface, as in MEL.
class MArgParser {
public:
    /// Fails, and shows why as an error, for unknown flags, missing, wrong or too many values, and flags given twice
    /// that are not multi-use. Every question fails then.
    MArgParser(const MSyntax& syntax, const MArgList& arguments, MStatus* ReturnStatus = nullptr);
    virtual ~MArgParser();
    MArgParser(const MArgParser&) = delete;
    MArgParser& operator=(const MArgParser&) = delete;

    /// Flags by short or long name, with or without '-'. False for flags that the syntax has not, with
    /// kInvalidParameter.
    bool isFlagSet(const char* flag, MStatus* ReturnStatus = nullptr) const;
    bool isEdit(MStatus* ReturnStatus = nullptr) const;
    bool isQuery(MStatus* ReturnStatus = nullptr) const;
    unsigned int numberOfFlagsUsed() const;
    unsigned int numberOfFlagUses(const char* flag) const;

    /// Argument `index` of the flag's first use; kFailure when it is not set or has not so many, or the value does not
    /// fit.
    MStatus getFlagArgument(const char* flag, unsigned int index, bool& result) const;
    MStatus getFlagArgument(const char* flag, unsigned int index, int& result) const;
    MStatus getFlagArgument(const char* flag, unsigned int index, double& result) const;
    MStatus getFlagArgument(const char* flag, unsigned int index, MString& result) const;
    MStatus getFlagArgument(const char* flag, unsigned int index, unsigned int& result) const;
    MStatus getFlagArgument(const char* flag, unsigned int index, MDistance& result) const;
    MStatus getFlagArgument(const char* flag, unsigned int index, MAngle& result) const;
    MStatus getFlagArgument(const char* flag, unsigned int index, MTime& result) const;
    bool flagArgumentBool(const char* flag, unsigned int index, MStatus* ReturnStatus = nullptr) const;
    int flagArgumentInt(const char* flag, unsigned int index, MStatus* ReturnStatus = nullptr) const;
    double flagArgumentDouble(const char* flag, unsigned int index, MStatus* ReturnStatus = nullptr) const;
    MString flagArgumentString(const char* flag, unsigned int index, MStatus* ReturnStatus = nullptr) const;

    /// All arguments of one use of a flag, from 0; appended to nothing.
    MStatus getFlagArgumentList(const char* flag, unsigned int use, MArgList& arguments) const;

    /// Arguments that belong to no flag, as declared with MSyntax::addArg.
    MStatus getCommandArgument(unsigned int index, bool& result) const;
    MStatus getCommandArgument(unsigned int index, int& result) const;
    MStatus getCommandArgument(unsigned int index, double& result) const;
    MStatus getCommandArgument(unsigned int index, MString& result) const;
    MStatus getCommandArgument(unsigned int index, MDistance& result) const;
    MStatus getCommandArgument(unsigned int index, MAngle& result) const;
    MStatus getCommandArgument(unsigned int index, MTime& result) const;

    /// Replaced by the objects given, or by the selection when the syntax says so and none were.
    MStatus getObjects(MStringArray& objects) const;

protected:
    friend class host::ApiAccess;
    const host::ParsedArguments* parsed() const { return parsed_.get(); }

private:
    std::unique_ptr<host::ParsedArguments> parsed_;
};
