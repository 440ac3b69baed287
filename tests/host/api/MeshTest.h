#pragma once

#include "HostTest.h"

#include <maya/MFloatVectorArray.h>
#include <maya/MFnMesh.h>
#include <maya/MIntArray.h>

namespace host {

/// Two unit squares that meet at a right angle in the soft edge 1: face 0 looks along z, face 1 along x. The transform
/// "a" of the mesh "m" moves it by 10 along x and makes it twice as wide.
///
///      3---2---5        corners of face 0: vertices 0 1 2 3; of face 1: 1 4 5 2
///      | 0 | 1 |        texture coordinates: "map1" on face 0, "second" on face 1
///      0---1---4        colours: "tint" red red blue none on face 0
class MeshTest : public HostTest {
protected:
    MeshTest() {
        run("createNode transform -n a; setAttr a.t 10 0 0; setAttr a.s 2 1 1; createNode mesh -n m -p a;"
            "setAttr -s 6 \"m.vt[0:5]\" 0 0 0 1 0 0 1 1 0 0 1 0 1 0 -1 1 1 -1;"
            "setAttr -s 7 \"m.ed[0:6]\" 0 1 0 1 2 1 2 3 0 3 0 0 1 4 0 4 5 0 5 2 0;"
            "setAttr \"m.uvst[0].uvsn\" -type \"string\" \"map1\";"
            "setAttr -s 4 \"m.uvst[0].uvsp[0:3]\" -type \"float2\" 0 0 1 0 1 0.5 0 0.5;"
            "setAttr \"m.uvst[1].uvsn\" -type \"string\" \"second\";"
            "setAttr \"m.uvst[1].uvsp[0]\" -type \"float2\" 0.25 0.75;"
            "setAttr \"m.clst[0].clsn\" -type \"string\" \"tint\"; setAttr \"m.clst[0].rprt\" 4;"
            "setAttr -s 2 \"m.clst[0].clsp[0:1]\" 1 0 0 1 0 0 1 0.5;"
            "setAttr \"m.clst[1].clsn\" -type \"string\" \"grey\"; setAttr \"m.clst[1].rprt\" 1;"
            "setAttr \"m.clst[1].clam\" 1; setAttr \"m.clst[1].clsp[0]\" 0.25;"
            "setAttr -s 2 -ch 8 \"m.fc[0:1]\" -type \"polyFaces\" f 4 0 1 2 3 mu 0 4 0 1 2 3 mc 0 4 0 0 1 -1"
            " f 4 4 5 6 -2 mu 1 4 0 0 0 0 mc 1 4 -1 0 0 -1");
    }

    /// A shape with one face: a square with a square hole.
    void makeHoled() {
        run("createNode transform -n h; createNode mesh -n holed -p h;"
            "setAttr -s 8 \"holed.vt[0:7]\" 0 0 0 4 0 0 4 4 0 0 4 0 1 1 0 1 3 0 3 3 0 3 1 0;"
            "setAttr -s 8 \"holed.ed[0:7]\" 0 1 0 1 2 0 2 3 0 3 0 0 4 5 0 5 6 0 6 7 0 7 4 0;"
            "setAttr -s 1 -ch 8 \"holed.fc[0]\" -type \"polyFaces\" f 4 0 1 2 3 h 4 4 5 6 7");
    }

    /// One face in the plane z = 0, vertices counter-clockwise as given: "x y x y …".
    void makePolygon(const std::string& name, const std::vector<double>& xy) {
        const std::size_t count = xy.size() / 2;
        std::string points;
        std::string edges;
        std::string face = "f " + std::to_string(count);
        for (std::size_t i = 0; i < count; ++i) {
            points += " " + std::to_string(xy[2 * i]) + " " + std::to_string(xy[2 * i + 1]) + " 0";
            edges += " " + std::to_string(i) + " " + std::to_string((i + 1) % count) + " 0";
            face += " " + std::to_string(i);
        }
        const std::string range = "[0:" + std::to_string(count - 1) + "]\"";
        run("createNode transform -n " + name + "_t; createNode mesh -n " + name + " -p " + name + "_t; setAttr \"" +
            name + ".vt" + range + points + "; setAttr \"" + name + ".ed" + range + edges + "; setAttr \"" + name +
            ".fc[0]\" -type \"polyFaces\" " + face);
    }

    static std::vector<int> list(const MIntArray& array) { return storedValues(array); }

    static bool isNear(const MVector& a, const MVector& b) { return a.isEquivalent(b, 1e-6); }
};

inline void PrintTo(const MVector& vector, std::ostream* stream) {
    *stream << vector.x << " " << vector.y << " " << vector.z;
}
inline void PrintTo(const MPoint& point, std::ostream* stream) {
    *stream << point.x << " " << point.y << " " << point.z;
}

} // namespace host
