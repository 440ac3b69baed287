#include <maya/MFnData.h>

MFnData::MFnData() = default;
MFnData::~MFnData() = default;

MFn::Type MFnData::type() const {
    return MFn::kData;
}
