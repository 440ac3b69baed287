#include <maya/MPxCommand.h>

#include "host/api/Host.h"

#include <maya/MGlobal.h>

#include <utility>

using host::Host;
namespace mel = host::mel;

MPxCommand::MPxCommand() = default;
MPxCommand::~MPxCommand() = default;

MStatus MPxCommand::doIt(const MArgList&) {
    return MStatus::kFailure;
}

MStatus MPxCommand::undoIt() {
    return MStatus::kFailure;
}

MStatus MPxCommand::redoIt() {
    return MStatus::kFailure;
}

bool MPxCommand::isUndoable() const {
    return false;
}

bool MPxCommand::hasSyntax() const {
    return false;
}

MSyntax MPxCommand::syntax() const {
    return syntax_;
}

namespace {

void setValue(mel::Value value) {
    if (mel::Value* result = Host::instance().commandResult) {
        *result = std::move(value);
    }
}

template <class Array, class Source>
Array elementsOf(const Source& source) {
    Array elements;
    for (unsigned int i = 0; i < source.length(); ++i) {
        elements.push_back(source[i]);
    }
    return elements;
}

// The result so far as an array of one kind; empty when it is of another.
mel::IntArray intsOf(const mel::Value& value) {
    return value.type() == mel::ValueType::kInt ? mel::IntArray{value.toInt()} : value.ints();
}

mel::FloatArray floatsOf(const mel::Value& value) {
    return value.type() == mel::ValueType::kFloat ? mel::FloatArray{value.toFloat()} : value.floats();
}

mel::StringArray stringsOf(const mel::Value& value) {
    return value.isString() ? mel::StringArray{value.text()} : value.strings();
}

template <class Array>
void append(Array (*soFar)(const mel::Value&), typename Array::value_type element) {
    if (const mel::Value* result = Host::instance().commandResult) {
        Array elements = soFar(*result);
        elements.push_back(std::move(element));
        setValue(std::move(elements));
    }
}

} // namespace

void MPxCommand::setResult(bool value) {
    setValue(value);
}
void MPxCommand::setResult(int value) {
    setValue(value);
}
void MPxCommand::setResult(unsigned int value) {
    setValue(value);
}
void MPxCommand::setResult(double value) {
    setValue(value);
}
void MPxCommand::setResult(const MString& value) {
    setValue(value.asChar());
}
void MPxCommand::setResult(const char* value) {
    setResult(MString(value));
}
void MPxCommand::setResult(const MIntArray& value) {
    setValue(elementsOf<mel::IntArray>(value));
}
void MPxCommand::setResult(const MDoubleArray& value) {
    setValue(elementsOf<mel::FloatArray>(value));
}

void MPxCommand::setResult(const MStringArray& value) {
    mel::StringArray strings;
    for (unsigned int i = 0; i < value.length(); ++i) {
        strings.push_back(value[i].asChar());
    }
    setValue(std::move(strings));
}

void MPxCommand::appendToResult(int value) {
    append<mel::IntArray>(intsOf, value);
}
void MPxCommand::appendToResult(double value) {
    append<mel::FloatArray>(floatsOf, value);
}
void MPxCommand::appendToResult(const MString& value) {
    append<mel::StringArray>(stringsOf, value.asChar());
}
void MPxCommand::appendToResult(const char* value) {
    appendToResult(MString(value));
}

void MPxCommand::clearResult() {
    setValue(mel::Value());
}

void MPxCommand::displayInfo(const MString& text, bool) {
    MGlobal::displayInfo(text);
}
void MPxCommand::displayWarning(const MString& text, bool) {
    MGlobal::displayWarning(text);
}
void MPxCommand::displayError(const MString& text, bool) {
    MGlobal::displayError(text);
}
