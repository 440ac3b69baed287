#pragma once

#include <maya/MIteratorType.h>
#include <maya/MObject.h>

#include <vector>

namespace host {

/// The types that an iterator stops at; empty when it stops at everything.
std::vector<MFn::Type> filterOf(MFn::Type type);
std::vector<MFn::Type> filterOf(const MIteratorType& info);

bool passes(const std::vector<MFn::Type>& filter, const MObject& object);

} // namespace host
