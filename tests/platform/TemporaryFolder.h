#pragma once

#include "platform/fileSystem.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

namespace tvk {

// A folder of its own for one test, removed with all that is in it. Its path uses '/'.
class TemporaryFolder {
public:
    TemporaryFolder() {
        const auto* test = testing::UnitTest::GetInstance()->current_test_info();
        const std::string name = std::string("tvk_") + test->test_suite_name() + "_" + test->name();
        folder = std::filesystem::temp_directory_path() / name;
        std::filesystem::remove_all(folder);
        std::filesystem::create_directory(folder);
    }
    ~TemporaryFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(folder, ignored);
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    std::string path(const std::string& name = "") const {
        return folder.generic_u8string() + (name.empty() ? "" : "/" + name);
    }

private:
    std::filesystem::path folder;
};

} // namespace tvk
