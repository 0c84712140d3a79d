// SPDX-License-Identifier: Apache-2.0
#include "host/console/CallArguments.h"

#include <charconv>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <string_view>
#include <system_error>
#include <tuple>
#include <type_traits>
#include <vector>

#include <nlohmann/json.hpp>

#include <qel/api/camera/Fields.h>

#include "host/console/EnumNames.h"
#include "host/console/NumberText.h"
#include "host/console/RecordJson.h"

namespace qel::host {

namespace {

namespace camera = api::camera;
using api::FieldTable;
using api::forEachField;

/// The numbers that a record is written as: what they are called, and how they become the record. Where the names are
/// empty, the record comes as JSON alone.
template <class Record>
struct Spelling {
    /// The names of the fields where all of them are numbers.
    static std::string names() {
        std::string names;
        bool numbersAlone = true;
        forEachField<Record>([&](const auto& field) {
            using Value = typename std::remove_cvref_t<decltype(field)>::Value;
            numbersAlone = numbersAlone && std::is_same_v<Value, double>;
            names += (names.empty() ? "" : ",") + std::string(field.name);
        });
        return numbersAlone ? names : "";
    }
    static std::size_t count() { return std::tuple_size_v<decltype(FieldTable<Record>::fields)>; }
    static Record make(const std::vector<double>& numbers) {
        Record record;
        std::size_t next = 0;
        forEachField<Record>([&](const auto& field) {
            if constexpr (std::is_same_v<typename std::remove_cvref_t<decltype(field)>::Value, double>) {
                record.*field.member = numbers[next++];
                field.markSet(record, true);
            }
        });
        return record;
    }
};

template <>
struct Spelling<camera::Vector> {
    static std::string names() { return "x,y,z"; }
    static std::size_t count() { return 3; }
    static camera::Vector make(const std::vector<double>& numbers) {
        camera::Vector vector;
        vector.__set_mData(numbers);
        return vector;
    }
};

template <>
struct Spelling<camera::Quaternion> {
    static std::string names() { return "x,y,z,w"; }
    static std::size_t count() { return 4; }
    static camera::Quaternion make(const std::vector<double>& numbers) {
        camera::Quaternion quaternion;
        quaternion.__set_mData(numbers);
        return quaternion;
    }
};

template <>
struct Spelling<camera::Matrix> {
    static constexpr std::ptrdiff_t order = 4;
    static std::string names() { return "16 numbers, row by row, with commas between them"; }
    static std::size_t count() { return order * order; }
    static camera::Matrix make(const std::vector<double>& numbers) {
        std::vector<std::vector<double>> rows;
        for (auto row = numbers.begin(); row != numbers.end(); row += order) {
            rows.emplace_back(row, row + order);
        }
        camera::Matrix matrix;
        matrix.__set_mData(rows);
        return matrix;
    }
};

template <class Type>
[[noreturn]] void fail(const std::string& came) {
    throw ArgumentError("wants " + expectation<Type>() + ", but " + came);
}

/// The record as numbers; nothing where the text looks like a file's name instead.
template <class Record>
std::optional<Record> parseNumbers(const std::string& text) {
    const NumberList list = parseNumberList(text);
    if (list.wrongPiece) {
        std::error_code ignored;
        if (text.find(',') == std::string::npos || std::filesystem::exists(text, ignored)) {
            return std::nullopt;
        }
        fail<Record>("'" + *list.wrongPiece + "' in '" + text + "' is no number");
    }
    if (list.numbers.size() != Spelling<Record>::count()) {
        fail<Record>("'" + text + "' has " + std::to_string(list.numbers.size()) +
                     (list.numbers.size() == 1 ? " number" : " numbers"));
    }
    return Spelling<Record>::make(list.numbers);
}

template <class Record>
Record parseRecord(const std::string& text, Input& input) {
    const bool isJson = !text.empty() && text.front() == '{';
    if (text != "-" && !isJson && !Spelling<Record>::names().empty()) {
        if (auto record = parseNumbers<Record>(text)) {
            return *record;
        }
    }
    try {
        return fromJson<Record>(isJson ? parseJson(text) : input.read(text));
    } catch (const InputError& error) {
        fail<Record>(error.what());
    } catch (const JsonError& error) {
        throw ArgumentError((isJson ? "the JSON" : text == "-" ? "standard input" : text) + ": " + error.what());
    }
}

std::int32_t parseWhole(const std::string& text) {
    std::int32_t value = 0;
    const char* begin = text.data();
    const char* end = begin + text.size();
    if (text.size() > 1 && text.front() == '+' && text[1] != '-') {
        ++begin;
    }
    const auto parsed = std::from_chars(begin, end, value);
    if (parsed.ec != std::errc{} || parsed.ptr != end) {
        fail<std::int32_t>("'" + text + "' came");
    }
    return value;
}

} // namespace

template <class Type>
std::string expectation() {
    if constexpr (std::is_same_v<Type, double>) {
        return "a number";
    } else if constexpr (std::is_same_v<Type, std::int32_t>) {
        return "a whole number from -2147483648 to 2147483647";
    } else if constexpr (std::is_enum_v<Type>) {
        return enumNames<Type>() + " or its number";
    } else {
        const std::string names = Spelling<Type>::names();
        return std::string("a ") + FieldTable<Type>::recordName + ": " + (names.empty() ? "" : names + ", or ") +
               "a JSON file or - for standard input";
    }
}

template <class Type>
Type parseArgument(const std::string& text, Input& input) {
    if constexpr (std::is_same_v<Type, double>) {
        const auto number = parseNumber(text);
        if (!number) {
            fail<Type>("'" + text + "' came");
        }
        return *number;
    } else if constexpr (std::is_same_v<Type, std::int32_t>) {
        return parseWhole(text);
    } else if constexpr (std::is_enum_v<Type>) {
        if (const auto named = enumFromName<Type>(text)) {
            return *named;
        }
        std::int32_t number = 0;
        const auto parsed = std::from_chars(text.data(), text.data() + text.size(), number);
        if (parsed.ec != std::errc{} || parsed.ptr != text.data() + text.size()) {
            fail<Type>("'" + text + "' came");
        }
        return static_cast<Type>(number);
    } else {
        return parseRecord<Type>(text, input);
    }
}

// The types that operations take.
#define QEL_HOST_ARGUMENT(TYPE)               \
    template std::string expectation<TYPE>(); \
    template TYPE parseArgument<TYPE>(const std::string&, Input&);

QEL_HOST_ARGUMENT(double)
QEL_HOST_ARGUMENT(std::int32_t)
QEL_HOST_ARGUMENT(camera::ProjectionType::type)
QEL_HOST_ARGUMENT(camera::Vector)
QEL_HOST_ARGUMENT(camera::Quaternion)
QEL_HOST_ARGUMENT(camera::Matrix)
QEL_HOST_ARGUMENT(camera::Frustum)
QEL_HOST_ARGUMENT(camera::Viewport)
QEL_HOST_ARGUMENT(camera::ViewState)
QEL_HOST_ARGUMENT(camera::ProjectionState)
QEL_HOST_ARGUMENT(camera::SurfaceState)
QEL_HOST_ARGUMENT(camera::PlanarCameraState)

} // namespace qel::host
