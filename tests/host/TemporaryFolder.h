// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <stdexcept>
#include <string>

#include <gtest/gtest.h>

namespace qel::host::test {

/// A folder of a test's own, gone with all in it at the end.
class TemporaryFolder {
public:
    TemporaryFolder() {
        std::string pattern = (std::filesystem::temp_directory_path() / "camera-test-XXXXXX").string();
        if (mkdtemp(pattern.data()) == nullptr) {
            throw std::runtime_error("no temporary folder");
        }
        mPath = pattern;
    }
    ~TemporaryFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(mPath, ignored);
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    [[nodiscard]] const std::filesystem::path& path() const { return mPath; }
    std::filesystem::path operator/(const std::string& name) const { return mPath / name; }

    /// Writes a file and gives its path.
    std::filesystem::path write(const std::string& name, const std::string& content) const {
        std::ofstream(mPath / name, std::ios::binary) << content;
        return mPath / name;
    }

private:
    std::filesystem::path mPath;
};

class FolderTest : public ::testing::Test {
protected:
    const TemporaryFolder folder;
};

inline std::string readText(const std::filesystem::path& file) {
    std::ifstream in(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
}

/// Every file of a folder with its content, hidden ones too.
inline std::map<std::string, std::string> contentOf(const std::filesystem::path& folder) {
    std::map<std::string, std::string> content;
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
        content[entry.path().filename().string()] = entry.is_directory() ? "folder" : readText(entry.path());
    }
    return content;
}

} // namespace qel::host::test
