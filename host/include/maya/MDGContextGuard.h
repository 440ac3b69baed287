#pragma once

#include <maya/MDGContext.h>

/// Evaluates plugs in a context of its own from construction to destruction.
class MDGContextGuard {
public:
    explicit MDGContextGuard(const MDGContext& context);
    ~MDGContextGuard();
    MDGContextGuard(const MDGContextGuard&) = delete;
    MDGContextGuard& operator=(const MDGContextGuard&) = delete;

    const MDGContext& prevContext() const { return previous_; }

private:
    MDGContext previous_;
};
