// SPDX-License-Identifier: Apache-2.0
// Reads a record of any kind from raw bytes over one of Thrift's protocols. Reading may take no more memory than a
// small multiple of the bytes that are there, and may fail with Thrift's exceptions only. Whatever could be read is
// printed.
//
// What was read from a whole message must be what a plain reader takes from it, and what the records read by the
// protocol's own calls. It is written over that protocol and another one, and what comes back must be the same to the
// bit. So that this does not hold for want of messages, the target counts the records that arrived with content.

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <memory>
#include <ostream>
#include <span>
#include <streambuf>
#include <string>
#include <utility>

#include <qel/api/camera/CameraAPIIf.h>

#include <thrift/TConfiguration.h>
#include <thrift/Thrift.h>
#include <thrift/transport/TBufferTransports.h>

#include "fuzz/Bytes.h"
#include "fuzz/Memory.h"
#include "fuzz/PlainReader.h"
#include "fuzz/RecordContents.h"
#include "fuzz/RecordKinds.h"
#include "fuzz/Require.h"

namespace camera::fuzz {
namespace {

using apache::thrift::TConfiguration;
using apache::thrift::TException;
using apache::thrift::protocol::TProtocol;
using apache::thrift::transport::TMemoryBuffer;

/// A list of lists grows by doubling and its empty elements take 24 bytes for one on the wire; a message of any size
/// may take the first part, for the protocol's own needs.
constexpr std::size_t mostMemory(std::size_t size) { return 8192 + 128 * size; }

/// Reads records from bytes over one of the protocols.
class Reader {
public:
    explicit Reader(std::size_t protocol, Road road = Road::own, std::shared_ptr<TConfiguration> limits = nullptr)
        : mBuffer(std::make_shared<TMemoryBuffer>(0, std::move(limits))),
          mProtocol(makeProtocol(protocol, mBuffer, road)) {}

    /// Returns what the record says it has read.
    template <class Record>
    std::uint32_t read(Record& record, std::span<const std::uint8_t> bytes) {
        show(bytes);
        return record.read(mProtocol.get());
    }

    template <class Record>
    void readPlainly(Record& record, std::span<const std::uint8_t> bytes) {
        show(bytes);
        PlainReader(*mProtocol).read(record);
    }

    /// Bytes that nothing has taken.
    [[nodiscard]] std::uint32_t left() const { return mBuffer->available_read(); }

private:
    void show(std::span<const std::uint8_t> bytes) {
        // The buffer does not write into what it observes. Thrift adds to the pointer, which must not be null.
        static std::uint8_t nothing = 0;
        std::uint8_t* const data = bytes.empty() ? &nothing : const_cast<std::uint8_t*>(bytes.data());
        mBuffer->resetBuffer(data, static_cast<std::uint32_t>(bytes.size()), TMemoryBuffer::OBSERVE);
    }

    std::shared_ptr<TMemoryBuffer> mBuffer;
    std::shared_ptr<TProtocol> mProtocol;
};

/// Writes records over one of the protocols, and reads what it wrote.
class Wire {
public:
    Wire(std::size_t protocol, Road road)
        : mBuffer(std::make_shared<TMemoryBuffer>()),
          mProtocol(makeProtocol(protocol, mBuffer, road)),
          mReader(protocol, road) {}

    template <class Record>
    std::string write(const Record& record) {
        mBuffer->resetBuffer();
        record.write(mProtocol.get());
        return mBuffer->getBufferAsString();
    }

    template <class Record>
    void read(Record& record, const std::string& written) {
        mReader.read(record, bytesOf(written));
        require(mReader.left() == 0, "a record is read to its end");
    }
    template <class Record>
    void readPlainly(Record& record, const std::string& written) {
        mReader.readPlainly(record, bytesOf(written));
    }

private:
    static std::span<const std::uint8_t> bytesOf(const std::string& written) {
        return {reinterpret_cast<const std::uint8_t*>(written.data()), written.size()};
    }

