#include "host/api/values/UiUnits.h"

namespace host::api {

UiUnits& uiUnits() {
    static UiUnits units;
    return units;
}

} // namespace host::api
