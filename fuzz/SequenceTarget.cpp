// SPDX-License-Identifier: Apache-2.0
// Runs a sequence of operations over the service of the module, loaded as a host loads it: the input says which
// operations with which arguments and on which of the states that the earlier ones left, and how their blobs are
// forged.

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <exception>
#include <optional>
#include <string>
#include <type_traits>
#include <variant>

#include <qel/api/camera/Operations.h>
#include <qel/host/ComponentLoader.h>

#include "fuzz/Bytes.h"
#include "fuzz/DrawnArguments.h"
#include "fuzz/DrawnStates.h"
#include "fuzz/Reached.h"
#include "fuzz/Require.h"
#include "fuzz/StateObjects.h"
#include "fuzz/Written.h"
#include "tests/component/support/AnyOperation.h"
#include "tests/records/SameBits.h"

namespace camera::fuzz {
namespace {

using api::operationCount;
using qel::api::sameBits;
constexpr std::size_t mostSteps = 12;

/// Each operation with success, at twice its number, and with failure, where an argument can be too short.
Reached reached = [] {
    Reached all;
    for (const AnyOperation& operation : allOperations()) {
        all.expect(std::string(operation.name) + " succeeded");
        all.expect(operation.canFail() ? std::string(operation.name) + " failed" : "");
    }
    return all;
}();
std::uint64_t inputs = 0;

/// Whether an argument holds less than any operation but the transposition needs.
template <class Type>
bool isShort(const Type& argument) {
    if constexpr (IsState<Type>) {
        return argument.mPrivate.size() < blobSize<Type>;
    } else if constexpr (std::is_same_v<Type, api::Matrix>) {
        const auto& rows = argument.mData;
        return rows.size() < 4 ||
               std::any_of(rows.begin(), rows.begin() + 4, [](const auto& row) { return row.size() < 4; });
    } else if constexpr (requires { argument.mData; }) {
        return argument.mData.size() < (std::is_same_v<Type, api::Vector> ? 3 : 4);
    } else {
        return false;
    }
}

/// The transpose takes a matrix of any shape that has a first row and none shorter than it.
bool cannotBeTransposed(const api::Matrix& matrix) {
    const auto& rows = matrix.mData;
    return rows.empty() ||
           std::any_of(rows.begin(), rows.end(), [&](const auto& row) { return row.size() < rows.front().size(); });
}

/// Of a complete camera; only a forged one has no height.
bool hasNoHeight(const api::PlanarCameraState& state) {
    return !isShort(state) && objectIn(state).surface().resolutionY() == 0;
}

/// The arguments of a call: a state of the pool where it stands, anything else drawn.
struct DrawnCall {
    Arguments values;
    Pointers pointers{};
    bool fails = false; ///< whatever else they are

