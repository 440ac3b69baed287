#pragma once

#include <maya/MArgParser.h>
#include <maya/MSelectionList.h>

/// MArgParser that also knows the scene: selection items and objects as nodes.
class MArgDatabase : public MArgParser {
public:
    /// Fails also when an object that the syntax wants as a node does not exist.
    MArgDatabase(const MSyntax& syntax, const MArgList& arguments, MStatus* ReturnStatus = nullptr);
    ~MArgDatabase() override;

    using MArgParser::getCommandArgument;
    using MArgParser::getFlagArgument;
    using MArgParser::getObjects;
    MStatus getFlagArgument(const char* flag, unsigned int index, MSelectionList& result) const;
    MStatus getCommandArgument(unsigned int index, MSelectionList& result) const;
    MStatus getObjects(MSelectionList& objects) const;
};
