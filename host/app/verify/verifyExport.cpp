#include "host/app/verify/verifyExport.h"

#include "host/app/verify/ExportedScene.h"
#include "host/app/verify/checkAnimations.h"
#include "host/app/verify/checkFaces.h"
#include "host/app/verify/checkMaterials.h"
#include "host/app/verify/checkNodes.h"
#include "host/app/verify/checkTextures.h"

#include "decode/FileError.h"

#include <maya/MAnimControl.h>
#include <maya/MTime.h>

namespace host::app::verify {
namespace {

class KeptTime {
public:
    KeptTime() : time_(MAnimControl::currentTime()) {}
    ~KeptTime() { MAnimControl::setCurrentTime(time_); }
    KeptTime(const KeptTime&) = delete;
    KeptTime& operator=(const KeptTime&) = delete;

private:
    MTime time_;
};

void compare(const report::ExportedFiles& files, bool selection, Verification& result) {
    if (!files.model) {
        result.note("everything but textures: without the model file nothing tells what the animations move");
        checkTextures(files, result);
        return;
    }
    const ExportedScene scene(*files.model, selection);
    const MaterialNames names(scene.mergesMaterials);
    result.positionStep = scene.step;
    checkNodes(*files.model, scene, result);
    checkFaces(*files.model, scene, result);
    checkMaterials(files, names, result);
    checkTextures(files, result);
    checkAnimations(files, scene, names, result);
}

} // namespace

Verification verifyExport(const report::ExportedFiles& files, bool selection) {
    const KeptTime time;
    Verification result;
    try {
        compare(files, selection, result);
    } catch (const decode::FileError& error) {
        result.find(error.what());
    }
    return result;
}

} // namespace host::app::verify
