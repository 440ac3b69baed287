#include <maya/MFileObject.h>

#include "host/api/filePaths.h"
#include "host/mel/filePath.h"

#include <filesystem>
#include <system_error>

MFileObject::MFileObject() = default;
MFileObject::MFileObject(const MFileObject& other) = default;
MFileObject::~MFileObject() = default;
MFileObject& MFileObject::operator=(const MFileObject& other) = default;

MStatus MFileObject::setRawFullName(const MString& fullName) {
    const host::SplitPath parts = host::splitPath(fullName.asChar());
    path_ = parts.folder.c_str();
    name_ = parts.name.c_str();
    return MStatus::kSuccess;
}

MStatus MFileObject::setRawName(const MString& name) {
    name_ = name;
    return MStatus::kSuccess;
}

MStatus MFileObject::setRawPath(const MString& path) {
    path_ = host::withSeparator(path.asChar()).c_str();
    return MStatus::kSuccess;
}

MStatus MFileObject::setFullName(const MString& fullName) {
    return setRawFullName(fullName);
}

MStatus MFileObject::setName(const MString& name) {
    return setRawName(name);
}

MString MFileObject::rawFullName() const {
    return path_ + name_;
}

MString MFileObject::rawName() const {
    return name_;
}

MString MFileObject::rawPath() const {
    return path_;
}

MString MFileObject::fullName() const {
    return resolvedFullName();
}

MString MFileObject::name() const {
    return resolvedName();
}

MString MFileObject::path() const {
    return resolvedPath();
}

MString MFileObject::resolvedFullName() const {
    return isSet() ? MString(host::absolutePath(expandedFullName().asChar()).c_str()) : MString();
}

MString MFileObject::resolvedName() const {
    return host::splitPath(resolvedFullName().asChar()).name.c_str();
}

MString MFileObject::resolvedPath() const {
    return host::splitPath(resolvedFullName().asChar()).folder.c_str();
}

MString MFileObject::expandedFullName() const {
    return host::expandPath(rawFullName().asChar()).c_str();
}

MString MFileObject::expandedPath() const {
    return host::expandPath(path_.asChar()).c_str();
}

bool MFileObject::exists() const {
    std::error_code error;
    return isSet() && std::filesystem::exists(host::filePath(resolvedFullName().asChar()), error);
}

bool MFileObject::isSet() const {
    return name_.length() != 0;
}

unsigned int MFileObject::pathCount() const {
    return isSet() ? 1U : 0U;
}

MString MFileObject::ithPath(unsigned int index) const {
    return index < pathCount() ? resolvedPath() : MString();
}

MString MFileObject::ithFullName(unsigned int index) const {
    return index < pathCount() ? resolvedFullName() : MString();
}
