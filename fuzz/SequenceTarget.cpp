// SPDX-License-Identifier: Apache-2.0
// Runs a sequence of operations over the service of the module, loaded as a host loads it: the input says which
// operations with which arguments and on which of the states that the earlier ones left, and how their images are
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

#include <qel/api/base/Records.h>
#include <qel/api/camera/Operations.h>
#include <qel/host/ComponentLoader.h>

#include "fuzz/Bytes.h"
#include "fuzz/DrawnArguments.h"
#include "fuzz/DrawnStates.h"
#include "fuzz/Expectations.h"
#include "fuzz/Reached.h"
#include "fuzz/Require.h"
#include "fuzz/SameBits.h"
#include "fuzz/Utilities.h"
#include "fuzz/Written.h"

namespace camera::fuzz {
namespace {

constexpr std::size_t operationCount = api::operationCount;
constexpr std::size_t mostSteps = 12;

Reached reached;

/// Holds an argument: a state of the pool by reference, anything else by value.
template <class Argument, bool = isState<std::remove_cvref_t<Argument>>>
struct Held {
    std::remove_cvref_t<Argument> value{};
    void choose(States&, std::size_t, Bytes& bytes) { make(value, bytes); }
    [[nodiscard]] Argument get() const { return value; }
};
template <class Argument>
struct Held<Argument, true> {
    using State = std::remove_cvref_t<Argument>;
    const State* value = nullptr;
    void choose(States& states, std::size_t index, Bytes&) {
        value = &states.state(static_cast<State*>(nullptr), index);
    }
    [[nodiscard]] Argument get() const { return *value; }
};

template <std::size_t slot, class... Arguments>
bool mustFail(const std::tuple<Held<Arguments>...>& arguments) {
    if constexpr (slot == 68) {
        return cannotBeTransposed(std::get<0>(arguments).get());
    } else {
        bool fails = std::apply([](const auto&... held) { return (isShort(held.get()) || ...); }, arguments);
        if constexpr (slot == 65) {
            fails = fails || hasNoHeight(std::get<0>(arguments).get());
        }
        return fails;
    }
}

/// What a successful call has written.
template <std::size_t slot, class Value, class... Arguments>
void requireAnswer(const Value& value, const std::tuple<Held<Arguments>...>& arguments) {
    if constexpr (slot == 66 || slot == 67) {
        requireFrustumMatrix(value, std::get<0>(arguments).get(), slot == 66);
    } else if constexpr (slot == 68) {
        requireTransposed(value, std::get<0>(arguments).get());
    } else {
        requireWritten(value);
    }
}

template <std::size_t slot, class Result, class... Arguments>
void call(api::CameraAPIIf& service, const api::Operation<Result, Arguments...>& operation, States& states,
          Bytes& bytes) {
    const std::uint8_t choice = bytes.byte();
    std::tuple<Held<Arguments>...> arguments;
    std::size_t bit = 2;
    std::apply([&](auto&... held) { (held.choose(states, (choice >> bit++) & 1U, bytes), ...); }, arguments);

    const auto invoke = [&](Result& result) {
        std::apply([&](const auto&... held) { (service.*operation.member)(result, held.get()...); }, arguments);
    };
    const bool fails = mustFail<slot, Arguments...>(arguments);

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
        require(after.mError == failureCode(slot), "a failed call sets its code");
        require(after.__isset.mMessage && after.mMessage == failureText(slot, operation.name),
                "a failed call sets its message");
        require(sameBits(result.mValue, *kept), "a failed call leaves the value alone");
    } else if (resetsOutcome(slot)) {
        require(after.mError == 0 && after.mMessage.empty() && after.__isset.mMessage == before.__isset.mMessage,
                "a getter resets the outcome");
    } else {
        require(sameBits(after, before), "a successful call leaves the outcome alone");
    }
    if (!fails) {
        requireAnswer<slot>(result.mValue, arguments);
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
    reached.count(slot, fails);
}

using Call = void (*)(api::CameraAPIIf&, States&, Bytes&);

constexpr auto calls = []<std::size_t... slot>(std::index_sequence<slot...>) {
    return std::array<Call, sizeof...(slot)>{[](api::CameraAPIIf& service, States& states, Bytes& bytes) {
        call<slot>(service, std::get<slot>(api::operations), states, bytes);
    }...};
}
(std::make_index_sequence<operationCount>());

void identify(api::CameraAPIIf& service, std::uint8_t which) {
    qel::api::base::StringResult result;
    result.mResult.mError = -1;
    switch (which % 3) {
    case 0: service.getComponentName(result); break;
    case 1: service.getComponentVariant(result); break;
    default: service.getComponentVersion(result); break;
    }
    static const std::array<std::string, 3> answers{"CameraAPI", "", CAMERA_COMPONENT_VERSION};
    require(result.mResult.mError == 0 && result.mValue == answers[which % 3], "the component says who it is");
    reached.count(operationCount + which % 3, false);
}

/// Changes one of the images: a number, single bytes, its length, or all of it for another state's.
void forge(States& states, Bytes& bytes) {
    const std::uint8_t choice = bytes.byte();
    std::string& image = states.changeImage(choice % 8);
    switch (choice / 8 % 4) {
    case 0: {
        const std::size_t offset = std::size_t{8} * (bytes.byte() % 135);
        const double value = number(bytes);
        if (image.size() >= offset + 8) {
            std::memcpy(image.data() + offset, &value, sizeof value);
        }
        break;
    }
    case 1: {
        const auto offset = static_cast<std::size_t>(bytes.word(2));
        if (offset < image.size()) {
            image[offset] = static_cast<char>(bytes.byte());
        }
        break;
    }
    case 2: image.resize(static_cast<std::size_t>(bytes.word(2)) % 1200, static_cast<char>(bytes.byte())); break;
    default: {
        image = std::string(states.image(bytes.byte() % 8));
        break;
    }
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
    static const States pristine = defaultStates(service);
    static States states;
    states.restore(pristine);
    reached.countInput();

    Bytes bytes(data, size);
    for (std::size_t step = 0; step < mostSteps && !bytes.empty(); ++step) {
        const std::uint8_t what = bytes.byte();
        if (what < operationCount) {
            calls[what](service, states, bytes);
        } else if (what < 2 * operationCount) {
            calls[what - operationCount](service, states, bytes);
        } else if (what < 164) {
            identify(service, what);
        } else {
            forge(states, bytes);
        }
    }
    return 0;
}

extern "C" bool fuzzReachedEverything() { return camera::fuzz::reached.everything(); }
