#pragma once

#include "LiteralPool.h"
#include "animation/steppedEncoding.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <vector>

namespace tvk {

/// What stepped encoding is, word for word and without any cleverness: the judge of the fast one.
struct LiteralEncoder {
    LiteralPool pool;

    AnimTrack encode(const std::vector<int32_t>& v, const StepRule& rule) {
        AnimTrack track;
        const auto n = static_cast<int32_t>(v.size());
        const auto distance = [](int64_t a, int64_t b) { return std::llabs(a - b); };
        bool constant = true;
        for (const int32_t value : v) {
            constant = constant && (value == v[0] || distance(value, v[0]) < rule.tolerance);
        }
        int32_t step = 1;
        if (!constant && n >= 3) {
            step = rule.mode == kStepTwo ? 2 : rule.mode == kStepFour ? 4 : 1;
            if (rule.mode == kStepAuto) {
                int32_t s = 2;
                while (true) {
                    if (n <= s) {
                        step = s / 2;
                        break;
                    }
                    const std::vector<int32_t> d = layout(v, s);
                    bool good = true;
                    for (int32_t f = 0; f < n && good; ++f) {
                        const int64_t error = distance(v[static_cast<std::size_t>(f)], read(d, s, n, f, rule.isAngle));
                        good = error == 0 || error < rule.tolerance;
                    }
                    if (!good) {
                        step = s / 2;
                        break;
                    }
                    s *= 2;
                    if (s > 4) {
                        step = 4;
                        break;
                    }
                }
            }
        }
        std::vector<int32_t> stored = constant ? std::vector<int32_t>{v[0]} : layout(v, step);
        track.constant = std::all_of(stored.begin(), stored.end(), [&](int32_t value) { return value == v[0]; });
        if (track.constant) {
            stored = {v[0]};
        }
        track.frameStep = track.constant ? 1 : step;
        track.dataSize = static_cast<int32_t>(stored.size());
        track.dataHead = pool.findOrAppend(stored);
        return track;
    }

    static std::vector<int32_t> layout(const std::vector<int32_t>& v, int32_t s) {
        std::vector<int32_t> stored;
        const auto n = static_cast<int32_t>(v.size());
        int32_t i = 0;
        for (; i < n - s; i += s) {
            stored.push_back(v[static_cast<std::size_t>(i)]);
        }
        for (; i < n; ++i) {
            stored.push_back(v[static_cast<std::size_t>(i)]);
        }
        return stored;
    }

    static int32_t read(const std::vector<int32_t>& d, int32_t s, int32_t n, int32_t f, bool angle) {
        const int k = s == 4 ? 2 : s == 2 ? 1 : 0;
        const int32_t l = ((n - 1) >> k) << k;
        if (f >= l) {
            return d[static_cast<std::size_t>((f >> k) + (f - l))];
        }
        int64_t a = d[static_cast<std::size_t>(f >> k)];
        int64_t b = d[static_cast<std::size_t>((f >> k) + 1)];
        const int32_t r = f - ((f >> k) << k);
        if (r == 0) {
            return static_cast<int32_t>(a);
        }
        const bool far = angle && std::llabs(a - b) >= 737280;
        if (far && a <= b) {
            a += 1474560;
        } else if (far) {
            b += 1474560;
        }
        int32_t result = static_cast<int32_t>(static_cast<uint32_t>(r * b + (s - r) * a)) >> k;
        if (far && result >= 737280) {
            result -= 1474560;
        }
        return result;
    }
};

} // namespace tvk
