// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <regex>
#include <set>
#include <string>

namespace qel::api::camera::test {

namespace {

// That each header compiles alone is seen by the build: a source of its own includes it, twice.

const std::set<std::string> standardHeaders{
    "algorithm",  "array",       "bit",    "cmath",       "concepts", "cstddef", "cstdint", "cstring",
    "functional", "iosfwd",      "limits", "memory",      "optional", "ostream", "span",    "stdexcept",
    "string",     "string_view", "tuple",  "type_traits", "utility",  "variant", "vector",
};

TEST(PublicHeaders, IncludeTheStandardLibraryThriftsCoreAndEachOtherAlone) {
    const std::filesystem::path root = CAMERA_PUBLIC_HEADERS;
    const std::regex directive(R"(^\s*#\s*include\s*(\S+).*)");
    std::size_t headers = 0;
    std::set<std::string> ofThrift;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(root / "qel")) {
        if (!entry.is_regular_file()) {
            continue;
        }
        SCOPED_TRACE(entry.path().filename().string());
        EXPECT_EQ(entry.path().extension(), ".h");
        ++headers;
        std::ifstream file(entry.path());
        for (std::string line; std::getline(file, line);) {
            std::smatch match;
            if (!std::regex_match(line, match, directive)) {
                continue;
            }
            const std::string name = match[1];
            ASSERT_TRUE(name.front() == '<' && name.back() == '>') << line;
            const std::string path = name.substr(1, name.size() - 2);
            if (path.starts_with("thrift/")) {
                ofThrift.insert(path);
            } else if (path.starts_with("qel/")) {
                EXPECT_TRUE(std::filesystem::exists(root / path)) << line;
            } else {
                EXPECT_TRUE(standardHeaders.contains(path)) << line;
            }
        }
    }
    EXPECT_GE(headers, 10U);
    EXPECT_EQ(ofThrift, std::set<std::string>{"thrift/TBase.h"});
}

} // namespace

} // namespace qel::api::camera::test
