// SPDX-License-Identifier: Apache-2.0
#include "host/console/RecordJson.h"

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <string>
#include <string_view>
#include <tuple>
#include <type_traits>
#include <utility>
#include <vector>

#include <nlohmann/json.hpp>

#include <qel/api/camera/Fields.h>

#include "host/console/Base64.h"
#include "host/console/EnumNames.h"
#include "host/console/NumberText.h"

namespace qel::host {

namespace {

namespace camera = api::camera;
using api::FieldTable;
using api::forEachField;
using api::Form;

template <class Type>
concept IsRecord = requires {
    FieldTable<Type>::fields;
};

template <class Type>
constexpr bool isList = false;
template <class Element>
constexpr bool isList<std::vector<Element>> = true;

/// Doubles that JSON has no spelling for are strings.
Json writeDouble(double value) { return std::isfinite(value) ? Json(value) : Json(numberText(value)); }

template <class Value>
Json write(const Value& value) {
    if constexpr (IsRecord<Value>) {
        Json object = Json::object();
        forEachField<Value>([&](const auto& field) {
            const auto& member = value.*field.member;
            if (field.form == Form::optional && !field.isSet(value)) {
                return;
            }
            if constexpr (std::is_same_v<decltype(member), const std::string&>) {
                object[field.name] = field.form == Form::binary ? toBase64(member) : member;
            } else {
                object[field.name] = write(member);
            }
        });
        return object;
    } else if constexpr (isList<Value>) {
        Json list = Json::array();
        for (const auto& element : value) {
            list.push_back(write(element));
        }
        return list;
    } else if constexpr (std::is_enum_v<Value>) {
        const char* name = nameOf(value);
        return name != nullptr ? Json(name) : Json(static_cast<std::int32_t>(value));
    } else if constexpr (std::is_same_v<Value, double>) {
        return writeDouble(value);
    } else {
        return Json(value);
    }
}

[[noreturn]] void fail(const std::string& path, const std::string& wanted, const std::string& came) {
    throw JsonError((path.empty() ? "" : path + ": ") + "wants " + wanted + ", but " + came + " came");
}

void read(const Json& json, double& value, const std::string& path) {
    if (json.is_string()) {
        if (const auto number = parseNumber(json.get_ref<const std::string&>())) {
            value = *number;
            return;
        }
    }
    if (!json.is_number()) {
        fail(path, "a number", describe(json));
    }
    value = json.get<double>();
    // The parser takes "-0" for the whole number 0, and only this way tells it from "0".
    if (value == 0 && json.type() == Json::value_t::number_integer) {
        value = -0.0;
    }
}

void read(const Json& json, std::int32_t& value, const std::string& path) {
    using Limits = std::numeric_limits<std::int32_t>;
    const bool fits = json.is_number_unsigned() ? json.get<std::uint64_t>() <= static_cast<std::uint64_t>(Limits::max())
                                                : json.is_number_integer() && json.get<std::int64_t>() >= Limits::min();
    if (!fits) {
        fail(path, "a whole number of 32 bits", describe(json));
    }
    value = json.get<std::int32_t>();
}

void read(const Json& json, std::string& value, const std::string& path) {
    if (!json.is_string()) {
        fail(path, "a text", describe(json));
    }
    value = json.get_ref<const std::string&>();
}

void readBytes(const Json& json, std::string& value, const std::string& path) {
    auto bytes = json.is_string() ? fromBase64(json.get_ref<const std::string&>()) : std::nullopt;
    if (!bytes) {
        fail(path, "bytes in base64", describe(json));
    }
    value = std::move(*bytes);
}

template <class Value>
requires std::is_enum_v<Value>
void read(const Json& json, Value& value, const std::string& path) {
    if (json.is_string()) {
        if (const auto named = enumFromName<Value>(json.get_ref<const std::string&>())) {
            value = *named;
            return;
        }
    }
    if (!json.is_number_integer()) {
        fail(path, enumNames<Value>() + " or a number", describe(json));
    }
    std::int32_t number = 0;
    read(json, number, path);
    value = static_cast<Value>(number);
}

template <class Element>
void read(const Json& json, std::vector<Element>& list, const std::string& path) {
    if (!json.is_array()) {
        fail(path, "a list", describe(json));
    }
    list.resize(json.size());
    for (std::size_t index = 0; index < list.size(); ++index) {
        read(json[index], list[index], path + "[" + std::to_string(index) + "]");
    }
}

template <class Record>
requires IsRecord<Record>
void read(const Json& given, Record& record, const std::string& path);

template <class Record>
constexpr bool hasField(std::string_view name) {
    bool found = false;
    forEachField<Record>([&](const auto& field) { found = found || field.name == name; });
    return found;
}

/// Whether an object has a name for each field of the record (but optional ones): not yet whether they can be read.
template <class Record>
bool hasFieldsOf(const Json& json) {
    bool all = json.is_object();
    forEachField<Record>(
        [&](const auto& field) { all = all && (field.form == Form::optional || json.contains(field.name)); });
    return all;
}

/// What a file may hold, most telling names first.
using KnownRecords = std::tuple<camera::PlanarCameraState, camera::ViewState, camera::ProjectionState,
                                camera::SurfaceState, camera::Frustum, camera::Viewport>;

template <std::size_t index = 0>
std::string knownRecord(const Json& json) {
    if constexpr (index == std::tuple_size_v<KnownRecords>) {
        return {};
    } else {
        using Record = std::tuple_element_t<index, KnownRecords>;
        return hasFieldsOf<Record>(json) ? FieldTable<Record>::recordName : knownRecord<index + 1>(json);
    }
}

/// The name of the record that an object looks like, or what it is otherwise.
std::string describeRecord(const Json& json) {
    const std::string name = knownRecord(json);
    return name.empty() ? describe(json) : name;
}

/// The value of a result where something else than a result is wanted; results may stand in results.
template <class Record>
const Json& payload(const Json& json, const std::string& path) {
    const Json* value = &json;
    while (!hasField<Record>("mValue") && value->is_object() && value->contains("mValue") &&
           value->contains("mResult")) {
        api::base::ServiceResult outcome;
        read((*value)["mResult"], outcome, path.empty() ? "mResult" : path + ".mResult");
        if (outcome.mError != camera::CameraAPIError::CAMERA_API_SUCCESS) {
            throw JsonError((path.empty() ? "" : path + ": ") + "it is the result of a call that failed with error " +
                            std::to_string(outcome.mError) + ": " + outcome.mMessage);
        }
        value = &(*value)["mValue"];
    }
    return *value;
}

template <class Record>
requires IsRecord<Record>
void read(const Json& given, Record& record, const std::string& path) {
    const Json& json = payload<Record>(given, path);
    const std::string name = FieldTable<Record>::recordName;
    const std::string where = path.empty() ? "" : path + ": ";
    if (!json.is_object()) {
        fail(path, "an object with the fields of " + name, describe(json));
    }
    // Another kind of record is told as such, not by the first field that differs.
    if (!hasFieldsOf<Record>(json) && describeRecord(json) != describe(json)) {
        fail(path, "a " + name, "a " + describeRecord(json));
    }
    for (const auto& [key, value] : json.items()) {
        if (!hasField<Record>(key)) {
            throw JsonError(std::string(where).append("a ").append(name).append(" has no field ").append(key));
        }
    }
    forEachField<Record>([&](const auto& field) {
        const auto found = json.find(field.name);
        if (found == json.end()) {
            if (field.form != Form::optional) {
                throw JsonError(where + "the field " + field.name + " of " + name + " is missing");
            }
            return;
        }
        const std::string member = path.empty() ? field.name : path + "." + field.name;
        auto& value = record.*field.member;
        if constexpr (std::is_same_v<decltype(value), std::string&>) {
            field.form == Form::binary ? readBytes(*found, value, member) : read(*found, value, member);
        } else {
            read(*found, value, member);
        }
        field.markSet(record, true);
    });
}

} // namespace

template <class Record>
Json toJson(const Record& record) {
    return write(record);
}

template <class Record>
Record fromJson(const Json& json) {
    Record record;
    read(json, record, "");
    return record;
}

// Here alone, because the folds over all fields take their time to compile.
#define QEL_HOST_RECORD_JSON(RECORD)             \
    template Json toJson<RECORD>(const RECORD&); \
    template RECORD fromJson<RECORD>(const Json&);

QEL_HOST_RECORD_JSON(api::base::ServiceResult)
QEL_HOST_RECORD_JSON(camera::Vector)
QEL_HOST_RECORD_JSON(camera::Quaternion)
QEL_HOST_RECORD_JSON(camera::Matrix)
QEL_HOST_RECORD_JSON(camera::Frustum)
QEL_HOST_RECORD_JSON(camera::Viewport)
QEL_HOST_RECORD_JSON(camera::ViewState)
QEL_HOST_RECORD_JSON(camera::ProjectionState)
QEL_HOST_RECORD_JSON(camera::SurfaceState)
QEL_HOST_RECORD_JSON(camera::PlanarCameraState)
QEL_HOST_RECORD_JSON(camera::VectorResult)
QEL_HOST_RECORD_JSON(camera::MatrixResult)
QEL_HOST_RECORD_JSON(camera::DoubleResult)
QEL_HOST_RECORD_JSON(camera::ViewStateResult)
QEL_HOST_RECORD_JSON(camera::ProjectionStateResult)
QEL_HOST_RECORD_JSON(camera::SurfaceStateResult)
QEL_HOST_RECORD_JSON(camera::PlanarCameraStateResult)

} // namespace qel::host
