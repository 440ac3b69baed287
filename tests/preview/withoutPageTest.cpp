#include "host/app/preview/previewPage.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>

namespace tvk {

TEST(WithoutPage, TellsHowToGetIt) {
    try {
        host::app::preview::previewPage(TVK_SAMPLES "/walk");
        FAIL() << "there is a page";
    } catch (const std::runtime_error& error) {
        EXPECT_STREQ(error.what(), "this tvkexport was built without the preview; './tvk preview BASE' builds it with, "
                                   "and so does the CMake option TVK_PREVIEW");
    }
}

} // namespace tvk
