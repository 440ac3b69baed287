#pragma once

#include <maya/MObject.h>
#include <maya/MStatus.h>

namespace tvk {

// The materials of a run: found or made for the shading groups of its meshes, then named and put in order.

/// Finds or makes the material of a shading group.
///   withTexture          the faces have texture coordinates, so a texture is of use. An untextured material that is
///                        there already serves textured faces too; a textured one does not serve the others.
///   materialIndex        gets the place in SceneData::materials
///   textureSourceIndex   gets the place in SceneData::textureSources, -1 for none
///   renderPriority       gets 1 to 255, 0 when none is asked for
/// A group without a shader, or with one that the console cannot show, is warned of and gets the dummy material. With
/// the run's option to compress materials, a material that equals an earlier one gives way to it, and the one that
/// stays takes the smaller of the two names.
/// Fails, with a message, when the texture cannot be taken; nothing is added then.
MStatus getMaterial(MObject shadingGroup, bool withTexture, int& materialIndex, int& textureSourceIndex,
                    int& renderPriority);

/// The material of faces without a usable shader; made on first use. Always a success.
MStatus getDummyMaterial(int& materialIndex, int& renderPriority);

/// Gives later materials of an equal name "_1", "_2" ... in list order, and says so unless the run is a name check.
/// Names are equal when they are written with the same bytes.
void makeMaterialNamesUnique();

/// Settles the written order, by the bytes of the written names: SceneData::materialOrder, the records' outputIndex and
/// the number of written materials. Names are final.
void sortMaterialsByName();

} // namespace tvk
