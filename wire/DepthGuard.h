// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <thrift/protocol/TProtocol.h>

namespace qel::api::wire {

/// One level of nesting in a protocol's depth counter. Thrift's own trackers are not used: their constructor
/// increments, throws DEPTH_LIMIT and never decrements, so each refused message would lower the limit for the next.
template <void (::apache::thrift::protocol::TProtocol::*enter)(),
          void (::apache::thrift::protocol::TProtocol::*leave)()>
class DepthGuard {
public:
    explicit DepthGuard(::apache::thrift::protocol::TProtocol& protocol) : mProtocol(protocol) {
        try {
            (mProtocol.*enter)();
        } catch (...) {
            (mProtocol.*leave)();
            throw;
        }
    }
    ~DepthGuard() { (mProtocol.*leave)(); }

    DepthGuard(const DepthGuard&) = delete;
    DepthGuard& operator=(const DepthGuard&) = delete;

private:
    ::apache::thrift::protocol::TProtocol& mProtocol;
};

using InputDepth = DepthGuard<&::apache::thrift::protocol::TProtocol::incrementInputRecursionDepth,
                              &::apache::thrift::protocol::TProtocol::decrementInputRecursionDepth>;
using OutputDepth = DepthGuard<&::apache::thrift::protocol::TProtocol::incrementOutputRecursionDepth,
                               &::apache::thrift::protocol::TProtocol::decrementOutputRecursionDepth>;

} // namespace qel::api::wire
