#pragma once

#include <maya/MStatus.h>
#include <maya/MString.h>

/// The one line in which a plug-in shows how far it is. The program that runs the host decides whether anyone sees it;
/// the calls succeed anyway.
class MFeedbackLine {
public:
    MFeedbackLine() = delete;

    /// Text with value slots of the form ^6.3f: width 6, 3 decimals. Forgets the values of the format before.
    static MStatus setFormat(const MString& format);
    static MStatus setTitle(const MString& title);
    /// Fills the slot of that number, from 0; fails when it is negative or the value is no number.
    static MStatus setValue(short index, double value);
    static bool showFeedback();
    static MStatus setShowFeedback(bool show);
    static MStatus clear();
};
