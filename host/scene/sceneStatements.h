#pragma once

#include "host/scene/StatementContext.h"

namespace host {

// Statements about the scene as a whole.

/// currentUnit [-l UNIT] [-a UNIT] [-t UNIT]
Outcome currentUnitStatement(StatementContext& context, ArgumentStream& arguments);

/// fileInfo KEY VALUE
Outcome fileInfoStatement(StatementContext& context, ArgumentStream& arguments);

/// playbackOptions [-min F] [-max F] [-ast F] [-aet F]; other flags of it are read over.
Outcome playbackOptionsStatement(StatementContext& context, ArgumentStream& arguments);

/// currentTime FRAME
Outcome currentTimeStatement(StatementContext& context, ArgumentStream& arguments);

} // namespace host
