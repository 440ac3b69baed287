#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace tvk {

/// What a record is sorted by: its name as it is written, then whatever tells records of one name apart.
struct NameKey {
    std::string name;
    std::string tieBreak;
};

/// A name as the files hold it: lists are sorted as their readers see them.
std::string writtenBytes(const std::string& name);

/// The places of the keys in ascending order, byte by byte; equal keys in the order of their places.
std::vector<int32_t> orderOf(const std::vector<NameKey>& keys);

} // namespace tvk
