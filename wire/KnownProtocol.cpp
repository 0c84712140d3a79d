// SPDX-License-Identifier: Apache-2.0
#include "wire/ChooseWire.h"

#include <typeinfo>

#include <thrift/protocol/TBinaryProtocol.h>
#include <thrift/protocol/TCompactProtocol.h>
#include <thrift/transport/TBufferTransports.h>

namespace qel::api::wire {
namespace {

using namespace ::apache::thrift::protocol;
using namespace ::apache::thrift::transport;

/// Limits and transport are protected members of the protocols. A derived class may name them; none is ever made.
/// getTransport() would count one more owner and one less, which costs as much as reading a vector's numbers.
template <class Protocol>
struct MembersOf : Protocol {
    static WireLimits limits(const Protocol& protocol) {
        return {protocol.*(&MembersOf::string_limit_), protocol.*(&MembersOf::container_limit_)};
    }
    static TTransport* transport(const Protocol& protocol) { return (protocol.*(&MembersOf::ptrans_)).get(); }
};

bool isSameObject(const std::type_info& one, const std::type_info& other) { return &one == &other; }
bool isSameName(const std::type_info& one, const std::type_info& other) { return one == other; }

using IsSame = bool (*)(const std::type_info&, const std::type_info&);

template <IsSame isSame, class Protocol>
bool recogniseAs(Encoding encoding, TProtocol& protocol, KnownProtocol& known) {
    if (!isSame(typeid(protocol), typeid(Protocol))) {
        return false;
    }
    const auto& concrete = static_cast<Protocol&>(protocol);
    known = {encoding, MembersOf<Protocol>::limits(concrete), MembersOf<Protocol>::transport(concrete)};
    return true;
}

template <IsSame isSame, class Transport>
bool recogniseOver(TProtocol& protocol, KnownProtocol& known) {
    return recogniseAs<isSame, TBinaryProtocolT<Transport>>(Encoding::binary, protocol, known) ||
           recogniseAs<isSame, TCompactProtocolT<Transport>>(Encoding::compact, protocol, known) ||
           recogniseAs<isSame, TBinaryProtocolT<Transport, TNetworkLittleEndian>>(Encoding::binaryLittleEndian,
                                                                                  protocol, known);
}

template <IsSame isSame>
bool recogniseBy(TProtocol& protocol, KnownProtocol& known) {
    return recogniseOver<isSame, TTransport>(protocol, known) ||
           recogniseOver<isSame, TMemoryBuffer>(protocol, known) ||
           recogniseOver<isSame, TBufferedTransport>(protocol, known) ||
           recogniseOver<isSame, TFramedTransport>(protocol, known);
}

} // namespace

KnownProtocol recognise(TProtocol& protocol) {
    KnownProtocol known;
    // Names are compared only where no type object is the same, as for a protocol that another module has made: that
    // takes as long as reading a vector.
    recogniseBy<isSameObject>(protocol, known) || recogniseBy<isSameName>(protocol, known);
    return known;
}

} // namespace qel::api::wire
