// SPDX-License-Identifier: Apache-2.0
#include "host/console/Input.h"

#include <array>
#include <cerrno>
#include <cstddef>
#include <cstring>
#include <fstream>
#include <istream>

#include <nlohmann/json.hpp>

#include "host/console/RecordJson.h"
#include "host/state/StateFile.h"

namespace qel::host {

namespace {

std::string contentOf(std::istream& stream, const std::string& name) {
    std::string content;
    std::array<char, 4096> piece{};
    do {
        stream.read(piece.data(), piece.size());
        content.append(piece.data(), static_cast<std::size_t>(stream.gcount()));
    } while (stream);
    // A folder can be opened, but not read.
    if (stream.bad()) {
        throw InputError(name + " cannot be read");
    }
    return content;
}

Json parse(const std::string& content, const std::string& name) {
    if (!beginsAsState(content)) {
        return parseJson(content);
    }
    try {
        return toJson(stateIn(content, name));
    } catch (const std::runtime_error& error) {
        throw InputError(error.what());
    }
}

} // namespace

Json Input::read(const std::string& name) {
    if (name == "-") {
        if (mStandardInputTaken) {
            throw InputError("standard input is taken by another argument already");
        }
        mStandardInputTaken = true;
        const std::string content = contentOf(mStandardInput, "standard input");
        if (content.empty()) {
            throw InputError("standard input is empty");
        }
        return parse(content, "standard input");
    }
    errno = 0;
    std::ifstream file(name, std::ios::binary);
    if (!file) {
        throw InputError(name + ": " + (errno != 0 ? std::strerror(errno) : "cannot be opened"));
    }
    return parse(contentOf(file, name), name);
}

} // namespace qel::host
