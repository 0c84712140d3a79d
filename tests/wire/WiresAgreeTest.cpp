// SPDX-License-Identifier: Apache-2.0
#include <cstdint>
#include <memory>
#include <string>
#include <typeinfo>
#include <vector>

#include <gtest/gtest.h>
#include <thrift/protocol/TBinaryProtocol.h>
#include <thrift/protocol/TCompactProtocol.h>
#include <thrift/transport/TBufferTransports.h>
#include <thrift/transport/TVirtualTransport.h>

#include <qel/api/camera/CameraAPIIf.h>
#include <qel/api/camera/Fields.h>

#include "tests/component/support/RecordFields.h"
#include "tests/records/AllRecords.h"
#include "tests/records/RandomRecords.h"
#include "tests/records/SameBits.h"
#include "tests/wire/BrokenMessages.h"
#include "tests/wire/WireBytes.h"

// Binary and Compact are decoded and encoded by the records themselves where the protocol is exactly one of Thrift's
// classes. A class derived from it is not recognised, so the same message then goes through the protocol's own calls.
// Whatever comes in, both must do the same.
namespace qel::api {
namespace {

using namespace ::apache::thrift::protocol;
using namespace ::apache::thrift::transport;
using ::apache::thrift::TConfiguration;

/// Shows what is left of the message size that the transport allows.
class CountingBuffer : public TMemoryBuffer {
public:
    using TMemoryBuffer::TMemoryBuffer;
    long left() { return getRemainingMessageSize(); }
};

/// Hands out one byte at a time and holds no buffer to look into, as a slow socket does.
class Dribble : public TVirtualTransport<Dribble> {
public:
    explicit Dribble(const std::string& bytes) : mBytes(bytes) {}
    bool isOpen() const override { return true; }
    std::uint32_t read(std::uint8_t* buffer, std::uint32_t size) {
        if (size == 0 || mNext == mBytes.size()) {
            return 0;
        }
        *buffer = static_cast<std::uint8_t>(mBytes[mNext++]);
        return 1;
    }
    void write(const std::uint8_t* bytes, std::uint32_t size) {
        mBytes.append(reinterpret_cast<const char*>(bytes), size);
    }
    const std::string& bytes() const { return mBytes; }

private:
    std::string mBytes;
    std::size_t mNext = 0;
};

/// Shows a few bytes at a time, elsewhere each time that it is asked, also when it then has too few to show.
class Restless : public TVirtualTransport<Restless> {
public:
    explicit Restless(const std::string& bytes) : mBytes(bytes) {}
    bool isOpen() const override { return true; }
    std::uint32_t read(std::uint8_t* buffer, std::uint32_t size) {
        forget();
        const auto given = static_cast<std::uint32_t>(mBytes.copy(reinterpret_cast<char*>(buffer), size, mNext));
        mNext += given;
        return given;
    }
    const std::uint8_t* borrow(std::uint8_t*, std::uint32_t* size) {
        forget();
        mShown = std::make_unique<std::string>(mBytes, mNext, 24);
        if (mShown->size() < *size) {
            return nullptr;
        }
        *size = static_cast<std::uint32_t>(mShown->size());
        return reinterpret_cast<const std::uint8_t*>(mShown->data());
    }
    void consume(std::uint32_t size) { mNext += size; }

private:
    void forget() {
        if (mShown) {
            mShown->assign(mShown->size(), '\xee');
        }
    }

