#include "TestFiles.h"

#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

std::filesystem::path testFolder() {
    static std::string preparedFor;
    const testing::TestInfo* test = testing::UnitTest::GetInstance()->current_test_info();
    const std::string name = std::string(test->test_suite_name()) + "." + test->name();
    const std::filesystem::path folder = std::filesystem::path(FOVIX_FILES_DIR) / name;
    if (preparedFor != name) {
        std::filesystem::remove_all(folder);
        std::filesystem::create_directories(folder);
        preparedFor = name;
    }
    return folder;
}

std::string fileInTest(const std::string& name) {
    return (testFolder() / name).string();
}

void writeText(const std::filesystem::path& file, const std::string& text) {
    std::ofstream(file, std::ios::binary) << text;
}

std::string readText(const std::filesystem::path& file) {
    std::ostringstream text;
    text << std::ifstream(file, std::ios::binary).rdbuf();
    return text.str();
}
