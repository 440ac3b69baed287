#pragma once

#include <maya/MObject.h>

#include <map>
#include <string>
#include <vector>

namespace host::app::verify {

/// Which shaders of the scene a material of the files may have been made of.
class MaterialNames {
public:
    /// Reads the shaders of the scene's shading groups.
    ///   merges   equal materials of several shaders became one, which has the name of one of them
    explicit MaterialNames(bool merges);

    /// True when a material of that name, in the bytes of the file, may be that of a shader: by its name, or by that
    /// with an underscore and a number; "dummy_material" stands for what is no shader that a console could show.
    ///   shader   in UTF-8; "" for none
    bool mayBeOf(const std::string& material, const std::string& shader) const;

    /// The shader whose colours the material has; null when there is none of its name.
    MObject shaderOf(const std::string& material) const;

private:
    bool merges_;
    std::map<std::string, MObject> shaders_; // by name
};

/// True when the shader has the colours that a material is made of.
bool hasConsoleColors(const MObject& shader);

} // namespace host::app::verify
