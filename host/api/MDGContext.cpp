#include <maya/MDGContext.h>

#include "host/api/Host.h"
#include "host/api/statusResult.h"
#include "host/api/values/TimeTicks.h"

#include <maya/MDGContextGuard.h>

#include <optional>

using host::Host;
using host::succeed;
using host::api::TimeTicks;

const MDGContext MDGContext::fsNormal;

MDGContext::MDGContext() = default;
MDGContext::MDGContext(const MTime& when) : normal_(false), time_(when) {}

bool MDGContext::isNormal(MStatus* ReturnStatus) const {
    return succeed(ReturnStatus, normal_);
}

MStatus MDGContext::getTime(MTime& time) const {
    if (normal_) {
        return MStatus::kFailure;
    }
    time = time_;
    return MStatus::kSuccess;
}

bool MDGContext::isCurrent(MStatus* ReturnStatus) const {
    const std::optional<host::Ticks> contextTime = Host::instance().contextTime();
    return succeed(ReturnStatus, normal_ ? !contextTime : contextTime == TimeTicks::of(time_));
}

MDGContext MDGContext::makeCurrent(MStatus* ReturnStatus) const {
    const MDGContext previous = current();
    Host::instance().setContextTime(normal_ ? std::nullopt : std::optional<host::Ticks>(TimeTicks::of(time_)));
    return succeed(ReturnStatus, previous);
}

MDGContext MDGContext::current(MStatus* ReturnStatus) {
    const std::optional<host::Ticks> contextTime = Host::instance().contextTime();
    const MDGContext context = contextTime ? MDGContext(TimeTicks::time(*contextTime, MTime::uiUnit())) : MDGContext();
    return succeed(ReturnStatus, context);
}

MDGContextGuard::MDGContextGuard(const MDGContext& context) : previous_(context.makeCurrent()) {}

MDGContextGuard::~MDGContextGuard() {
    previous_.makeCurrent();
}
