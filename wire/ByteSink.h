// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>

#include <thrift/transport/TTransport.h>

namespace qel::api::wire {

/// Collects the bytes of one record and hands them to a transport in large pieces, instead of one call for each
/// number.
class ByteSink {
public:
    explicit ByteSink(::apache::thrift::transport::TTransport& transport) : mTransport(transport) {}

    ByteSink(const ByteSink&) = delete;
    ByteSink& operator=(const ByteSink&) = delete;

    /// Room for the next `size` bytes, at most 16; the caller fills it at once.
    std::uint8_t* put(std::uint32_t size) {
        if (mBytes.size() - mSize < size) {
            flush();
        }
        std::uint8_t* room = mBytes.data() + mSize;
        mSize += size;
        mCount += size;
        return room;
    }

    void put(const std::string& text) {
        const auto size = static_cast<std::uint32_t>(text.size());
        if (mBytes.size() - mSize < size) {
            flush();
        }
        if (mBytes.size() < size) {
            mTransport.write(reinterpret_cast<const std::uint8_t*>(text.data()), size);
        } else {
            std::memcpy(mBytes.data() + mSize, text.data(), size);
            mSize += size;
        }
        mCount += size;
    }

    /// Hands the collected bytes over. The writing of a record ends with it, also when an exception ends the writing,
    /// so that the transport has what the protocol itself would have written.
    void flush() {
        const auto size = static_cast<std::uint32_t>(mSize);
        mSize = 0;
        if (size > 0) {
            mTransport.write(mBytes.data(), size);
        }
    }

    /// All bytes put so far.
    std::uint32_t count() const { return mCount; }

private:
    ::apache::thrift::transport::TTransport& mTransport;
    std::size_t mSize = 0;
    std::uint32_t mCount = 0;
    std::array<std::uint8_t, 2048> mBytes;
};

} // namespace qel::api::wire
