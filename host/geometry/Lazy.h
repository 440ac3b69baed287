#pragma once

#include <memory>
#include <utility>

namespace host {

/// What an immutable object works out about itself when somebody asks for the first time. A copy of the object knows
/// nothing yet, since the copy is about to be changed. For one thread, as all of the host is.
template <typename T>
class Lazy {
public:
    Lazy() = default;
    Lazy(const Lazy&) {}
    Lazy& operator=(const Lazy&) {
        value_.reset();
        return *this;
    }
    Lazy(Lazy&&) noexcept = default;
    Lazy& operator=(Lazy&&) noexcept = default;
    ~Lazy() = default;

    template <typename Make>
    const T& get(Make&& make) const {
        if (value_ == nullptr) {
            value_ = std::make_unique<const T>(std::forward<Make>(make)());
        }
        return *value_;
    }

private:
    mutable std::unique_ptr<const T> value_;
};

} // namespace host