    DrawnCall(const AnyOperation& operation, const States& states, unsigned choice, Bytes& bytes)
        : values(operation.blank) {
        const auto take = [&](std::size_t i, const auto& value) {
            pointers[i] = &value;
            fails = fails || isShort(value);
        };
        for (std::size_t i = 0; i < values.size(); ++i) {
            const auto draw = [&]<class Type>(Type& value) {
                if constexpr (IsState<Type>) {
                    const AnyResult& holder = states.holding(values[i], choice >> i & 1U);
                    std::visit([&](const auto& result) { take(i, result.mValue); }, holder);
                } else {
                    make(value, bytes);
                    take(i, value);
                }
            };
            std::visit(draw, values[i]);
        }
        if (operation.isTransposition()) {
            fails = cannotBeTransposed(std::get<api::Matrix>(values[0]));
        } else if (operation.number == api::slotOf("planarCameraArcballRotation")) {
            fails = fails || hasNoHeight(*static_cast<const api::PlanarCameraState*>(pointers[0]));
        }
    }
};

bool sameValue(const AnyResult& a, const AnyResult& b) {
    return std::visit(
        [&](const auto& held) {
            return sameBits(held.mValue, std::get<std::remove_cvref_t<decltype(held)>>(b).mValue);
        },
        a);
}

void run(api::CameraAPIIf& service, const AnyOperation& operation, States& states, Bytes& bytes) {
    const std::uint8_t choice = bytes.byte();
    const DrawnCall drawn(operation, states, choice >> 2U, bytes);

    // Before the call that writes into the pool, since its arguments may lie in what it writes.
    AnyResult fresh = operation.fresh;
    const bool twice = (choice & 2U) != 0;
    if (twice) {
        call(service, operation, fresh, drawn.pointers);
    }

    AnyResult& result = states.change(fresh.index(), choice & 1U);
    qel::api::base::ServiceResult& after = outcomeOf(result);
    if ((choice & 0x80U) != 0) {
        after.mError = 3;
        after.mMessage = "older";
    }
    const qel::api::base::ServiceResult before = after;
    std::optional<AnyResult> kept;
    if (drawn.fails) {
        kept = result;
    }
    call(service, operation, result, drawn.pointers);
    if (drawn.fails) {
        require(after.mError == operation.failureCode(), "a failed call sets its code");
        require(after.__isset.mMessage && after.mMessage == operation.failureMessage(),
                "a failed call sets its message");
        require(sameValue(result, *kept), "a failed call leaves the value alone");
    } else if (operation.resetsOutcome()) {
        require(after.mError == 0 && after.mMessage.empty() && after.__isset.mMessage == before.__isset.mMessage,
                "a getter resets the outcome");
    } else {
        require(sameBits(after, before), "a successful call leaves the outcome alone");
    }
    // The transposition answers with as many rows and columns as its argument says.
    if (!drawn.fails && !operation.isTransposition()) {
        std::visit([](const auto& held) { requireWritten(held.mValue); }, result);
    }
    if (twice) {
        require((outcomeOf(fresh).mError != 0) == drawn.fails, "a fresh result fails with a used one");
        require(sameValue(fresh, drawn.fails ? operation.fresh : result),
                "a fresh result gets the bits that a used one gets, and none of a failed call");
    }
    after = {};
    reached.count(2 * operation.number + (drawn.fails ? 1 : 0));
}

/// Changes one of the blobs: a number, single bytes, its length, or all of it for another state's.
void forge(States& states, Bytes& bytes) {
    constexpr std::size_t longest = blobSize<api::PlanarCameraState>;
    const std::uint8_t choice = bytes.byte();
    std::string& blob = states.changeBlob(choice % 8);
    switch (choice / 8 % 4) {
    case 0: {
        const std::size_t offset = sizeof(double) * (bytes.byte() % (longest / sizeof(double)));
        const double value = number(bytes);
        if (blob.size() >= offset + sizeof value) {
            std::memcpy(blob.data() + offset, &value, sizeof value);
        }
        break;
    }
    case 1: {
        const auto offset = static_cast<std::size_t>(bytes.word(2));
        if (offset < blob.size()) {
            blob[offset] = static_cast<char>(bytes.byte());
        }
        break;
    }
    case 2:
        blob.resize(static_cast<std::size_t>(bytes.word(2)) % (longest + 120), static_cast<char>(bytes.byte()));
        break;
    default: blob = std::string(states.changeBlob(bytes.byte() % 8)); break;
    }
}

/// Loaded from the module's file; stays as long as the process.
api::CameraAPIIf& theService() {
    static const qel::host::ComponentLoader component = [] {
        try {
            return qel::host::ComponentLoader(CAMERA_MODULE_FILE);
        } catch (const std::exception& exception) {
            broken(exception.what());
        }
    }();
    return component.camera();
}

} // namespace
} // namespace camera::fuzz

/// Asked by libFuzzer before it looks at what is instrumented: the module's edges are counted from the first input on.
extern "C" int LLVMFuzzerInitialize(int*, char***) {
    camera::fuzz::theService();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace camera::fuzz;
    api::CameraAPIIf& service = theService();
    static const States pristine(service);
    static States states = pristine;
    states.restore(pristine);
    ++inputs;

    Bytes bytes(data, size);
    for (std::size_t step = 0; step < mostSteps && !bytes.empty(); ++step) {
        const std::uint8_t what = bytes.byte();
        if (what < 2 * operationCount) {
            run(service, allOperations()[what % operationCount], states, bytes);
        } else {
            forge(states, bytes);
        }
    }
    return 0;
}

extern "C" bool fuzzReachedEverything() { return camera::fuzz::reached.everything(1 + camera::fuzz::inputs / 1000); }
