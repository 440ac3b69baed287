#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <random>
#include <string>

namespace tvk {

// A folder of its own for one test, removed with all that is in it. Its path uses '/'. The same test may run at once in
// several programs (plain and with sanitizers): each gets another folder.
class TemporaryFolder {
public:
    TemporaryFolder() {
        std::random_device random;
        do {
            folder = std::filesystem::temp_directory_path() / (nameOfTest() + "_" + std::to_string(random()));
        } while (!std::filesystem::create_directory(folder));
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
    static std::string nameOfTest() {
        const auto* test = testing::UnitTest::GetInstance()->current_test_info();
        std::string name = std::string("tvk_") + test->test_suite_name() + "_" + test->name();
        std::replace(name.begin(), name.end(), '/', '_'); // of a parameterised test
        return name;
    }

    std::filesystem::path folder;
};

} // namespace tvk
