// SPDX-License-Identifier: Apache-2.0
// Runs a sequence of operations over the service of the module, loaded as a host loads it: the input says which
// operations with which arguments and on which of the states that the earlier ones left, and how their blobs are
// forged.

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <exception>
#include <optional>
#include <string>
#include <tuple>
#include <type_traits>
#include <utility>

#include <qel/api/camera/Operations.h>
#include <qel/host/ComponentLoader.h>

#include "fuzz/Bytes.h"
#include "fuzz/DrawnArguments.h"
#include "fuzz/DrawnStates.h"
#include "fuzz/Expectations.h"
#include "fuzz/Reached.h"
#include "fuzz/Require.h"
#include "fuzz/Written.h"
#include "tests/records/SameBits.h"

namespace camera::fuzz {
namespace {

using api::operationCount;
using qel::api::sameBits;
constexpr std::size_t mostSteps = 12;

/// Each operation with success, at twice its number, and with failure, where an argument can be too short.
Reached reached = [] {
    Reached all;
    api::forEachOperation([&]<class Result, class... Arguments>(std::size_t,
                                                                const api::Operation<Result, Arguments...>& operation) {
        all.expect(std::string(operation.name) + " succeeded");
        all.expect((CanBeShort<std::remove_cvref_t<Arguments>> || ...) ? std::string(operation.name) + " failed" : "");
    });
    return all;
}();
std::uint64_t inputs = 0;

/// Holds an argument: a state of the pool by reference, anything else by value.
template <class Argument, class Type = std::remove_cvref_t<Argument>>
struct Held {
    std::conditional_t<IsState<Type>, const Type*, Type> value{};

    void choose(const States& states, std::size_t index, Bytes& bytes) {
        if constexpr (IsState<Type>) {
            value = &states.state<Type>(index);
        } else {
            make(value, bytes);
        }
    }
    [[nodiscard]] Argument get() const {
        if constexpr (IsState<Type>) {
            return *value;
        } else {
            return value;
        }
    }
};

constexpr std::size_t transpose = api::slotOf("utilsConvertMatrixFromRowMajorToColumnMajor");

template <std::size_t number, class... Arguments>
bool mustFail(const std::tuple<Held<Arguments>...>& arguments) {
    if constexpr (number == transpose) {
        return cannotBeTransposed(std::get<0>(arguments).get());
    } else {
        bool fails = std::apply([](const auto&... held) { return (isShort(held.get()) || ...); }, arguments);
        if constexpr (number == api::slotOf("planarCameraArcballRotation")) {
            fails = fails || hasNoHeight(std::get<0>(arguments).get());
        }
        return fails;
    }
}

template <std::size_t number, class Result, class... Arguments>
void call(api::CameraAPIIf& service, const api::Operation<Result, Arguments...>& operation, States& states,
          Bytes& bytes) {
    const std::uint8_t choice = bytes.byte();
    std::tuple<Held<Arguments>...> arguments;
    std::size_t bit = 2;
    std::apply([&](auto&... held) { (held.choose(states, (choice >> bit++) & 1U, bytes), ...); }, arguments);

    const auto invoke = [&](Result& result) {
        std::apply([&](const auto&... held) { (service.*operation.member)(result, held.get()...); }, arguments);
    };
    const bool fails = mustFail<number, Arguments...>(arguments);

    // Before the call that writes into the pool, since its arguments may lie in what it writes.
    Result fresh;
    const bool twice = (choice & 2U) != 0;
    if (twice) {
        invoke(fresh);
    }

    Result& result = states.change<Result>(choice & 1U);
    if ((choice & 0x80U) != 0) {
        result.mResult.mError = 3;
        result.mResult.mMessage = "older";
    }
    const qel::api::base::ServiceResult before = result.mResult;
    std::optional<decltype(result.mValue)> kept;
    if (fails) {
        kept = result.mValue;
    }
    invoke(result);
    const qel::api::base::ServiceResult& after = result.mResult;
    if (fails) {
        require(after.mError == failureCode(operation.name), "a failed call sets its code");
        require(after.__isset.mMessage && after.mMessage == failureText(operation.name),
                "a failed call sets its message");
        require(sameBits(result.mValue, *kept), "a failed call leaves the value alone");
    } else if (resetsOutcome<Result>) {
        require(after.mError == 0 && after.mMessage.empty() && after.__isset.mMessage == before.__isset.mMessage,
                "a getter resets the outcome");
    } else {
        require(sameBits(after, before), "a successful call leaves the outcome alone");
    }
    if (!fails && number != transpose) { // whose answer has as many rows and columns as its argument says
        requireWritten(result.mValue);
    }
    if (twice) {
        require((fresh.mResult.mError != 0) == fails, "a fresh result fails with a used one");
        if (fails) {
            require(sameBits(fresh.mValue, decltype(fresh.mValue)()), "a failed call writes no value");
        } else {
            require(sameBits(fresh.mValue, result.mValue), "a fresh result gets the bits that a used one gets");
        }
    }
    result.mResult = {};
    reached.count(2 * number + (fails ? 1 : 0));
}

using Call = void (*)(api::CameraAPIIf&, States&, Bytes&);

constexpr auto calls = []<std::size_t... number>(std::index_sequence<number...>) {
    return std::array<Call, sizeof...(number)>{[](api::CameraAPIIf& service, States& states, Bytes& bytes) {
        call<number>(service, std::get<number>(api::operations), states, bytes);
    }...};
}
(std::make_index_sequence<operationCount>());

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
            calls[what % operationCount](service, states, bytes);
        } else {
            forge(states, bytes);
        }
    }
    return 0;
}

extern "C" bool fuzzReachedEverything() { return camera::fuzz::reached.everything(1 + camera::fuzz::inputs / 1000); }