    std::shared_ptr<TMemoryBuffer> mBuffer;
    std::shared_ptr<TProtocol> mProtocol;
    Reader mReader;
};

/// For messages that are well formed, made once. A protocol that has refused a message may be in any state, so bytes
/// that nobody has checked get a reader of their own.
Wire& wire(std::size_t protocol, Road road = Road::own) {
    static std::array<Wire, protocolCount> own{Wire(0, Road::own), Wire(1, Road::own), Wire(2, Road::own),
                                               Wire(3, Road::own), Wire(4, Road::own)};
    static std::array<Wire, protocolCount> calls{Wire(0, Road::calls), Wire(1, Road::calls), Wire(2, Road::calls),
                                                 Wire(3, Road::calls), Wire(4, Road::calls)};
    return (road == Road::own ? own : calls)[protocol];
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

/// How many full records of each kind have come over each protocol.
struct Arrivals {
    std::array<std::array<std::size_t, protocolCount>, kindCount> read{};
    std::array<std::array<std::size_t, protocolCount>, kindCount> written{};
    std::size_t inputs = 0;
};
Arrivals arrivals;

/// What was written must be readable, to the same bits, and be written in the same bytes again; by the records' own
/// encoding as by the protocol's calls.
template <class Record>
void requireStable(const Record& record, std::size_t protocol) {
    const bool inJson = protocol == json;
    const std::string written = wire(protocol).write(record);
    Record again;
    wire(protocol).read(again, written);
    const Record expected = arrived(record);
    if (inJson) {
        require(Contents::of(asJsonCarries(again)) == Contents::of(asJsonCarries(expected)),
                "what was written in JSON is read as it was");
    } else {
        require(Contents::of(again) == Contents::of(expected), "what was written is read as it was");
    }
    // The zero bytes of a text in JSON are written, and not read.
    const bool isCarried = !inJson || written.find("\\u0000") == std::string::npos;
    require(wire(protocol).write(again) == (isCarried ? written : wire(protocol).write(asJsonCarries(expected))),
            "what was read is written as it was");
    require(inJson || Page::of(again) == Page::of(record), "what was read is printed as it was");

    Record third;
    if (inJson) { // has no road but that of the calls
        wire(protocol).readPlainly(third, written);
    } else {
        require(wire(protocol, Road::calls).write(record) == written, "both roads write the same");
        wire(protocol, Road::calls).read(third, written);
    }
    require(Contents::of(third) == Contents::of(again), "what was written is read the same in another way");
    require(Page::of(third) == Page::of(again), "the same bytes give the same text");
}

/// A message that was read whole, read in other ways.
template <class Record>
void requireReadOtherwise(std::size_t protocol, std::span<const std::uint8_t> bytes, const Record& record,
                          std::uint32_t left) {
    if (protocol != json) {
        Reader calls(protocol, Road::calls);
        Record called;
        try {
            calls.read(called, bytes);
        } catch (const TException&) {
            broken("both roads take the same messages");
        }
        require(Contents::of(called) == Contents::of(record), "both roads read the same");
        require(calls.left() == left, "both roads take the same bytes");
    }
    Reader plain(protocol);
    Record expected;
    plain.readPlainly(expected, bytes);
    require(Contents::of(record) == Contents::of(expected), "a record holds what stands in the message");
    require(plain.left() == left, "a record takes its own bytes");
}

/// A message that the records' own decoding has refused.
template <class Record>
void requireRefusedByCalls(std::size_t protocol, std::span<const std::uint8_t> bytes) {
    // Thrift's protocols make room for a text by its announced size, up to this.
    static const auto limits = std::make_shared<TConfiguration>(20000);
    Reader calls(protocol, Road::calls, limits);
    Record called;
    try {
        calls.read(called, bytes);
    } catch (const TException&) {
        return;
    }
    broken("both roads refuse the same messages");
}

/// A record that has kept a part of a message reads the next one like any other.
template <class Record>
void requireOfUse(Record& record) {
    const Record pristine;
    const std::string written = wire(0).write(pristine);
    wire(0).read(record, written);
    dropOptional(record); // the one field that a message may lack, and which then stays as it was
    require(Contents::of(record) == Contents::of(arrived(pristine)), "a record is of use after a failed reading");
}

template <std::size_t kind>
void readAndWrite(std::size_t protocol, std::size_t otherProtocol, std::span<const std::uint8_t> bytes) {
    using Record = std::tuple_element_t<kind, RecordKinds>;
    Record record;
    bool complete = false;
    std::uint32_t left = 0;
    {
        Reader reader(protocol);
        const Memory memory;
        try {
            const std::uint32_t count = reader.read(record, bytes);
            complete = true;
            left = reader.left();
            require(count == bytes.size() - left, "a record tells how many bytes it took");
        } catch (const TException&) {
            // Malformed, and said so. What was read until then is a valid record.
        }
        require(memory.most() <= mostMemory(bytes.size()), "reading takes memory for what has arrived only");
    }
    require(!Page::of(record).empty(), "whatever was read can be printed");
    Record copy(record);
    copy = std::move(record);
    if (!complete) {
        if (protocol != json) {
            requireRefusedByCalls<Record>(protocol, bytes);
        }
        requireOfUse(copy);
        return;
    }
    requireReadOtherwise(protocol, bytes, copy, left);
    requireStable(copy, protocol);
    requireStable(copy, otherProtocol);
    if (isFull(copy)) {
        ++arrivals.read[kind][protocol];
        ++arrivals.written[kind][protocol];
        arrivals.written[kind][otherProtocol] += protocol != otherProtocol ? 1 : 0;
    }
}

using Target = void (*)(std::size_t protocol, std::size_t otherProtocol, std::span<const std::uint8_t> bytes);

template <std::size_t... kinds>
constexpr std::array<Target, kindCount> targetsOf(std::index_sequence<kinds...>) {
    return {readAndWrite<kinds>...};
}
constexpr std::array<Target, kindCount> targets = targetsOf(std::make_index_sequence<kindCount>());

template <std::size_t... kinds>
constexpr std::array<const char*, kindCount> namesOf(std::index_sequence<kinds...>) {
    return {qel::api::FieldTable<std::tuple_element_t<kinds, RecordKinds>>::recordName...};
}
constexpr std::array<const char*, kindCount> kindNames = namesOf(std::make_index_sequence<kindCount>());

} // namespace
} // namespace camera::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace camera::fuzz;
    Bytes bytes(data, size);
    const std::uint8_t kind = bytes.byte();
    const std::size_t protocols = bytes.byte();
    ++arrivals.inputs;
    targets[kind % kindCount](protocols % protocolCount, protocols / protocolCount % protocolCount, bytes.rest());
    return 0;
}

/// Every kind of record has been read and written in full over every protocol; in a short form, several times.
extern "C" bool fuzzReachedEverything() {
    using namespace camera::fuzz;
    const std::size_t least = std::min<std::size_t>(1 + arrivals.inputs / 10000, 6);
    std::size_t fewestRead = arrivals.inputs;
    bool reached = true;
    for (std::size_t kind = 0; kind < kindCount; ++kind) {
        for (std::size_t protocol = 0; protocol < protocolCount; ++protocol) {
            const std::size_t read = arrivals.read[kind][protocol];
            const std::size_t written = arrivals.written[kind][protocol];
            fewestRead = std::min(fewestRead, read);
            if (read < least || written < least) {
                reached = false;
                std::fprintf(stderr, "full %s over %s: read %zu times and written %zu times, want %zu\n",
                             kindNames[kind], protocolNames[protocol], read, written, least);
            }
        }
    }
    std::printf("every record over every protocol: full at least %zu times\n", fewestRead);
    return reached;
}
