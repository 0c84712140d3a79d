// SPDX-License-Identifier: Apache-2.0
// Reads a record of any kind from raw bytes over one of Thrift's protocols. Reading may take no more memory than a
// small multiple of the bytes that are there, and may fail with Thrift's exceptions only. Whatever could be read is
// printed.
//
// What was read from a whole message must be what the records read by the protocol's own calls. It is written over that
// protocol and another one, and what comes back must be the same to the bit. So that this does not hold for want of
// messages, the target counts the records that arrived with content.

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <utility>

#include <qel/api/camera/CameraAPIIf.h>

#include <thrift/TConfiguration.h>
#include <thrift/Thrift.h>
#include <thrift/transport/TBufferTransports.h>

#include "fuzz/Bytes.h"
#include "fuzz/Reached.h"
#include "fuzz/RecordContents.h"
#include "fuzz/RecordKinds.h"
#include "fuzz/Require.h"
#include "tests/reliability/Allocations.h"

namespace camera::fuzz {
namespace {

using apache::thrift::TConfiguration;
using apache::thrift::TException;
using apache::thrift::transport::TMemoryBuffer;
using qel::api::textOf;

/// A list of lists grows by doubling and its empty elements take 24 bytes for one on the wire; a message of any size
/// may take the first part, for the protocol's own needs.
constexpr std::size_t mostMemory(std::size_t size) { return 8192 + 128 * size; }

/// What came of reading a message.
struct Reading {
    bool complete = false;   ///< or Thrift's exception was thrown
    std::uint32_t count = 0; ///< what the record says it has read
    std::uint32_t left = 0;  ///< bytes that nothing has taken
    std::size_t memory = 0;  ///< the most that was held meanwhile
};

/// By a protocol of its own: one that has refused a message may be in any state.
template <class Record>
Reading readInto(Record& record, std::span<const std::uint8_t> bytes, std::size_t protocol, Code code = Code::own,
                 std::shared_ptr<TConfiguration> limits = nullptr) {
    // The buffer does not write into what it observes. Thrift adds to the pointer, which must not be null.
    static std::uint8_t nothing = 0;
    const auto buffer = std::make_shared<TMemoryBuffer>(0, std::move(limits));
    buffer->resetBuffer(bytes.empty() ? &nothing : const_cast<std::uint8_t*>(bytes.data()),
                        static_cast<std::uint32_t>(bytes.size()), TMemoryBuffer::OBSERVE);
    const auto reader = makeProtocol(protocol, buffer, code);
    Reading reading;
    reading.memory = qel::test::peakOf([&] {
        try {
            reading.count = record.read(reader.get());
            reading.complete = true;
        } catch (const TException&) {
            // Malformed, and said so. What was read until then is a valid record.
        }
    });
    reading.left = buffer->available_read();
    return reading;
}

template <class Record>
std::string written(const Record& record, std::size_t protocol, Code code = Code::own) {
    const auto buffer = std::make_shared<TMemoryBuffer>();
    record.write(makeProtocol(protocol, buffer, code).get());
    return buffer->getBufferAsString();
}

/// Of a message that was written whole.
template <class Record>
void readBack(Record& record, const std::string& message, std::size_t protocol, Code code = Code::own) {
    const Reading reading =
        readInto(record, {reinterpret_cast<const std::uint8_t*>(message.data()), message.size()}, protocol, code);
    require(reading.complete && reading.left == 0, "a record is read to its end");
}

/// What was written must be readable, to the same bits, and be written in the same bytes again; by the records' own
/// encoding as by the protocol's calls.
template <class Record>
void requireStable(const Record& record, std::size_t protocol) {
    const std::string message = written(record, protocol);
    const Record expected = arrived(record);
    Record again;
    readBack(again, message, protocol);
    if (protocol == json) { // which is written and read by the protocol's calls alone
        require(sameBits(asJsonCarries(again), asJsonCarries(expected)), "what was written in JSON is read as it was");
        // The zero bytes of a text in JSON are written, and not read.
        const bool isCarried = message.find("\\u0000") == std::string::npos;
        require(written(again, json) == (isCarried ? message : written(asJsonCarries(expected), json)),
                "what was read in JSON is written as it was");
        return;
    }
    require(sameBits(again, expected), "what was written is read as it was");
    require(written(again, protocol) == message, "what was read is written as it was");
    require(textOf(again) == textOf(record), "what was read is printed as it was");
    require(written(record, protocol, Code::calls) == message, "the records write what the protocol's calls do");
    Record called;
    readBack(called, message, protocol, Code::calls);
    require(sameBits(called, again), "what was written is read the same by the protocol's calls");
}

/// A message that the records' own decoding has taken, or refused, meets the same by the protocol's calls.
template <class Record>
void requireSameByCalls(std::size_t protocol, std::span<const std::uint8_t> bytes, const Record& record,
                        const Reading& reading) {
    // Thrift's protocols make room for a text by its announced size, up to this.
    static const auto limits = std::make_shared<TConfiguration>(20000);
    Record called;
    const Reading byCalls = readInto(called, bytes, protocol, Code::calls, reading.complete ? nullptr : limits);
    require(byCalls.complete == reading.complete, "the protocol's calls take the messages that the records take");
    if (reading.complete) {
        require(sameBits(called, record), "the protocol's calls read the same");
        require(byCalls.left == reading.left, "the protocol's calls take the same bytes");
    }
}

/// A record that has kept a part of a message reads the next one like any other.
template <class Record>
void requireOfUse(Record& record) {
    Record next;
    // The one field that a message may lack, and which then stays as it was.
    if constexpr (requires { next.mResult; }) {
        next.mResult.__set_mMessage("next");
    } else if constexpr (requires { next.mMessage; }) {
        next.__set_mMessage("next");
    }
    readBack(record, written(next, 0), 0);
    require(sameBits(record, arrived(next)), "a record is of use after a failed reading");
}

/// Full records of each kind that were read, and that were written, over each protocol.
Reached reached;
std::uint64_t inputs = 0;

constexpr std::size_t arrival(std::size_t kind, std::size_t protocol, bool written) {
    return 2 * (protocolCount * kind + protocol) + (written ? 1 : 0);
}

template <std::size_t kind>
void readAndWrite(std::size_t protocol, std::size_t otherProtocol, std::span<const std::uint8_t> bytes) {
    using Record = std::tuple_element_t<kind, RecordKinds>;
    Record record;
    const Reading reading = readInto(record, bytes, protocol);
    require(!reading.complete || reading.count == bytes.size() - reading.left, "a record tells how many bytes it took");
    require(reading.memory <= mostMemory(bytes.size()), "reading takes memory for what has arrived only");
    require(!textOf(record).empty(), "whatever was read can be printed");
    Record copy(record);
    copy = std::move(record);
    if (protocol != json) {
        requireSameByCalls(protocol, bytes, copy, reading);
    }
    if (!reading.complete) {
        requireOfUse(copy);
        return;
    }
    requireStable(copy, protocol);
    requireStable(copy, otherProtocol);
    if (isFull(copy)) {
        reached.count(arrival(kind, protocol, false));
        reached.count(arrival(kind, protocol, true));
        if (protocol != otherProtocol) {
            reached.count(arrival(kind, otherProtocol, true));
        }
    }
}

using Target = void (*)(std::size_t protocol, std::size_t otherProtocol, std::span<const std::uint8_t> bytes);

struct Kind {
    const char* name;
    Target target;
};

constexpr auto kinds = []<std::size_t... kind>(std::index_sequence<kind...>) {
    return std::array{
        Kind{qel::api::FieldTable<std::tuple_element_t<kind, RecordKinds>>::recordName, readAndWrite<kind>}...};
}
(std::make_index_sequence<kindCount>());

[[maybe_unused]] const bool expected = [] {
    for (const Kind& kind : kinds) {
        for (const char* protocol : protocolNames) {
            for (const char* done : {" read", " written"}) {
                reached.expect(std::string("a full ").append(kind.name).append(" over ").append(protocol).append(done));
            }
        }
    }
    return true;
}();

} // namespace
} // namespace camera::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace camera::fuzz;
    Bytes bytes(data, size);
    const std::uint8_t kind = bytes.byte();
    const std::size_t protocols = bytes.byte();
    ++inputs;
    kinds[kind % kindCount].target(protocols % protocolCount, protocols / protocolCount % protocolCount, bytes.rest());
    return 0;
}

/// Every kind of record has been read and written in full over every protocol; in a short form, several times.
extern "C" bool fuzzReachedEverything() {
    using namespace camera::fuzz;
    return reached.everything(std::min<std::uint64_t>(1 + inputs / 10000, 6));
}
