#pragma once

#include <maya/MStatus.h>
#include <maya/MTime.h>

/// When a plug is evaluated: at the current time (the normal context) or at a time of its own.
class MDGContext {
public:
    MDGContext();
    explicit MDGContext(const MTime& when);

    bool isNormal(MStatus* ReturnStatus = nullptr) const;
    /// Fails for the normal context, which has no time of its own.
    MStatus getTime(MTime& time) const;
    /// Whether plugs that are read without a context are evaluated in this one.
    bool isCurrent(MStatus* ReturnStatus = nullptr) const;
    /// Makes it the context of plugs that are read without one, and returns the one that was. MDGContextGuard does so
    /// for a scope.
    MDGContext makeCurrent(MStatus* ReturnStatus = nullptr) const;
    static MDGContext current(MStatus* ReturnStatus = nullptr);

    static const MDGContext fsNormal;

private:
    bool normal_ = true;
    MTime time_;
};
