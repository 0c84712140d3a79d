// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <bit>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <random>
#include <string>
#include <type_traits>
#include <vector>

#include <qel/api/Field.h>

namespace qel::api {

/// Records with random contents: numbers of every magnitude with signed zeros, infinities and denormals among them,
/// texts and blobs with zero bytes, lists of any length from empty, ragged matrices, flags up or down. The same seed
/// gives the same records to every class that has the same field table.
class RandomRecords {
public:
    explicit RandomRecords(std::uint64_t seed) : mRandom(seed) {}

    template <class Record>
    Record make() {
        Record record;
        fill(record);
        return record;
    }

    /// NaN breaks comparing by ==, so it is left out unless asked for.
    void allowNaN() { mNaN = true; }

    /// Thrift's JSON protocol drops zero bytes from texts (not from blobs, which it writes as base64).
    void noZeroBytesInTexts() { mZeroBytes = false; }

    void fill(double& value) {
        using Limits = std::numeric_limits<double>;
        const double special[]{0.0,
                               -0.0,
                               1.0,
                               -1.0,
                               0.1,
                               2.5,
                               1e20,
                               1e-5,
                               123456789.0,
                               Limits::infinity(),
                               -Limits::infinity(),
                               Limits::denorm_min(),
                               Limits::min(),
                               Limits::max(),
                               Limits::lowest(),
                               Limits::epsilon()};
        switch (below(mNaN ? 4 : 3)) {
        case 0: value = special[below(std::size(special))]; break;
        case 1: value = std::uniform_real_distribution<double>(-1000.0, 1000.0)(mRandom); break;
        case 2: do { value = std::bit_cast<double>(mRandom());
            } while (std::isnan(value));
            break;
        default: value = std::numeric_limits<double>::quiet_NaN(); break;
        }
    }

    void fill(std::int32_t& value) {
        const std::int32_t special[]{0, 1, -1, 4, 63, 64, -64, -65, INT32_MAX, INT32_MIN};
        value = below(2) == 0 ? special[below(std::size(special))] : static_cast<std::int32_t>(mRandom());
    }

    void fill(std::string& value) {
        value.resize(below(8) == 0 ? below(5000) : below(20));
        for (char& c : value) {
            c = static_cast<char>(below(256));
        }
    }

    /// Only the values that have a name: Thrift's generated enumerations cannot hold others.
    template <class Value>
    requires std::is_enum_v<Value>
    void fill(Value& value) { value = static_cast<Value>(below(2)); }

    template <class Element>
    void fill(std::vector<Element>& list) {
        list.resize(below(10) == 0 ? below(40) : below(5));
        for (Element& element : list) {
            fill(element);
        }
    }

    template <class Record>
    requires std::is_class_v<Record>
    void fill(Record& record) {
        forEachField<Record>([&](const auto& field) { fillField(record, field); });
    }

    template <class Record, class FieldType>
    void fillField(Record& record, const FieldType& field) {
        fill(record.*field.member);
        if constexpr (std::is_same_v<typename FieldType::Value, std::string>) {
            if (field.form != Form::binary && !mZeroBytes) {
                std::erase(record.*field.member, '\0');
            }
        }
        field.markSet(record, below(2) == 0);
    }

    /// Makes the value another one.
    template <class Value>
    void change(Value& value) {
        const Value before = value;
        while (value == before) {
            fill(value);
        }
    }

    std::size_t below(std::size_t limit) { return static_cast<std::size_t>(mRandom() % limit); }

private:
    std::mt19937_64 mRandom;
    bool mNaN = false;
    bool mZeroBytes = true;
};

} // namespace qel::api
