// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <filesystem>
#include <stdexcept>

namespace qel::host {

/// The output folder cannot be used. The text names it.
class OutputError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// A folder that is filled out of sight and takes its place as a whole: until publish() an earlier tour stays there
/// untouched, and what was written is removed if publish() is never reached.
class OutputFolder {
public:
    /// Throws OutputError where the place is taken by anything but an earlier tour, whose files it would remove.
    explicit OutputFolder(const std::filesystem::path& target);
    ~OutputFolder();

    OutputFolder(const OutputFolder&) = delete;
    OutputFolder& operator=(const OutputFolder&) = delete;

    /// Where to write until then.
    [[nodiscard]] const std::filesystem::path& folder() const { return mFolder; }
    /// Puts the folder into the place of an earlier tour's.
    void publish();
    /// The same without exchanging folders, which publish() falls back to: for file systems that cannot, and for a
    /// target that is a mount point. Everything is copied beside its final name first, so that what can run out of
    /// space does so before the first file is replaced.
    void publishFileByFile();

private:
    std::filesystem::path mTarget;
    std::filesystem::path mFolder;
};

} // namespace qel::host
