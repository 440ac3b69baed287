#pragma once

#include <maya/MCommandResult.h>
#include <maya/MDoubleArray.h>
#include <maya/MIntArray.h>
#include <maya/MMatrix.h>
#include <maya/MSelectionList.h>
#include <maya/MStatus.h>
#include <maya/MString.h>
#include <maya/MStringArray.h>
#include <maya/MTime.h>
#include <maya/MVector.h>
#include <maya/MVectorArray.h>

/// Messages, MEL, the selection, and what the host says of itself.
class MGlobal {
public:
    enum MMayaState { kInteractive = 0, kBatch = 1, kLibraryApp = 2, kBaseUIMode = 3 };
    enum ListAdjustment {
        kReplaceList = 0,
        kXORWithList = 1,
        kAddToList = 2,
        kRemoveFromList = 3,
        kAddToHeadOfList = 4,
    };

    MGlobal() = delete;

    /// "2020-embedded".
    static MString mayaVersion();
    /// MAYA_API_VERSION of the host.
    static int apiVersion();
    static MMayaState mayaState(MStatus* ReturnStatus = nullptr);
    static bool isYAxisUp(MStatus* ReturnStatus = nullptr);

    static void displayInfo(const MString& message);
    static void displayWarning(const MString& message);
    static void displayError(const MString& message);

    /// Run MEL; displayEnabled shows the command as an info line first, and there is no undo. Fail when it ends in an error, whose text is shown as one, or when the result does not fit; the result
    /// is untouched then. An integer fits a double, a single value fits an array. A command without a result fits none.
    static MStatus executeCommand(const MString& command, bool displayEnabled = false, bool undoEnabled = false);
    static MStatus executeCommand(const MString& command, MCommandResult& result, bool displayEnabled = false,
                                  bool undoEnabled = false);
    static MStatus executeCommand(const MString& command, int& result, bool displayEnabled = false,
                                  bool undoEnabled = false);
    static MStatus executeCommand(const MString& command, MIntArray& result, bool displayEnabled = false,
                                  bool undoEnabled = false);
    static MStatus executeCommand(const MString& command, double& result, bool displayEnabled = false,
                                  bool undoEnabled = false);
    static MStatus executeCommand(const MString& command, MDoubleArray& result, bool displayEnabled = false,
                                  bool undoEnabled = false);
    static MStatus executeCommand(const MString& command, MString& result, bool displayEnabled = false,
                                  bool undoEnabled = false);
    static MStatus executeCommand(const MString& command, MStringArray& result, bool displayEnabled = false,
                                  bool undoEnabled = false);
    static MStatus executeCommand(const MString& command, MVector& result, bool displayEnabled = false,
                                  bool undoEnabled = false);
    static MStatus executeCommand(const MString& command, MVectorArray& result, bool displayEnabled = false,
                                  bool undoEnabled = false);
    static MStatus executeCommand(const MString& command, MMatrix& result, bool displayEnabled = false,
                                  bool undoEnabled = false);
    static MString executeCommandStringResult(const MString& command, bool displayEnabled = false,
                                              bool undoEnabled = false, MStatus* ReturnStatus = nullptr);
    static MStatus sourceFile(const MString& fileName);

    /// Selected DAG nodes come as paths to what was selected: transforms, shapes, components.
    static MStatus getActiveSelectionList(MSelectionList& list, bool orderedSelectionIfAvailable = false);
    static MStatus setActiveSelectionList(const MSelectionList& list, ListAdjustment adjustment = kReplaceList);
    static MStatus getSelectionListByName(const MString& name, MSelectionList& list);
    static MStatus selectByName(const MString& name, ListAdjustment adjustment = kAddToList);
    static MStatus select(const MObject& node, ListAdjustment adjustment = kAddToList);
    static MStatus select(const MDagPath& path, const MObject& component = MObject::kNullObj,
                          ListAdjustment adjustment = kAddToList);
    static MStatus unselect(const MObject& node);
    static MStatus unselect(const MDagPath& path, const MObject& component = MObject::kNullObj);
    static MStatus clearSelectionList();

    /// Sets the current time.
    static MStatus viewFrame(const MTime& time);
    static MStatus viewFrame(double frame);
};
