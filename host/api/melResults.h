#pragma once

#include "host/mel/Value.h"

#include <maya/MDoubleArray.h>
#include <maya/MIntArray.h>
#include <maya/MMatrix.h>
#include <maya/MStatus.h>
#include <maya/MString.h>
#include <maya/MStringArray.h>
#include <maya/MVector.h>
#include <maya/MVectorArray.h>

namespace host {

/// A MEL value as a type of the API. kFailure, and `result` untouched, when it does not fit: an integer fits a double
/// and, if it is not too large, an int; a single value fits an array of its kind; nothing else is converted.
MStatus takeResult(const mel::Value& value, int& result);
MStatus takeResult(const mel::Value& value, MIntArray& result);
MStatus takeResult(const mel::Value& value, double& result);
MStatus takeResult(const mel::Value& value, MDoubleArray& result);
MStatus takeResult(const mel::Value& value, MString& result);
MStatus takeResult(const mel::Value& value, MStringArray& result);
MStatus takeResult(const mel::Value& value, MVector& result);
MStatus takeResult(const mel::Value& value, MVectorArray& result);
MStatus takeResult(const mel::Value& value, MMatrix& result);

} // namespace host
