// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <functional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <tuple>
#include <type_traits>
#include <vector>

#include "tests/component/support/Calls.h"
#include "tests/component/support/Samples.h"

namespace qel::api::camera::test {

// Calls that are repeated many times and compared each time, quickly, so that most of the time goes into the module.

/// Whether two values hold the same bits, set-flags aside.
template <class Value>
[[nodiscard]] bool sameBits(const Value& a, const Value& b) {
    if constexpr (IsRecord<Value>) {
        return std::apply([&](const auto&... field) { return (sameBits(a.*field.member, b.*field.member) && ...); },
                          FieldTable<Value>::fields);
    } else if constexpr (std::is_arithmetic_v<Value> || std::is_enum_v<Value>) {
        const void* const first = &a; // a double's bytes are meant
        const void* const second = &b;
        return std::memcmp(first, second, sizeof a) == 0;
    } else if constexpr (std::is_arithmetic_v<typename Value::value_type>) { // a string or a list of numbers
        return a.size() == b.size() && (a.empty() || std::memcmp(a.data(), b.data(), a.size() * sizeof *a.data()) == 0);
    } else {
        bool same = a.size() == b.size();
        for (std::size_t i = 0; same && i < a.size(); ++i) {
            same = sameBits(a[i], b[i]);
        }
        return same;
    }
}

/// Another argument of the same kind, with which an operation gives another result and does not fail.
inline void vary(double& value) { value *= 1.125; }
inline void vary(std::int32_t& value) { value += 7; }
inline void vary(ProjectionType::type& value) {
    value = value == ProjectionType::PERSPECTIVE ? ProjectionType::ORTHOGRAPHIC : ProjectionType::PERSPECTIVE;
}
inline void vary(Vector& vector) {
    vector.mData[0] += 0.125;
    vector.mData[1] -= 0.25;
    vector.mData[2] += 0.0625;
}
inline void vary(Quaternion& quaternion) { quaternion.mData[0] += 0.125; }
inline void vary(Matrix& matrix) { matrix.mData[0][3] += 0.125; }
inline void vary(Frustum& frustum) { vary(frustum.mNearDist); }
inline void vary(Viewport& viewport) { vary(viewport.mWidth); }
template <class State>
void vary(State& state) {
    static_assert(std::is_same_v<decltype(state.mPrivate), std::string>); // those of otherSamples differ already
}

/// One operation with arguments and with the result that it gives when nothing else runs.
struct RepeatedCall {
    std::string name;
    std::string expected; ///< every bit of the result
    /// Calls it so many times and says how many results were others. May run in several threads at the same time.
    std::function<std::size_t(CameraAPIIf&, std::size_t times)> differences;
};

/// `invoke(service, result)` is the call.
template <class Result, class Invoke>
RepeatedCall repeatedCall(CameraAPIIf& service, const std::string_view name, const Invoke& invoke) {
    Result expected;
    invoke(service, expected);
    if (expected.mResult.mError != 0) {
        throw std::invalid_argument(std::string(name) + " has arguments with which it fails");
    }
    return {std::string(name), fingerprint(expected),
            [invoke, expected, bits = fingerprint(expected)](CameraAPIIf& camera, const std::size_t times) {
                std::size_t differences = 0;
                Result result;
                for (std::size_t i = 0; i < times; ++i) {
                    invoke(camera, result);
                    differences += std::size_t(!sameBits(result.mValue, expected.mValue));
                }
                return differences + std::size_t(fingerprint(result) != bits);
            }};
}

/// All 79 operations in slot order and the three that say who the component is, each with two sets of arguments.
inline std::vector<std::array<RepeatedCall, 2>> repeatedCalls(CameraAPIIf& service) {
    std::vector<std::array<RepeatedCall, 2>> calls;
    const Samples samples(service);
    const Samples others = otherSamples(service);
    forEachOperation([&](std::size_t, const auto& operation) {
        using Result = ResultOf<decltype(operation)>;
        const auto prepare = [&](const auto& arguments) {
            return repeatedCall<Result>(service, operation.name,
                                        [operation, arguments](CameraAPIIf& camera, Result& result) {
                                            call(camera, operation, result, arguments);
                                        });
        };
        auto varied = others.argumentsOf(operation);
        forEachArgument(varied, [](auto& argument) { vary(argument); });
        calls.push_back({prepare(samples.argumentsOf(operation)), prepare(varied)});
    });
    const auto identity = [&](const std::string_view name, void (base::BaseAPIIf::*const member)(base::StringResult&)) {
        const RepeatedCall prepared = repeatedCall<base::StringResult>(
            service, name, [member](CameraAPIIf& camera, base::StringResult& result) { (camera.*member)(result); });
        calls.push_back({prepared, prepared});
    };
    identity("getComponentVersion", &base::BaseAPIIf::getComponentVersion);
    identity("getComponentVariant", &base::BaseAPIIf::getComponentVariant);
    identity("getComponentName", &base::BaseAPIIf::getComponentName);
    return calls;
}

} // namespace qel::api::camera::test
