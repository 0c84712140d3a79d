// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <stdexcept>
#include <string>
#include <string_view>
#include <type_traits>

#include "tests/component/support/AnyOperation.h"
#include "tests/component/support/RecordFields.h"

namespace qel::api::camera::test {

/// Takes values from bytes, as fingerprint() and appendValue() have put them there.
class Source {
public:
    explicit Source(std::string_view bytes) : mRest(bytes) {}

    [[nodiscard]] bool empty() const { return mRest.empty(); }

    std::string_view take(const std::size_t size) {
        if (mRest.size() < size) {
            throw std::runtime_error("the recording ends too early");
        }
        const std::string_view taken = mRest.substr(0, size);
        mRest.remove_prefix(size);
        return taken;
    }

    std::uint64_t number(const std::size_t size) {
        const std::string_view bytes = take(size);
        std::uint64_t value = 0;
        for (std::size_t i = 0; i < size; ++i) {
            value |= std::uint64_t{static_cast<std::uint8_t>(bytes[i])} << (8U * i);
        }
        return value;
    }

    std::size_t length() { return static_cast<std::size_t>(number(8)); }

    template <class Value>
    void get(Value& value) {
        if constexpr (IsRecord<Value>) {
            forEachField(value, [&](const auto& field, auto& member) {
                field.markSet(value, take(1) == "+");
                get(member);
            });
        } else if constexpr (std::is_same_v<Value, double>) {
            value = std::bit_cast<double>(number(8));
        } else if constexpr (std::is_enum_v<Value> || std::is_integral_v<Value>) {
            value = static_cast<Value>(static_cast<std::int32_t>(static_cast<std::uint32_t>(number(4))));
        } else if constexpr (std::is_same_v<Value, std::string>) {
            value = take(length());
        } else {
            value.resize(length());
            for (auto& element : value) {
                get(element);
            }
        }
    }

    void get(AnyArgument& argument) {
        std::visit([&](auto& value) { get(value); }, argument);
    }
    void get(AnyResult& result) {
        std::visit([&](auto& held) { get(held); }, result);
    }

private:
    std::string_view mRest;
};

} // namespace qel::api::camera::test
