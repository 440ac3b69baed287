#pragma once

#include <maya/MPxCommand.h>
#include <maya/MSyntax.h>

namespace tvk {

/// TVK_CheckElementNameCmd [-target all|selection]: gives the names that are too long for the console, two texts each
/// (see checkElementNames).
class TvkCheckElementNameCmd : public MPxCommand {
public:
    static constexpr const char* kName = "TVK_CheckElementNameCmd";
    static void* create();
    static MSyntax newSyntax();

    ~TvkCheckElementNameCmd() override;
    MStatus doIt(const MArgList& arguments) override;
};

} // namespace tvk
