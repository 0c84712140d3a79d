// SPDX-License-Identifier: Apache-2.0
#include "wire/ChooseWire.h"

#include <string_view>
#include <typeinfo>

#include <thrift/protocol/TBinaryProtocol.h>
#include <thrift/protocol/TCompactProtocol.h>
#include <thrift/transport/TBufferTransports.h>

namespace qel::api::wire {
namespace {

using namespace ::apache::thrift::protocol;
using namespace ::apache::thrift::transport;

#ifdef PACKAGE_VERSION
constexpr std::string_view thriftVersion = PACKAGE_VERSION; // Thrift's, by its own config.h
#else
constexpr std::string_view thriftVersion;
#endif

/// What is known here of Thrift's classes, and what BinaryWire.h and CompactWire.h know of their bytes and limits, has
/// been proven against this version. Another one may have changed it without a word from the compiler, so with another
/// one, or an unknown one, every protocol is `other`: slower, and a text costs what it announces, but never wrong.
/// When wires_agree_test and hostile_input_test pass with a newer version, it may be named here.
constexpr bool isProven = thriftVersion.starts_with("0.24.");

/// Limits and transport are protected members of the protocols. A derived class may name them; none is ever made.
/// getTransport() would count one more owner and one less, which costs as much as reading a vector's numbers.
template <class Protocol>
struct MembersOf : Protocol {
    static WireLimits limits(const Protocol& protocol) {
        return {protocol.*(&MembersOf::string_limit_), protocol.*(&MembersOf::container_limit_)};
    }
    static TTransport* transport(const Protocol& protocol) { return (protocol.*(&MembersOf::ptrans_)).get(); }
};

template <bool byName, class Protocol>
bool recogniseAs(Encoding encoding, TProtocol& protocol, KnownProtocol& known) {
    const std::type_info& type = typeid(protocol);
    if (byName ? type != typeid(Protocol) : &type != &typeid(Protocol)) {
        return false;
    }
    const auto& concrete = static_cast<Protocol&>(protocol);
    known = {encoding, MembersOf<Protocol>::limits(concrete), MembersOf<Protocol>::transport(concrete)};
    return true;
}

template <bool byName, class... Transports>
bool recogniseOver(TProtocol& protocol, KnownProtocol& known) {
    return ((recogniseAs<byName, TBinaryProtocolT<Transports>>(Encoding::binary, protocol, known) ||
             recogniseAs<byName, TCompactProtocolT<Transports>>(Encoding::compact, protocol, known) ||
             recogniseAs<byName, TBinaryProtocolT<Transports, TNetworkLittleEndian>>(Encoding::binaryLittleEndian,
                                                                                     protocol, known)) ||
            ...);
}

template <bool byName>
bool recogniseBy(TProtocol& protocol, KnownProtocol& known) {
    return recogniseOver<byName, TTransport, TMemoryBuffer, TBufferedTransport, TFramedTransport>(protocol, known);
}

} // namespace

KnownProtocol recognise(TProtocol& protocol) {
    KnownProtocol known;
    if constexpr (isProven) {
        // Names are compared only where no type object is the same, as for a protocol that another module has made:
        // that takes as long as reading a vector.
        recogniseBy<false>(protocol, known) || recogniseBy<true>(protocol, known);
    }
    return known;
}

} // namespace qel::api::wire
