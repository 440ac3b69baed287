#include "host/app/verify/sceneValues.h"

#include <maya/MAnimControl.h>
#include <maya/MFnMatrixData.h>
#include <maya/MTime.h>

namespace host::app::verify {

Imath::M44d matrixOf(const MMatrix& matrix, double magnify) {
    Imath::M44d result;
    for (unsigned int r = 0; r < 4; ++r) {
        for (unsigned int c = 0; c < 4; ++c) {
            result[static_cast<int>(r)][static_cast<int>(c)] = matrix(r, c) * (r == 3 && c < 3 ? magnify : 1.0);
        }
    }
    return result;
}

Imath::M44d matrixOf(const MPlug& plug, double magnify) {
    MObject data;
    if (plug.isNull() || plug.getValue(data) != MStatus::kSuccess || !data.hasFn(MFn::kMatrixData)) {
        return {};
    }
    return matrixOf(MFnMatrixData(data).matrix(), magnify);
}

MPlug driverOf(const MPlug& plug) {
    return plug.isNull() ? MPlug() : plug.source();
}

std::string nameOf(const MObject& node) {
    return MFnDependencyNode(node).name().asUTF8();
}

void goTo(double frame) {
    MAnimControl::setCurrentTime(MTime(frame, MTime::uiUnit()));
}

} // namespace host::app::verify
