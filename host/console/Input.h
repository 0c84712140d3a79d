// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <iosfwd>
#include <stdexcept>
#include <string>

#include "host/console/Json.h"

namespace qel::host {

/// A file cannot be read. The text names it.
class InputError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// Where the records of a command line come from: files, and standard input once, which is written as "-". They are
/// JSON, or a camera that the viewer has saved, which is turned into JSON.
class Input {
public:
    explicit Input(std::istream& standardInput) : mStandardInput(standardInput) {}

    /// Throws InputError, or JsonError for what is neither.
    Json read(const std::string& name);

private:
    std::istream& mStandardInput;
    bool mStandardInputTaken = false;
};

} // namespace qel::host
