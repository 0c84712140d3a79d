// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <array>
#include <cmath>
#include <cstddef>
#include <stdexcept>
#include <string>
#include <tuple>
#include <type_traits>
#include <utility>
#include <vector>

#include <qel/api/camera/Operations.h>

#include "tests/reliability/Contents.h"
#include "tests/reliability/RecordedArguments.h"

namespace qel::test {

/// What a recorded row exercises. It counts for nothing that an operation was called if it was refused each time:
/// where less than half of an operation's calls had an effect the recording is not worth keeping.
class Census {
public:
    explicit Census(api::camera::CameraAPIIf& service) : mService(service) {}

    template <class Result, class... Arguments, class Tuple>
    void add(const std::size_t slot, const api::camera::Operation<Result, Arguments...>& operation,
             const Tuple& arguments, const Result& result, const Flaw flaw) {
        if ((result.mResult.mError != 0) != (flaw != Flaw::none)) {
            throw std::runtime_error(std::string(operation.name) + (flaw == Flaw::none ? " failed" : " did not fail"));
        }
        ++mFlaws[static_cast<std::size_t>(flaw)];
        Count& count = mCounts[slot];
        ++count.calls;
        count.failures += flaw == Flaw::none ? 0U : 1U;
        count.effects += flaw == Flaw::none && hasEffect(count, operation, arguments, result.mValue) ? 1U : 0U;
    }

    void require() const {
        std::string idle;
        api::camera::forEachOperation(
            [&]<class Result, class... Arguments>(const std::size_t slot,
                                                  const api::camera::Operation<Result, Arguments...>& operation) {
                const Count& count = mCounts[slot];
                if (count.effects * 2 < count.calls || count.calls == 0) {
                    idle += '\n' + std::string(operation.name) + ": an effect in " + std::to_string(count.effects) +
                            " of " + std::to_string(count.calls) + " calls";
                }
                if ((canFail<std::remove_cvref_t<Arguments>> || ...) && count.failures == 0) {
                    idle += '\n' + std::string(operation.name) + ": never fails";
                }
            });
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
        std::vector<double> last; ///< what the call before gave, of operations that return no state
    };

    template <class Argument>
    static constexpr bool canFail =
        !std::is_arithmetic_v<Argument> && !std::is_enum_v<Argument> &&
        !std::is_same_v<Argument, api::camera::Frustum> && !std::is_same_v<Argument, api::camera::Viewport>;

    /// A state is another one than came in, or than the operation makes of refused arguments; a value is finite and
    /// another one than the call before gave.
    template <class Result, class... Arguments, class Tuple, class Value>
    bool hasEffect(Count& count, const api::camera::Operation<Result, Arguments...>& operation, const Tuple& arguments,
                   const Value& value) {
        if constexpr (!HasImage<Value>) {
            std::vector<double> numbers = numbersOf(value);
            bool finite = true;
            for (const double number : numbers) {
                finite = finite && std::isfinite(number);
            }
            std::swap(count.last, numbers);
            return finite && count.last != numbers;
        } else if constexpr (sizeof...(Arguments) == 0) {
            return true;
        } else if constexpr (std::is_same_v<Value, std::tuple_element_t<0, Tuple>>) {
            return value.mPrivate != std::get<0>(arguments).mPrivate;
        } else {
            Result refused;
            std::tuple<std::remove_cvref_t<Arguments>...> nothing;
            std::apply([&](auto&... argument) { (clear(argument), ...); }, nothing);
            std::apply([&](const auto&... argument) { (mService.*operation.member)(refused, argument...); }, nothing);
            return value.mPrivate != refused.mValue.mPrivate;
        }
    }

    static std::vector<double> numbersOf(const double& number) { return {number}; }
    static std::vector<double> numbersOf(const api::camera::Vector& vector) { return vector.mData; }
    static std::vector<double> numbersOf(const api::camera::Matrix& matrix) {
        std::vector<double> numbers;
        for (const std::vector<double>& row : matrix.mData) {
            numbers.insert(numbers.end(), row.begin(), row.end());
        }
        return numbers;
    }

    template <class Argument>
    static void clear(Argument&) {} // as it was made: zeros, or no state, which gives no image
    static void clear(api::camera::Vector& vector) { vector.mData = {0.0, 0.0, 0.0}; }

    api::camera::CameraAPIIf& mService;
    std::array<Count, api::camera::operationCount> mCounts;
    std::array<std::size_t, 6> mFlaws{};
};

} // namespace qel::test
