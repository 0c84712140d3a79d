// SPDX-License-Identifier: Apache-2.0
#include <cstdint>
#include <memory>
#include <stdexcept>
#include <string>

#include <benchmark/benchmark.h>
#include <thrift/protocol/TBinaryProtocol.h>
#include <thrift/protocol/TCompactProtocol.h>
#include <thrift/transport/TBufferTransports.h>

#include <qel/api/camera/Results.h>

#include "bench/Benchmarks.h"
#include "camera_types.h"

namespace qel::bench {

namespace {

using apache::thrift::protocol::TBinaryProtocol;
using apache::thrift::protocol::TCompactProtocol;
using apache::thrift::transport::TMemoryBuffer;

/// A buffer from which the same bytes can be read for ever: each time counts as a message of its own.
class Bytes final : public TMemoryBuffer {
public:
    explicit Bytes(std::string& bytes) : TMemoryBuffer(begin(bytes), size(bytes), OBSERVE), mBytes(bytes) {}

    /// Not by resetBuffer(), which allocates: that time would be added to what either side takes.
    void rewind() {
        setReadBuffer(begin(mBytes), size(mBytes));
        resetConsumedMessageSize();
    }

private:
    static std::uint8_t* begin(std::string& bytes) { return reinterpret_cast<std::uint8_t*>(bytes.data()); }
    static std::uint32_t size(const std::string& bytes) { return static_cast<std::uint32_t>(bytes.size()); }

    std::string& mBytes;
};

template <class Protocol, class Record>
std::string written(const Record& record) {
    auto buffer = std::make_shared<TMemoryBuffer>();
    Protocol protocol(buffer);
    record.write(&protocol);
    return buffer->getBufferAsString();
}

template <class Protocol, class Record>
Record readFrom(const std::string& bytes) {
    auto buffer = std::make_shared<TMemoryBuffer>();
    buffer->write(reinterpret_cast<const std::uint8_t*>(bytes.data()), static_cast<std::uint32_t>(bytes.size()));
    Protocol protocol(buffer);
    Record record;
    record.read(&protocol);
    return record;
}

/// Into a buffer that is large enough already.
template <class Protocol, class Record>
void writeRecord(benchmark::State& state, const std::string& bytes) {
    const auto record = readFrom<Protocol, Record>(bytes);
    if (written<Protocol>(record) != bytes) {
        throw std::logic_error("the two kinds of record differ on the wire");
    }
    auto buffer = std::make_shared<TMemoryBuffer>(2 * static_cast<std::uint32_t>(bytes.size()));
    Protocol protocol(buffer);
    for (auto _ : state) {
        buffer->resetBuffer();
        benchmark::DoNotOptimize(record.write(&protocol));
        benchmark::ClobberMemory();
    }
}

/// Into a record that holds such a record already.
template <class Protocol, class Record>
void readRecord(benchmark::State& state, std::string bytes) {
    auto record = readFrom<Protocol, Record>(bytes);
    const auto buffer = std::make_shared<Bytes>(bytes);
    Protocol protocol(buffer);
    for (auto _ : state) {
        buffer->rewind();
        benchmark::DoNotOptimize(record.read(&protocol));
        benchmark::ClobberMemory();
    }
}

template <class Protocol, class Ours, class Generated>
void registerRecord(const std::string& protocol, const std::string& record, const Ours& example) {
    const std::string bytes = written<Protocol>(example);
    const auto add = [&](const std::string& direction, const std::string& whose, auto run) {
        benchmark::RegisterBenchmark(("wire/" + protocol + "/" + direction + " " + record + "/" + whose).c_str(),
                                     [=](benchmark::State& state) { run(state, bytes); });
    };
    add("write", "ours", writeRecord<Protocol, Ours>);
    add("write", "thrift", writeRecord<Protocol, Generated>);
    add("read", "ours", readRecord<Protocol, Ours>);
    add("read", "thrift", readRecord<Protocol, Generated>);
}

template <class Ours, class Generated>
void registerProtocols(const std::string& record, const Ours& example) {
    registerRecord<TBinaryProtocol, Ours, Generated>("binary", record, example);
    registerRecord<TCompactProtocol, Ours, Generated>("compact", record, example);
}

} // namespace

void registerWire(const Workload& workload) {
    api::camera::PlanarCameraStateResult camera;
    camera.mValue = workload.camera();
    api::camera::ViewStateResult view;
    view.mValue = workload.camera().mViewState;
    api::camera::VectorResult vector;
    vector.mValue.mData = {1.0, 2.0, 3.0};
    registerProtocols<api::camera::PlanarCameraStateResult, generated::camera::PlanarCameraStateResult>(
        "PlanarCameraStateResult", camera);
    registerProtocols<api::camera::ViewStateResult, generated::camera::ViewStateResult>("ViewStateResult", view);
    registerProtocols<api::camera::VectorResult, generated::camera::VectorResult>("VectorResult", vector);
    registerProtocols<api::camera::Matrix, generated::camera::Matrix>("Matrix", view.mValue.mViewMatrix);
    registerProtocols<api::camera::Frustum, generated::camera::Frustum>("Frustum",
                                                                        camera.mValue.mProjectionState.mFrustum);
    registerProtocols<api::camera::Vector, generated::camera::Vector>("Vector", vector.mValue);
}

} // namespace qel::bench
