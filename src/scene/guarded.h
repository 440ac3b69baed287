#pragma once

#include <maya/MStatus.h>

#include <exception>

namespace tvk {

/// Runs what the host called and lets nothing be thrown back into it, where nobody would catch it.
///   step    returns MStatus
///   report  gets one line that says why, when the step threw; the result is then a failure
template <typename Step, typename Report>
[[nodiscard]] MStatus guarded(Step step, Report report) {
    try {
        return step();
    } catch (const std::exception& exception) {
        report(exception.what());
    } catch (...) {
        report("unknown reason");
    }
    return MS::kFailure;
}

} // namespace tvk