    std::string mBytes;
    std::size_t mNext = 0;
    std::unique_ptr<std::string> mShown;
};

/// What reading one message led to.
template <class Record>
struct Outcome {
    Record record;
    std::uint32_t count = 0;
    std::string thrown;
    std::uint32_t left = 0; ///< bytes left in the transport
    long allowed = 0;       ///< bytes left of the message size
};

constexpr int messageLimit = 20000; // keeps what Thrift's own reading makes room for small

template <class Protocol, class Record>
Outcome<Record> readOutcome(const std::string& bytes, std::int32_t textLimit, std::int32_t containerLimit) {
    Outcome<Record> outcome;
    auto configuration = std::make_shared<TConfiguration>(messageLimit);
    auto buffer = std::make_shared<CountingBuffer>(static_cast<std::uint32_t>(bytes.size() + 1), configuration);
    buffer->write(reinterpret_cast<const std::uint8_t*>(bytes.data()), static_cast<std::uint32_t>(bytes.size()));
    auto protocol = [&] {
        if constexpr (std::is_constructible_v<Protocol, decltype(buffer), int, int, bool, bool>) {
            return Protocol(buffer, textLimit, containerLimit, false, true);
        } else {
            return Protocol(buffer, textLimit, containerLimit);
        }
    }();
    try {
        outcome.count = outcome.record.read(&protocol);
    } catch (const TProtocolException& exception) {
        outcome.thrown = "protocol " + std::to_string(exception.getType()) + exception.what();
    } catch (const TTransportException& exception) {
        outcome.thrown = "transport " + std::to_string(exception.getType()) + exception.what();
    } catch (const std::exception& exception) {
        outcome.thrown = typeid(exception).name() + std::string(exception.what());
    }
    outcome.left = buffer->available_read();
    outcome.allowed = buffer->left();
    return outcome;
}

template <class Known, class Record>
void expectSame(const std::string& bytes, std::int32_t textLimit = 0, std::int32_t containerLimit = 0) {
    const auto own = readOutcome<Known, Record>(bytes, textLimit, containerLimit);
    const auto other = readOutcome<Unknown<Known>, Record>(bytes, textLimit, containerLimit);
    ASSERT_EQ(own.thrown, other.thrown) << toHex(bytes);
    ASSERT_EQ(own.count, other.count) << toHex(bytes);
    ASSERT_EQ(own.left, other.left) << own.thrown << " " << toHex(bytes);
    ASSERT_EQ(own.allowed, other.allowed) << own.thrown << " " << toHex(bytes);
    ASSERT_EQ(camera::test::flagsOf(own.record), camera::test::flagsOf(other.record))
        << own.thrown << " " << toHex(bytes);
    if (own.thrown.empty()) {
        ASSERT_TRUE(sameBits(own.record, other.record)) << toHex(bytes);
    }
}

template <class Protocol>
class Wires : public ::testing::Test {};
using KnownProtocols = ::testing::Types<TBinaryProtocol, TLEBinaryProtocol, TCompactProtocol>;
TYPED_TEST_SUITE(Wires, KnownProtocols);

/// The protocols over a transport of known type are recognised as well.
template <class Protocol>
class AnyWires : public ::testing::Test {};
using AnyProtocols =
    ::testing::Types<TBinaryProtocol, TLEBinaryProtocol, TCompactProtocol, TBinaryProtocolT<TMemoryBuffer>,
                     TBinaryProtocolT<TMemoryBuffer, TNetworkLittleEndian>, TCompactProtocolT<TMemoryBuffer>>;
TYPED_TEST_SUITE(AnyWires, AnyProtocols);

TYPED_TEST(AnyWires, WriteAndReadTheSame) {
    AllRecords::forEach([]<class Record>() {
        RandomRecords random(101);
        random.allowNaN();
        for (int i = 0; i < 50; ++i) {
            const auto record = random.make<Record>();
            const std::string bytes = written<TypeParam>(record);
            ASSERT_EQ(toHex(bytes), toHex(written<Unknown<TypeParam>>(record)));
            expectSame<TypeParam, Record>(bytes);
        }
    });
}

TYPED_TEST(Wires, ReadTheSameOfBrokenMessages) {
    AllRecords::forEach([]<class Record>() {
        forEachBrokenMessage<TypeParam, Record>(
            107, [](const std::string& bytes, bool) { expectSame<TypeParam, Record>(bytes); });
    });
}

TYPED_TEST(Wires, KeepTheLimitsOfTheProtocol) {
    RandomRecords random(127);
    for (int i = 0; i < 300; ++i) {
        const std::string bytes = written<TypeParam>(random.make<camera::PlanarCameraStateResult>());
        expectSame<TypeParam, camera::PlanarCameraStateResult>(bytes, static_cast<std::int32_t>(random.below(40)),
                                                               static_cast<std::int32_t>(random.below(12)));
    }
}

/// Transports that hold a part of the message, of any size, or none, and one that moves its bytes when it is asked for
/// more than it has. A record takes no byte behind its own, or it would wait for one at the end of a stream.
TYPED_TEST(Wires, ReadFromAnyTransport) {
    RandomRecords random(131);
    for (int i = 0; i < 60; ++i) {
        const auto first = random.make<camera::PlanarCameraStateResult>();
        const auto second = random.make<camera::PlanarCameraStateResult>();
        const std::string bytes = written<TypeParam>(first) + written<TypeParam>(second) + "rest";
        const auto readBoth = [&](std::shared_ptr<TTransport> transport) {
            TypeParam protocol(transport);
            camera::PlanarCameraStateResult read;
            ASSERT_EQ(read.read(&protocol), written<TypeParam>(first).size());
            ASSERT_TRUE(read == first);
            camera::PlanarCameraStateResult next;
            next.read(&protocol);
            ASSERT_TRUE(next == second);
            std::uint8_t rest[4];
            transport->readAll(rest, 4);
            ASSERT_EQ(std::string(rest, rest + 4), "rest");
        };
        for (const std::uint32_t size : {1U, 2U, 7U, 8U, 9U, 64U, 1000U}) {
            readBoth(std::make_shared<TBufferedTransport>(bufferOf(bytes), size));
            readBoth(std::make_shared<TBufferedTransport>(std::make_shared<Dribble>(bytes), size));
        }
        readBoth(std::make_shared<Dribble>(bytes));
        readBoth(std::make_shared<Restless>(bytes));

        auto framed = std::make_shared<TMemoryBuffer>();
        TFramedTransport frames(framed);
        for (std::size_t at = 0; at < bytes.size();) { // frames of uneven size
            const std::size_t size = std::min(bytes.size() - at, 1 + random.below(100));
            frames.write(reinterpret_cast<const std::uint8_t*>(bytes.data()) + at, static_cast<std::uint32_t>(size));
            frames.flush();
            at += size;
        }
        readBoth(std::make_shared<TFramedTransport>(framed));
    }
}

TYPED_TEST(Wires, WriteToAnyTransport) {
    RandomRecords random(139);
    for (int i = 0; i < 50; ++i) {
        const auto record = random.make<camera::PlanarCameraStateResult>();
        const std::string bytes = written<Unknown<TypeParam>>(record);
        auto unbuffered = std::make_shared<Dribble>("");
        TypeParam direct(unbuffered);
        EXPECT_EQ(record.write(&direct), bytes.size());
        EXPECT_EQ(toHex(unbuffered->bytes()), toHex(bytes));

        auto below = std::make_shared<Dribble>("");
        auto buffered = std::make_shared<TBufferedTransport>(below, 16);
        TypeParam protocol(buffered);
        record.write(&protocol);
        buffered->flush();
        EXPECT_EQ(toHex(below->bytes()), toHex(bytes));
    }
}

/// A transport that takes so many bytes and then fails.
class Full : public TVirtualTransport<Full> {
public:
    explicit Full(std::size_t room) : mRoom(room) {}
    bool isOpen() const override { return true; }
    void write(const std::uint8_t*, std::uint32_t size) {
        if (size > mRoom) {
            throw TTransportException(TTransportException::NOT_OPEN, "full");
        }
        mRoom -= size;
    }

private:
    std::size_t mRoom;
};

TYPED_TEST(Wires, ATransportsFailurePassesThrough) {
    RandomRecords random(149);
    const auto record = random.make<camera::PlanarCameraStateResult>();
    const std::size_t size = written<TypeParam>(record).size();
    for (std::size_t room = 0; room < size; room += 1 + size / 50) {
        TypeParam protocol(std::make_shared<Full>(room));
        EXPECT_THROW(record.write(&protocol), TTransportException);
        for (std::uint32_t i = 0; i < protocol.getRecursionLimit(); ++i) {
            protocol.incrementOutputRecursionDepth();
        }
        EXPECT_THROW(protocol.incrementOutputRecursionDepth(), TProtocolException);
    }
}

/// What is written before the depth limit stops the writing is the same too.
TYPED_TEST(Wires, WriteTheSameUpToTheDepthLimit) {
    const auto writtenUpTo = []<class Protocol>(std::uint32_t limit) {
        auto buffer = std::make_shared<TMemoryBuffer>();
        Protocol protocol(buffer);
        protocol.setRecurisionLimit(limit);
        camera::PlanarCameraStateResult record;
        EXPECT_THROW(record.write(&protocol), TProtocolException);
        return toHex(buffer->getBufferAsString());
    };
    for (std::uint32_t limit = 0; limit < 4; ++limit) {
        EXPECT_EQ(writtenUpTo.template operator()<TypeParam>(limit),
                  writtenUpTo.template operator()<Unknown<TypeParam>>(limit));
    }
}

} // namespace
} // namespace qel::api
