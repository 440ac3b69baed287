#pragma once

#include <maya/MStatus.h>
#include <maya/MTypes.h>

namespace host::api {
struct TimeTicks;
}

/// A moment, kept as a whole number of ticks, 141,120,000 to the second, of which every unit here is a whole number
/// too; and the unit in which value() counts. Numbers are rounded to the nearest tick and saturate at 64 bits (about
/// 2,000 years); what is not a number counts as 0.
class MTime {
public:
    /// The units from kHours to k48000FPS are usable, all others are refused: a time made with one of them is 0 film
    /// frames, and as() gives 0.
    enum Unit {
        kInvalid = 0,
        kHours = 1,
        kMinutes = 2,
        kSeconds = 3,
        kMilliseconds = 4,
        kGames = 5,      // 15 frames per second
        kFilm = 6,       // 24
        kPALFrame = 7,   // 25
        kNTSCFrame = 8,  // 30
        kShowScan = 9,   // 48
        kPALField = 10,  // 50
        kNTSCField = 11, // 60
        k2FPS = 12,
        k3FPS = 13,
        k4FPS = 14,
        k5FPS = 15,
        k6FPS = 16,
        k8FPS = 17,
        k10FPS = 18,
        k12FPS = 19,
        k16FPS = 20,
        k20FPS = 21,
        k40FPS = 22,
        k75FPS = 23,
        k80FPS = 24,
        k100FPS = 25,
        k120FPS = 26,
        k125FPS = 27,
        k150FPS = 28,
        k200FPS = 29,
        k240FPS = 30,
        k250FPS = 31,
        k300FPS = 32,
        k375FPS = 33,
        k400FPS = 34,
        k500FPS = 35,
        k600FPS = 36,
        k750FPS = 37,
        k1200FPS = 38,
        k1500FPS = 39,
        k2000FPS = 40,
        k3000FPS = 41,
        k6000FPS = 42,
        k23_976FPS = 43, // 24000 / 1001
        k29_97FPS = 44,  // 30000 / 1001
        k29_97DF = 45,   // the same rate; its time code drops frames
        k47_952FPS = 46, // 48000 / 1001
        k59_94FPS = 47,  // 60000 / 1001
        k44100FPS = 48,
        k48000FPS = 49,
        kUserDef = 50,
        kLast = 51
    };

    constexpr MTime() = default;
    MTime(double value, Unit unit = kFilm);

    double as(Unit unit) const;
    double asUnits(Unit unit) const { return as(unit); }
    double value() const { return as(unit_); }
    Unit unit() const { return unit_; }
    /// The same moment, counted in another unit. Refused with kInvalidParameter when the unit is not usable.
    MStatus setUnit(Unit unit);
    /// In the unit of this time.
    MStatus setValue(double value);
    MTime& operator=(double value);

    /// The unit of the user interface and of scripts.
    static Unit uiUnit();
    static MStatus setUIUnit(Unit unit);

    /// Sums and differences have the unit of the left time; plain numbers count in it.
    MTime operator+(const MTime& other) const;
    MTime operator-(const MTime& other) const;
    MTime operator+(double value) const;
    MTime operator-(double value) const;
    MTime operator-() const;
    MTime operator*(double factor) const;
    MTime operator/(double divisor) const;
    friend MTime operator*(double factor, const MTime& time);
    double operator/(const MTime& other) const; // how often the other fits
    MTime& operator+=(const MTime& other);
    MTime& operator-=(const MTime& other);
    MTime& operator+=(double value);
    MTime& operator-=(double value);
    MTime& operator*=(double factor);
    MTime& operator/=(double divisor);
    /// One unit on or back.
    MTime& operator++();
    MTime operator++(int);
    MTime& operator--();
    MTime operator--(int);

    /// The moments are compared, whatever the units.
    bool operator==(const MTime& other) const { return ticks_ == other.ticks_; }
    bool operator!=(const MTime& other) const { return ticks_ != other.ticks_; }
    bool operator<(const MTime& other) const { return ticks_ < other.ticks_; }
    bool operator<=(const MTime& other) const { return ticks_ <= other.ticks_; }
    bool operator>(const MTime& other) const { return ticks_ > other.ticks_; }
    bool operator>=(const MTime& other) const { return ticks_ >= other.ticks_; }

private:
    friend struct host::api::TimeTicks;

    MInt64 ticks_ = 0;
    Unit unit_ = kFilm;
};
