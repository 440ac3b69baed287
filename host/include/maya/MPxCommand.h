#pragma once

#include <maya/MArgList.h>
#include <maya/MDoubleArray.h>
#include <maya/MIntArray.h>
#include <maya/MStatus.h>
#include <maya/MString.h>
#include <maya/MStringArray.h>
#include <maya/MSyntax.h>

/// Base of MEL commands that a plug-in adds. The host makes an object for each call, runs doIt and deletes the object;
/// there is no undo without a user interface.
class MPxCommand {
public:
    MPxCommand();
    virtual ~MPxCommand();
    MPxCommand(const MPxCommand&) = delete;
    MPxCommand& operator=(const MPxCommand&) = delete;

    virtual MStatus doIt(const MArgList& arguments); // fails
    virtual MStatus undoIt();                        // fails
    virtual MStatus redoIt();                        // fails
    virtual bool isUndoable() const;                 // false
    virtual bool hasSyntax() const;                  // false
    /// What the syntax creator given at registration returned.
    MSyntax syntax() const;

    /// The result of the command that runs; lost when it fails. No effect when none runs.
    static void setResult(bool value);
    static void setResult(int value);
    static void setResult(unsigned int value);
    static void setResult(double value);
    static void setResult(const MString& value);
    static void setResult(const char* value);
    static void setResult(const MIntArray& value);
    static void setResult(const MDoubleArray& value);
    static void setResult(const MStringArray& value);
    /// A result of the same kind becomes an array of one element more; one of another kind is replaced.
    static void appendToResult(int value);
    static void appendToResult(double value);
    static void appendToResult(const MString& value);
    static void appendToResult(const char* value);
    static void clearResult();

    static void displayInfo(const MString& text, bool wantLineNumber = false);
    static void displayWarning(const MString& text, bool wantLineNumber = false);
    static void displayError(const MString& text, bool wantLineNumber = false);

private:
    friend class host::ApiAccess;
    MSyntax syntax_;
};
