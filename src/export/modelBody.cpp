#include "export/modelBody.h"

#include "export/nodeArray.h"

namespace tvk {

MStatus writeModelBody(std::ostream& out) {
    return writeNodeArray(out, false);
}

} // namespace tvk
