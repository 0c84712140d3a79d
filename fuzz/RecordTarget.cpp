// SPDX-License-Identifier: Apache-2.0
// Reads a record of any kind from raw bytes over one of Thrift's protocols. Whatever could be read is printed, written
// and read again, over each protocol: what comes back must be the same. Reading may take no more memory than a small
// multiple of the bytes that are there, and may fail with Thrift's exceptions only.

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <ostream>
#include <span>
#include <streambuf>
#include <string>
#include <utility>

#include <qel/api/camera/CameraAPIIf.h>

#include <thrift/Thrift.h>
#include <thrift/protocol/TBinaryProtocol.h>
#include <thrift/protocol/TCompactProtocol.h>
#include <thrift/protocol/TJSONProtocol.h>
#include <thrift/transport/TBufferTransports.h>

#include "Bytes.h"
#include "Memory.h"
#include "Require.h"

namespace camera::fuzz {
namespace {

using namespace qel::api::base;
using namespace qel::api::camera;
using apache::thrift::TException;
using apache::thrift::protocol::TBinaryProtocolT;
using apache::thrift::protocol::TCompactProtocolT;
using apache::thrift::protocol::TJSONProtocol;
using apache::thrift::protocol::TNetworkLittleEndian;
using apache::thrift::protocol::TProtocol;
using apache::thrift::transport::TMemoryBuffer;
using apache::thrift::transport::TTransport;

/// A list of lists grows by doubling and its empty elements take 24 bytes for one on the wire; a message of any size
/// may take the first part, for the protocol's own needs.
constexpr std::size_t mostMemory(std::size_t size) { return 8192 + 128 * size; }

constexpr std::size_t protocolCount = 5;
constexpr std::size_t json = 2;

std::shared_ptr<TProtocol> makeProtocol(std::size_t which, const std::shared_ptr<TMemoryBuffer>& buffer) {
    switch (which) {
    case 0: return std::make_shared<TBinaryProtocolT<TMemoryBuffer>>(buffer);
    case 1: return std::make_shared<TCompactProtocolT<TMemoryBuffer>>(buffer);
    case json: return std::make_shared<TJSONProtocol>(buffer);
    case 3: return std::make_shared<TBinaryProtocolT<TTransport, TNetworkLittleEndian>>(buffer);
    default: return std::make_shared<TCompactProtocolT<TTransport>>(buffer);
    }
}

/// Reads records from bytes over one of the protocols.
class Reader {
public:
    explicit Reader(std::size_t which)
        : mBuffer(std::make_shared<TMemoryBuffer>(0)), mProtocol(makeProtocol(which, mBuffer)) {}

    template <class Record>
    void read(Record& record, std::span<const std::uint8_t> bytes) {
        // The buffer does not write into what it observes. Thrift adds to the pointer, which must not be null.
        static std::uint8_t nothing = 0;
        std::uint8_t* const data = bytes.empty() ? &nothing : const_cast<std::uint8_t*>(bytes.data());
        mBuffer->resetBuffer(data, static_cast<std::uint32_t>(bytes.size()), TMemoryBuffer::OBSERVE);
        record.read(mProtocol.get());
    }

private:
    std::shared_ptr<TMemoryBuffer> mBuffer;
    std::shared_ptr<TProtocol> mProtocol;
};

/// Writes records over one of the protocols, and reads what it wrote.
class Wire {
public:
    explicit Wire(std::size_t which)
        : mBuffer(std::make_shared<TMemoryBuffer>()), mProtocol(makeProtocol(which, mBuffer)), mReader(which) {}

    template <class Record>
    std::string write(const Record& record) {
        mBuffer->resetBuffer();
        record.write(mProtocol.get());
        return mBuffer->getBufferAsString();
    }

