#pragma once

#include <maya/MFn.h>
#include <maya/MObject.h>

namespace tvk {

/// What a type of shader has for the console.
struct ShaderType {
    MFn::Type type;
    bool exported;
    bool hasSpecular;
    const char* colorPlug;
    const char* transparencyPlug; // its red component
};

/// By the shader's API type. Types without a row of their own have what a Lambert shader has.
const ShaderType& shaderTypeOf(const MObject& shader);

/// Of an exported type, and what the host itself takes for a shader of the Lambert family.
bool isExportedShader(MObject shader);

} // namespace tvk
