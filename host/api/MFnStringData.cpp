#include <maya/MFnStringData.h>

#include "host/api/ApiAccess.h"
#include "host/api/statusResult.h"

using host::ApiAccess;
using host::fail;
using host::succeed;

MFnStringData::MFnStringData() = default;
MFnStringData::~MFnStringData() = default;

MFnStringData::MFnStringData(const MObject& object, MStatus* ReturnStatus) {
    host::report(ReturnStatus, MFnStringData::setObject(object));
}

namespace {

std::string* textOf(const MObject& object) {
    host::DataObject* data = ApiAccess::data(object);
    return data != nullptr ? std::get_if<std::string>(&data->value) : nullptr;
}

} // namespace

MFn::Type MFnStringData::type() const {
    return MFn::kStringData;
}

MString MFnStringData::string(MStatus* ReturnStatus) const {
    const std::string* text = textOf(object_);
    return text != nullptr ? succeed(ReturnStatus, MString(text->c_str()))
                           : fail<MString>(ReturnStatus, MStatus::kFailure);
}

MStatus MFnStringData::set(const MString& value) {
    std::string* text = textOf(object_);
    if (text == nullptr) {
        return MStatus::kFailure;
    }
    *text = value.asChar();
    return MStatus::kSuccess;
}

MObject MFnStringData::create(MStatus* ReturnStatus) {
    return create(MString(), ReturnStatus);
}

MObject MFnStringData::create(const MString& value, MStatus* ReturnStatus) {
    object_ = ApiAccess::object(host::ObjectPayload{host::DataObject{std::string(value.asChar())}});
    return succeed(ReturnStatus, object_);
}
