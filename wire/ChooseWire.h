// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <bit>
#include <cstdint>

#include <thrift/protocol/TProtocol.h>

#include "wire/BinaryWire.h"
#include "wire/CompactWire.h"
#include "wire/ProtocolWire.h"
#include "wire/WireTypes.h"

namespace qel::api::wire {

/// How a protocol encodes, where it is one of Thrift's own Binary or Compact classes.
enum class Encoding : std::uint8_t { other, binary, binaryLittleEndian, compact };

struct KnownProtocol {
    Encoding encoding = Encoding::other;
    WireLimits limits;
    TTransport* transport = nullptr; ///< the protocol's own
};

/// Recognises a protocol by its exact class. A class derived from one of Thrift's may encode otherwise and is `other`.
KnownProtocol recognise(TProtocol& protocol);

/// Does the work and leaves the transport where the protocol itself would have left it, also after an exception.
template <class Wire, class Work>
std::uint32_t finishAfter(Wire wire, Work& work) {
    try {
        work(wire);
    } catch (...) {
        wire.finish();
        throw;
    }
    wire.finish();
    return wire.count();
}

/// Calls work(reader) with the reader that suits the protocol; returns the bytes read. Records that are nested in the
/// one that is read share its reader.
///
/// Binary and Compact are decoded here rather than by their protocol's own virtual calls, since those make room for a
/// text by its announced size before its bytes arrive, and cost two virtual calls a number.
template <class Work>
std::uint32_t withReader(TProtocol& protocol, Work work) {
    const KnownProtocol known = recognise(protocol);
    switch (known.encoding) {
    case Encoding::other: break;
    case Encoding::binary:
        return finishAfter(BinaryReader<std::endian::big>(protocol, *known.transport, known.limits), work);
    case Encoding::binaryLittleEndian:
        return finishAfter(BinaryReader<std::endian::little>(protocol, *known.transport, known.limits), work);
    case Encoding::compact: return finishAfter(CompactReader(protocol, *known.transport, known.limits), work);
    }
    return finishAfter(ProtocolReader(protocol), work);
}

/// Calls work(writer) with the writer that suits the protocol; returns the bytes written.
template <class Work>
std::uint32_t withWriter(TProtocol& protocol, Work work) {
    const KnownProtocol known = recognise(protocol);
    switch (known.encoding) {
    case Encoding::other: break;
    case Encoding::binary: return finishAfter(BinaryWriter<std::endian::big>(protocol, *known.transport), work);
    case Encoding::binaryLittleEndian:
        return finishAfter(BinaryWriter<std::endian::little>(protocol, *known.transport), work);
    case Encoding::compact: return finishAfter(CompactWriter(protocol, *known.transport), work);
    }
    return finishAfter(ProtocolWriter(protocol), work);
}

} // namespace qel::api::wire
