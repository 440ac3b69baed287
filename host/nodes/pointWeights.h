#pragma once

#include "host/graph/Evaluation.h"

#include <cstddef>
#include <cstdint>

namespace host {

/// Numbers per point that are 1 where nothing is stored or connected: an array of a deformer, as it is now.
class PointWeights {
public:
    /// `array`: the address of the whole array.
    PointWeights(Evaluation& evaluation, Node& node, const PlugAddress& array)
        : evaluation_(evaluation), plug_{&node, array}, rows_(evaluation.graph().storedRows(plug_)),
          isDriven_(evaluation.graph().isDriven(plug_)) {}

    double of(std::size_t point) const {
        const auto at = static_cast<std::int32_t>(point);
        if (isDriven_) {
            return evaluation_.number(*plug_.node, plug_.at.element(at));
        }
        const std::ptrdiff_t row = rows_ != nullptr ? rows_->findRow(at) : -1;
        return row >= 0 ? rows_->value(static_cast<std::size_t>(row), 0) : 1.0;
    }

private:
    Evaluation& evaluation_;
    Plug plug_;
    const NumberRows* rows_;
    bool isDriven_;
};

} // namespace host
