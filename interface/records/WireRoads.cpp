// SPDX-License-Identifier: Apache-2.0
#include "WireRoads.h"

#include <typeinfo>

#include <thrift/protocol/TBinaryProtocol.h>
#include <thrift/protocol/TCompactProtocol.h>
#include <thrift/transport/TBufferTransports.h>

namespace qel::api::records {
namespace {

using namespace ::apache::thrift::protocol;
using namespace ::apache::thrift::transport;

/// The limits are protected members of the protocols. A derived class may name them; none is ever made.
template <class Protocol>
struct LimitsOf : Protocol {
    static WireLimits get(const Protocol& protocol) {
        return {protocol.*(&LimitsOf::string_limit_), protocol.*(&LimitsOf::container_limit_)};
    }
};

template <class Protocol>
bool recogniseAs(Encoding encoding, TProtocol& protocol, KnownProtocol& known) {
    if (typeid(protocol) != typeid(Protocol)) {
        return false;
    }
    known = {encoding, LimitsOf<Protocol>::get(static_cast<Protocol&>(protocol))};
    return true;
}

template <class Transport>
bool recogniseOver(TProtocol& protocol, KnownProtocol& known) {
    return recogniseAs<TBinaryProtocolT<Transport>>(Encoding::binary, protocol, known) ||
           recogniseAs<TCompactProtocolT<Transport>>(Encoding::compact, protocol, known) ||
           recogniseAs<TBinaryProtocolT<Transport, TNetworkLittleEndian>>(Encoding::binaryLittleEndian, protocol,
                                                                          known);
}

} // namespace

KnownProtocol recognise(TProtocol& protocol) {
    KnownProtocol known;
    recogniseOver<TTransport>(protocol, known) || recogniseOver<TMemoryBuffer>(protocol, known) ||
        recogniseOver<TBufferedTransport>(protocol, known) || recogniseOver<TFramedTransport>(protocol, known);
    return known;
}

} // namespace qel::api::records