    template <class Record>
    void read(Record& record, const std::string& written) {
        mReader.read(record, {reinterpret_cast<const std::uint8_t*>(written.data()), written.size()});
    }

private:
    std::shared_ptr<TMemoryBuffer> mBuffer;
    std::shared_ptr<TProtocol> mProtocol;
    Reader mReader;
};

/// For messages that are well formed, made once. A protocol that has refused a message may be in any state, so bytes
/// that nobody has checked get a reader of their own.
std::array<Wire, protocolCount>& wires() {
    static std::array<Wire, protocolCount> all{Wire(0), Wire(1), Wire(2), Wire(3), Wire(4)};
    return all;
}

/// Keeps what is printed; cheaper than a string stream, whose making costs more than a small record's reading.
class Page : public std::streambuf {
public:
    template <class Record>
    static std::string of(const Record& record) {
        static Page page;
        static std::ostream out(&page);
        page.mText.clear();
        out << record;
        return page.mText;
    }

protected:
    std::streamsize xsputn(const char* text, std::streamsize size) override {
        mText.append(text, static_cast<std::size_t>(size));
        return size;
    }
    int_type overflow(int_type value) override {
        mText += static_cast<char>(value);
        return value;
    }

private:
    std::string mText;
};

/// What was written must be readable, and be written in the same bytes again; the binary protocols keep every bit and
/// so the text too.
///
/// JSON in Thrift knows one NaN, without a sign, so there the text settles after the first reading; and its reader
/// drops the zero bytes of a text, which its writer spells \\u0000, so there such a text settles after the first
/// reading too.
template <class Record>
void requireStable(const Record& record, std::size_t protocol) {
    Wire& wire = wires()[protocol];
    std::string written = wire.write(record);
    Record again;
    wire.read(again, written);
    if (protocol == json) {
        if (written.find("\\u0000") != std::string::npos) {
            written = wire.write(again);
        }
    } else {
        require(Page::of(again) == Page::of(record), "what was read is printed as it was");
    }
    require(wire.write(again) == written, "what was read is written as it was");
    Record third;
    wire.read(third, written);
    require(Page::of(third) == Page::of(again), "the same bytes give the same text");
}

template <class Record>
void readAndWrite(std::size_t protocol, std::uint8_t alsoOver, std::span<const std::uint8_t> bytes) {
    Record record;
    bool complete = false;
    {
        Reader reader(protocol);
        const Memory memory;
        try {
            reader.read(record, bytes);
            complete = true;
        } catch (const TException&) {
            // Malformed, and said so. What was read until then is a valid record.
        }
        require(memory.most() <= mostMemory(bytes.size()), "reading takes memory for what has arrived only");
    }
    require(!Page::of(record).empty(), "whatever was read can be printed");
    Record copy(record);
    copy = std::move(record);
    if (complete) {
        requireStable(copy, protocol);
        requireStable(copy, alsoOver % protocolCount);
    } else {
        const Record pristine;
        Wire& wire = wires().front();
        const std::string written = wire.write(pristine);
        wire.read(copy, written);
        require(wire.write(copy).size() >= written.size(), "a record is of use after a failed reading");
    }
}

using Target = void (*)(std::size_t protocol, std::uint8_t alsoOver, std::span<const std::uint8_t> bytes);

constexpr std::array<Target, 18> targets{readAndWrite<ServiceResult>,
                                         readAndWrite<StringResult>,
                                         readAndWrite<Vector>,
                                         readAndWrite<Quaternion>,
                                         readAndWrite<Matrix>,
                                         readAndWrite<Frustum>,
                                         readAndWrite<Viewport>,
                                         readAndWrite<ViewState>,
                                         readAndWrite<ProjectionState>,
                                         readAndWrite<SurfaceState>,
                                         readAndWrite<PlanarCameraState>,
                                         readAndWrite<VectorResult>,
                                         readAndWrite<MatrixResult>,
                                         readAndWrite<ViewStateResult>,
                                         readAndWrite<ProjectionStateResult>,
                                         readAndWrite<SurfaceStateResult>,
                                         readAndWrite<PlanarCameraStateResult>,
                                         readAndWrite<DoubleResult>};

} // namespace
} // namespace camera::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace camera::fuzz;
    Bytes bytes(data, size);
    const std::uint8_t kind = bytes.byte();
    const std::uint8_t protocols = bytes.byte();
    targets[kind % targets.size()](protocols % protocolCount, static_cast<std::uint8_t>(protocols / protocolCount),
                                   bytes.rest());
    return 0;
}
