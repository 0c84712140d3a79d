// SPDX-License-Identifier: Apache-2.0
#include "StateFile.h"

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

api::camera::PlanarCameraState readState(const std::filesystem::path& file) {
    std::ifstream in(file, std::ios::binary);
    if (!in) {
        throw std::runtime_error(file.string() + ": cannot be read");
    }
    std::string bytes{std::istreambuf_iterator<char>(in), {}};
    TBinaryProtocol protocol(std::make_shared<TMemoryBuffer>(reinterpret_cast<std::uint8_t*>(bytes.data()),
                                                             static_cast<std::uint32_t>(bytes.size())));
    try {
        api::camera::PlanarCameraState state;
        state.read(&protocol);
        return state;
    } catch (const apache::thrift::TException& error) {
        throw std::runtime_error(file.string() + ": holds no camera: " + error.what());
    }
}

} // namespace qel::host
