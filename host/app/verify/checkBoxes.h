#pragma once

#include "host/app/report/ExportedFiles.h"
#include "host/app/verify/SceneFaces.h"
#include "host/app/verify/Verification.h"

#include <ImathMatrix.h>
#include <ImathVec.h>

#include <limits>
#include <map>
#include <set>
#include <string>
#include <vector>

namespace host::app::verify {

/// The boxes and radii of a model file, held against the faces of the scene: those of every polygon and every mesh
/// node, in the node's own space, and the box that all positions have as they are sent. All are exact to the step,
/// where what is rounded does not lie just between two.
class BoxCheck {
public:
    BoxCheck(const report::ExportedModel& model, Verification& result) : model_(model), result_(result) {}

    /// Faces that a node shows.
    ///   polygonOfFace   which polygon draws each; -1 for a face that is drawn by none, as it has no area
    ///   toNode          brings the corners to the node's own space
    void addFaces(int node, const std::vector<SceneFace>& faces, const std::vector<int>& polygonOfFace,
                  const Imath::M44d& toNode);
    /// A vertex as it is sent, but for the scale of positions.
    ///   reach   length of the longest vector that it was counted from
    void addSent(const Imath::V3d& position, double reach);
    /// Something stands in the box of all positions that is not known: that box is not compared.
    ///   why   for the note
    void leaveOutModel(const std::string& why);
    /// What a node shows is not known: its boxes are not compared, nor that of the model.
    void leaveOutNode(int node, const std::string& why);

    /// Compares what was added.
    void run();

private:
    struct Points {
        std::vector<Imath::V3d> all;
        double reach = 1.0;
    };

    void checkPolygons();
    void checkNodes();
    void checkModel();
    void checkVolume(const Points& points, const Imath::V3d& writtenMin, const Imath::V3d& writtenMax,
                     double writtenRadius, double limit, const std::string& place);
    void checkSteps(double written, double least, double most, const std::string& place);

    const report::ExportedModel& model_;
    Verification& result_;
    std::map<int, Points> ofPolygons_, ofNodes_;
    std::set<int> leftOutNodes_;
    bool isModelLeftOut_ = false;
    bool hasSent_ = false;
    Imath::V3d sentMin_ = Imath::V3d(std::numeric_limits<double>::infinity());
    Imath::V3d sentMax_ = Imath::V3d(-std::numeric_limits<double>::infinity());
    double sentReach_ = 1.0;
};

} // namespace host::app::verify
