// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <array>
#include <cstddef>
#include <memory>
#include <tuple>

#include <thrift/protocol/TBinaryProtocol.h>
#include <thrift/protocol/TCompactProtocol.h>
#include <thrift/protocol/TJSONProtocol.h>
#include <thrift/transport/TBufferTransports.h>

#include <qel/api/base/BaseFields.h>
#include <qel/api/camera/Fields.h>

// What an input of the target `records` names by its first two bytes: the kind of record, and the protocols, that of
// the message and another one, the first counting as one and the second as protocolCount. The bytes behind them are the
// message.

namespace camera::fuzz {

/// In the order that committed inputs rely on.
using RecordKinds =
    std::tuple<qel::api::base::ServiceResult, qel::api::base::StringResult, qel::api::camera::Vector,
               qel::api::camera::Quaternion, qel::api::camera::Matrix, qel::api::camera::Frustum,
               qel::api::camera::Viewport, qel::api::camera::ViewState, qel::api::camera::ProjectionState,
               qel::api::camera::SurfaceState, qel::api::camera::PlanarCameraState, qel::api::camera::VectorResult,
               qel::api::camera::MatrixResult, qel::api::camera::ViewStateResult,
               qel::api::camera::ProjectionStateResult, qel::api::camera::SurfaceStateResult,
               qel::api::camera::PlanarCameraStateResult, qel::api::camera::DoubleResult>;
constexpr std::size_t kindCount = std::tuple_size_v<RecordKinds>;

constexpr std::array protocolNames{"binary", "compact", "json", "binary-little-endian", "compact-any-transport"};
constexpr std::size_t protocolCount = protocolNames.size();
constexpr std::size_t json = 2;

/// Whose code reads and writes: the records themselves know Thrift's own Binary and Compact classes and do what those
/// would; with any other class, one derived from them among others, they make the protocol's calls.
enum class Code { own, calls };

template <class Known>
struct Unknown : Known {
    using Known::Known;
};

inline std::shared_ptr<apache::thrift::protocol::TProtocol> makeProtocol(
    std::size_t which, const std::shared_ptr<apache::thrift::transport::TMemoryBuffer>& buffer, Code code = Code::own) {
    using namespace apache::thrift::protocol;
    using apache::thrift::transport::TMemoryBuffer;
    using apache::thrift::transport::TTransport;
    const auto make = [&]<class Protocol>(const Protocol*) -> std::shared_ptr<TProtocol> {
        if (code == Code::own) {
            return std::make_shared<Protocol>(buffer);
        }
        return std::make_shared<Unknown<Protocol>>(buffer);
    };
    switch (which) {
    case 0: return make(static_cast<TBinaryProtocolT<TMemoryBuffer>*>(nullptr));
    case 1: return make(static_cast<TCompactProtocolT<TMemoryBuffer>*>(nullptr));
    case json: return make(static_cast<TJSONProtocol*>(nullptr));
    case 3: return make(static_cast<TBinaryProtocolT<TTransport, TNetworkLittleEndian>*>(nullptr));
    default: return make(static_cast<TCompactProtocolT<TTransport>*>(nullptr));
    }
}

} // namespace camera::fuzz
