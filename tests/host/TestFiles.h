// A folder of its own for the files of each test, emptied when the test starts and kept for a look.
#pragma once

#include <filesystem>
#include <string>

std::filesystem::path testFolder();
std::string fileInTest(const std::string& name);
void writeText(const std::filesystem::path& file, const std::string& text);
std::string readText(const std::filesystem::path& file);
