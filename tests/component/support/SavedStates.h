// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>

#include "tests/component/support/AllCalls.h"

namespace qel::api::camera::test {

// States in a file, as a host might keep them: the images one after another.

inline void save(const std::string& bytes, const std::string& path) {
    std::ofstream file(path, std::ios::binary);
    if (!(file << bytes).flush()) {
        throw std::runtime_error("cannot write " + path);
    }
}

inline std::string load(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    if (!file) {
        throw std::runtime_error("cannot read " + path);
    }
    return {std::istreambuf_iterator<char>(file), {}};
}

inline std::string imagesOf(const Samples& samples) {
    return samples.view.mPrivate + samples.projection.mPrivate + samples.surface.mPrivate +
           samples.planarCamera.mPrivate;
}

inline Samples withImages(const std::string& images) {
    Samples samples;
    std::size_t start = 0;
    const auto take = [&](std::string& image, const std::size_t size) {
        image = images.substr(start, size);
        start += size;
    };
    take(samples.view.mPrivate, 384);
    take(samples.projection.mPrivate, 336);
    take(samples.surface.mPrivate, 336);
    take(samples.planarCamera.mPrivate, 1080);
    return samples;
}

/// What every operation makes of the states, bit for bit.
inline std::string resultsOf(CameraAPIIf& service, const Samples& samples) {
    std::string results;
    for (const PreparedCall& call : allCalls(samples)) {
        results += call.run(service);
    }
    return results;
}

} // namespace qel::api::camera::test
