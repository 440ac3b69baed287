#include <maya/MFeedbackLine.h>

#include "host/api/Host.h"

#include <cmath>

using host::FeedbackLine;
using host::Host;

MStatus MFeedbackLine::setFormat(const MString& format) {
    Host::instance().feedbackLine().setFormat(format.asChar());
    return MStatus::kSuccess;
}

MStatus MFeedbackLine::setTitle(const MString& title) {
    Host::instance().feedbackLine().setTitle(title.asChar());
    return MStatus::kSuccess;
}

MStatus MFeedbackLine::setValue(short index, double value) {
    if (index < 0 || !std::isfinite(value)) {
        return MStatus::kInvalidParameter;
    }
    Host::instance().feedbackLine().setValue(index, value);
    return MStatus::kSuccess;
}

bool MFeedbackLine::showFeedback() {
    return Host::instance().feedbackLine().shown();
}

MStatus MFeedbackLine::setShowFeedback(bool show) {
    Host::instance().feedbackLine().setShown(show);
    return MStatus::kSuccess;
}

MStatus MFeedbackLine::clear() {
    Host::instance().feedbackLine().clear();
    return MStatus::kSuccess;
}
