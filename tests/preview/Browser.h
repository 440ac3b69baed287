#pragma once

#include "TemporaryFolder.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace tvk {

/// What a browser's window showed.
struct Shot {
    int width = 0, height = 0;
    std::vector<std::uint8_t> rgba;

    std::array<int, 3> at(int column, int row) const {
        const std::size_t start =
            (static_cast<std::size_t>(row) * static_cast<std::size_t>(width) + static_cast<std::size_t>(column)) * 4;
        return {rgba.at(start), rgba.at(start + 1), rgba.at(start + 2)};
    }
};

/// A headless Chromium that opens pages of a folder as files, without a server and without a network. Each page is
/// opened in a process of its own, which is ended when it takes too long: a test failure, like a picture that cannot be
/// had.
class Browser {
public:
    static constexpr int kWidth = 480, kHeight = 400;

    /// Where pages go, and what is beside them.
    std::string path(const std::string& name) const { return folder_.path(name); }
    void writePage(const std::string& html) const;

    /// The page with what stands behind '#' in its address.
    Shot shoot(const std::string& parameters) const;
    /// The page's elements after its scripts ran, as text; and after so much of the page's time, when given.
    std::string elements(const std::string& parameters, int milliseconds = 0) const;

private:
    std::string run(std::vector<std::string> arguments, const std::string& parameters) const;

    TemporaryFolder folder_;
};

} // namespace tvk
