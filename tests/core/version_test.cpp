// The library's version: the one the build defines, in the name of the
// shared library the process runs with.
#include <gtest/gtest.h>

#include <fstream>
#include <regex>
#include <sstream>
#include <string>

#include "ZARODatos/core/Version.h"

using namespace OVT_ZARO;

namespace {
// The version that project() in the top CMakeLists.txt defines.
std::string ProjectVersion() {
    std::ifstream in(ZARO_SOURCE_DIR "/CMakeLists.txt");
    std::stringstream text;
    text << in.rdbuf();
    std::smatch m;
    const std::string s = text.str();
    return std::regex_search(s, m, std::regex(R"(project\(ZARODatos VERSION ([0-9.]+))")) ? m[1].str() : "";
}
// The shared library mapped into this process, by the name the loader used.
std::string LoadedLibrary() {
    std::ifstream maps("/proc/self/maps");
    std::string line;
    std::smatch m;
    while (std::getline(maps, line))
        if (std::regex_search(line, m, std::regex(R"((libZARODatos\.so[0-9.]*)$)"))) return m[1].str();
    return "";
}
}  // namespace

TEST(LibraryVersion, IsTheVersionTheProjectDefines) {
    ASSERT_FALSE(ProjectVersion().empty());
    EXPECT_EQ(LibraryVersion(), ProjectVersion());
}

TEST(LibraryVersion, IsThreeNumbers) {
    EXPECT_TRUE(std::regex_match(std::string(LibraryVersion()), std::regex(R"([0-9]+\.[0-9]+\.[0-9]+)")));
}

TEST(LibraryVersion, NamesTheFileOfTheSharedLibrary) {
    // The file is libZARODatos.so.MAJOR.MINOR.PATCH; its SONAME carries the major.
    EXPECT_EQ(LoadedLibrary(), "libZARODatos.so." + std::string(LibraryVersion()));
}
