// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <array>
#include <cstddef>
#include <stdexcept>
#include <string>
#include <utility>

#include "tests/component/support/AnyOperation.h"
#include "tests/reliability/RecordedArguments.h"

namespace qel::api::camera::test {

/// What a recorded row exercises. It counts for nothing that an operation was called if it was refused each time:
/// where less than half of an operation's calls had an effect the recording is not worth keeping.
class Census {
public:
    explicit Census(CameraAPIIf& service) : mService(service) {}

    void add(const AnyOperation& operation, const Arguments& arguments, const AnyResult& result, const Flaw flaw) {
        if ((outcomeOf(result).mError != 0) != (flaw != Flaw::none)) {
            throw std::runtime_error(std::string(operation.name) + (flaw == Flaw::none ? " failed" : " did not fail"));
        }
        ++mFlaws[static_cast<std::size_t>(flaw)];
        Count& count = mCounts[operation.number];
        ++count.calls;
        count.failures += flaw == Flaw::none ? 0U : 1U;
        count.effects += flaw == Flaw::none && hasEffect(count, operation, arguments, payloadOf(result)) ? 1U : 0U;
    }

    void require() const {
        std::string idle;
        for (const AnyOperation& operation : allOperations()) {
            const Count& count = mCounts[operation.number];
            if (count.effects * 2 < count.calls || count.calls == 0) {
                idle += '\n' + std::string(operation.name) + ": an effect in " + std::to_string(count.effects) +
                        " of " + std::to_string(count.calls) + " calls";
            }
            if (operation.canFail() && count.failures == 0) {
                idle += '\n' + std::string(operation.name) + ": never fails";
            }
        }
        for (std::size_t i = 0; i < mFlaws.size(); ++i) {
            if (mFlaws[i] == 0) {
                idle += "\nno call with flaw " + std::to_string(i);
            }
        }
        if (!idle.empty()) {
            throw std::runtime_error("the row does not exercise every operation:" + idle);
        }
    }

private:
    struct Count {
        std::size_t calls = 0;
        std::size_t effects = 0;
        std::size_t failures = 0;
        std::string last; ///< what the call before gave, of operations that return no state
    };

    /// A state is another one than came in, or than the operation makes of refused arguments; a value is finite and
    /// another one than the call before gave.
    bool hasEffect(Count& count, const AnyOperation& operation, const Arguments& arguments,
                   const AnyArgument& payload) {
        const std::string* const blob = blobOf(payload);
        if (blob == nullptr) {
            std::string bits = fingerprint(payload);
            std::swap(count.last, bits);
            return isFinite(payload) && count.last != bits;
        }
        if (arguments.empty()) {
            return true;
        }
        if (arguments.front().index() == payload.index()) {
            return *blob != *blobOf(arguments.front());
        }
        Arguments refused = operation.blank; // zeros, or no state, which gives no blob
        for (AnyArgument& argument : refused) {
            if (auto* const vector = std::get_if<Vector>(&argument)) {
                vector->mData = {0.0, 0.0, 0.0};
            }
        }
        const AnyArgument unchanged = payloadOf(callAfresh(mService, operation, refused));
        return *blob != *blobOf(unchanged);
    }

    CameraAPIIf& mService;
    std::array<Count, operationCount> mCounts;
    std::array<std::size_t, 6> mFlaws{};
};

} // namespace qel::api::camera::test
