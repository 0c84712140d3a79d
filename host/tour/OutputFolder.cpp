// SPDX-License-Identifier: Apache-2.0
#include "host/tour/OutputFolder.h"

#include <algorithm>
#include <cerrno>
#include <cstddef>
#include <cstdio>
#include <fstream>
#include <string>
#include <system_error>

#include <fcntl.h>
#include <unistd.h>

#include "host/tour/Page.h"

namespace qel::host {
namespace {

namespace fs = std::filesystem;

[[noreturn]] void fail(const fs::path& path, const std::string& what) {
    throw OutputError(path.string() + ": " + what);
}

bool isPageOfTour(const fs::path& file) {
    std::ifstream in(file, std::ios::binary);
    std::string head(1024, '\0');
    in.read(head.data(), static_cast<std::streamsize>(head.size()));
    return head.find(pageGenerator) != std::string::npos;
}

/// A tour's pictures begin with their number.
bool isPictureOfTour(const fs::path& file) {
    const std::string name = file.filename().string();
    return file.extension() == ".png" && name.size() > 3 &&
           std::all_of(name.begin(), name.begin() + 2, [](char digit) { return digit >= '0' && digit <= '9'; }) &&
           name[2] == '-';
}

bool isOfTour(const fs::directory_entry& entry) {
    return entry.is_regular_file() &&
           (isPictureOfTour(entry.path()) || (entry.path().filename() == "index.html" && isPageOfTour(entry.path())));
}

void requireReplaceable(const fs::path& target) {
    if (!fs::exists(target)) {
        return;
    }
    if (!fs::is_directory(target)) {
        fail(target, "is a file; the output needs a folder");
    }
    for (const auto& entry : fs::directory_iterator(target)) {
        if (!isOfTour(entry)) {
            fail(target,
                 "holds what no tour made, such as " + entry.path().filename().string() + "; name another folder");
        }
    }
}

/// A new folder beside the target, hidden while it is filled.
fs::path makeFolderBeside(const fs::path& target) {
    const std::string stem =
        std::string(".").append(target.filename().string()).append(".tour-") + std::to_string(getpid()) + "-";
    for (int attempt = 0;; ++attempt) {
        fs::path folder = target.parent_path() / (stem + std::to_string(attempt));
        if (fs::create_directory(folder)) {
            return folder;
        }
    }
}

} // namespace

OutputFolder::OutputFolder(const fs::path& target) {
    try {
        // Made absolute first: of a bare name that does not exist yet, nothing would be left as the folder it is in.
        mTarget = fs::weakly_canonical(fs::absolute(target));
        if (!mTarget.has_filename()) {
            mTarget = mTarget.parent_path(); // it was written with a slash at its end
        }
        if (!mTarget.has_filename()) {
            fail(target, "cannot be replaced");
        }
        requireReplaceable(mTarget);
        fs::create_directories(mTarget.parent_path());
        mFolder = makeFolderBeside(mTarget);
    } catch (const fs::filesystem_error& error) {
        fail(target, "cannot be written: " + error.code().message());
    }
}

OutputFolder::~OutputFolder() {
    if (!mFolder.empty()) {
        std::error_code ignored;
        fs::remove_all(mFolder, ignored);
    }
}

void OutputFolder::publish() {
    // Exchanged in one step where there is something to exchange with; what was there goes with the hidden folder.
    // The current folder is filled where it is: whoever works in it would be left in the old one.
    std::error_code unknown;
    const bool current = fs::equivalent(mTarget, fs::current_path(unknown), unknown);
    const unsigned int flags = fs::exists(mTarget) ? RENAME_EXCHANGE : RENAME_NOREPLACE;
    if (!current && renameat2(AT_FDCWD, mFolder.c_str(), AT_FDCWD, mTarget.c_str(), flags) == 0) {
        return;
    }
    try {
        publishFileByFile();
    } catch (const fs::filesystem_error& error) {
        fail(mTarget, "cannot be written: " + error.code().message());
    }
}

void OutputFolder::publishFileByFile() {
    fs::create_directories(mTarget);
    const auto hidden = [&](const fs::path& name) {
        return mTarget / std::string(".").append(name.string()).append(".part");
    };
    std::vector<fs::path> names;
    try {
        for (const auto& entry : fs::directory_iterator(mFolder)) {
            names.push_back(entry.path().filename());
            fs::copy_file(entry.path(), hidden(names.back()), fs::copy_options::overwrite_existing);
        }
    } catch (...) {
        std::error_code ignored;
        for (const fs::path& name : names) {
            fs::remove(hidden(name), ignored);
        }
        throw;
    }
    for (const fs::path& name : names) {
        fs::rename(hidden(name), mTarget / name);
    }
    std::vector<fs::path> stale;
    for (const auto& entry : fs::directory_iterator(mTarget)) {
        if (isOfTour(entry) && std::find(names.begin(), names.end(), entry.path().filename()) == names.end()) {
            stale.push_back(entry.path());
        }
    }
    for (const fs::path& file : stale) {
        fs::remove(file);
    }
}

} // namespace qel::host
