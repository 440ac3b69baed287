#pragma once

#include <maya/MTime.h>

namespace host::api {

/// For the host's own side: times as ticks, kPerSecond of them to the second.
struct TimeTicks {
    static constexpr MInt64 kPerSecond = 141120000;

    static MInt64 of(const MTime& time) { return time.ticks_; }
    /// `unit` is a usable one.
    static MTime time(MInt64 ticks, MTime::Unit unit);
    /// Ticks of one unit; 0 when the unit is not usable.
    static MInt64 perUnit(MTime::Unit unit);
};

} // namespace host::api
