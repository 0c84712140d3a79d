// SPDX-License-Identifier: Apache-2.0
#include "host/state/StateFile.h"

#include <cstdint>
#include <fstream>
#include <iterator>
#include <memory>
#include <stdexcept>
#include <string>
#include <system_error>

#include <thrift/protocol/TBinaryProtocol.h>
#include <thrift/transport/TBufferTransports.h>

namespace qel::host {

using apache::thrift::protocol::TBinaryProtocol;
using apache::thrift::transport::TMemoryBuffer;

void writeState(const api::camera::PlanarCameraState& state, const std::filesystem::path& file) {
    const auto buffer = std::make_shared<TMemoryBuffer>();
    TBinaryProtocol protocol(buffer);
    state.write(&protocol);

    // Under another name first, so that there is never half a camera in the file.
    std::filesystem::path unfinished = file;
    unfinished += ".part";
    std::ofstream out(unfinished, std::ios::binary);
    out << buffer->getBufferAsString();
    out.close();
    std::error_code error;
    if (out) {
        std::filesystem::rename(unfinished, file, error);
    }
    if (!out || error) {
        throw std::runtime_error(file.string() + ": cannot be written");
    }
}

bool beginsAsState(const std::string& content) noexcept {
    // The type of a camera's first field, the view.
    return !content.empty() && content.front() == static_cast<char>(apache::thrift::protocol::T_STRUCT);
}

api::camera::PlanarCameraState stateIn(std::string content, const std::string& file) {
    TBinaryProtocol protocol(std::make_shared<TMemoryBuffer>(reinterpret_cast<std::uint8_t*>(content.data()),
                                                             static_cast<std::uint32_t>(content.size())));
    try {
        api::camera::PlanarCameraState state;
        state.read(&protocol);
        return state;
    } catch (const apache::thrift::TException& error) {
        throw std::runtime_error(file + ": holds no camera: " + error.what());
    }
}

api::camera::PlanarCameraState readState(const std::filesystem::path& file) {
    std::ifstream in(file, std::ios::binary);
    if (!in) {
        throw std::runtime_error(file.string() + ": cannot be read");
    }
    return stateIn({std::istreambuf_iterator<char>(in), {}}, file.string());
}

} // namespace qel::host
