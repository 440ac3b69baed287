#pragma once

#include <maya/MPxCommand.h>
#include <maya/MString.h>
#include <maya/MSyntax.h>

namespace tvk {

/// TVK_BatchExportCmd -batch LIST: exports the scenes that a list file names. Fails in silence without a list.
class TvkBatchExportCmd : public MPxCommand {
public:
    static constexpr const char* kName = "TVK_BatchExportCmd";
    static void* create();
    static MSyntax newSyntax();

    ~TvkBatchExportCmd() override;
    MStatus doIt(const MArgList& arguments) override;

private:
    MString listPath;
};

} // namespace tvk
