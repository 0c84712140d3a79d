// SPDX-License-Identifier: Apache-2.0
//
// Prints the interface as the code has it, a line for each record, field, enumerator, operation and argument.
// compare_description.py prints the same lines from the interface description.
#include <array>
#include <cstddef>
#include <cstdint>
#include <iostream>
#include <string>
#include <string_view>
#include <type_traits>

#include <qel/api/camera/Fields.h>
#include <qel/api/camera/Operations.h>

#include "tests/records/AllRecords.h"

namespace qel::api {
namespace {

/// The type as camera.thrift would write it.
template <class Value>
std::string typeName() {
    if constexpr (std::is_same_v<Value, std::int32_t>) {
        return "i32";
    } else if constexpr (std::is_same_v<Value, std::string>) {
        return "string";
    } else if constexpr (requires { typename Value::value_type; }) {
        return "list<" + typeName<typename Value::value_type>() + ">";
    } else {
        const bool isBase = std::is_same_v<Value, base::ServiceResult> || std::is_same_v<Value, base::StringResult>;
        return (isBase ? "base." : "") + std::string(camera::typeName<Value>());
    }
}

template <class Record>
void describeRecord() {
    std::cout << "record " << typeName<Record>() << '\n';
    forEachField<Record>([](const auto& field) {
        using Value = typename std::remove_cvref_t<decltype(field)>::Value;
        std::cout << "  field " << field.id << ' ' << field.name << ' '
                  << (field.form == Form::binary ? "binary" : typeName<Value>())
                  << (field.form == Form::optional ? " optional" : "") << '\n';
    });
}

template <class Result, class... Arguments, std::size_t count>
void describeOperation(std::string_view service, std::string_view name,
                       const std::array<std::string_view, count>& argumentNames) {
    std::cout << "operation " << service << ' ' << name << ' ' << typeName<Result>() << '\n';
    std::size_t i = 0;
    ((std::cout << "  argument " << i + 1 << ' ' << argumentNames[i] << ' '
                << typeName<std::remove_cvref_t<Arguments>>() << '\n',
      ++i),
     ...);
}

template <class Result, class... Arguments>
void describe(const camera::Operation<Result, Arguments...>& operation) {
    describeOperation<Result, Arguments...>("CameraAPI", operation.name, operation.argumentNames);
}

/// An operation of the base interface, which has no table.
void describe(std::string_view name, void (base::BaseAPIIf::*)(base::StringResult&)) {
    describeOperation<base::StringResult>("BaseAPI", name, std::array<std::string_view, 0>{});
}

void describeEnumerations() {
    using camera::CameraAPIError;
    using camera::ProjectionType;
    std::cout << "enumeration CameraAPIError\n"
              << "  CAMERA_API_SUCCESS " << CameraAPIError::CAMERA_API_SUCCESS << '\n'
              << "  CAMERA_API_ERROR_INVALID_ID " << CameraAPIError::CAMERA_API_ERROR_INVALID_ID << '\n'
              << "  CAMERA_API_ERROR_CREATION_FAILED " << CameraAPIError::CAMERA_API_ERROR_CREATION_FAILED << '\n'
              << "  CAMERA_API_ERROR_DESTRUCTION_FAILED " << CameraAPIError::CAMERA_API_ERROR_DESTRUCTION_FAILED << '\n'
              << "  CAMERA_API_ERROR_CALL_FAILED " << CameraAPIError::CAMERA_API_ERROR_CALL_FAILED << '\n'
              << "  CAMERA_API_ERROR_UNKNOWN " << CameraAPIError::CAMERA_API_ERROR_UNKNOWN << '\n'
              << "enumeration ProjectionType\n";
    for (const auto value : {ProjectionType::PERSPECTIVE, ProjectionType::ORTHOGRAPHIC}) {
        std::cout << "  " << nameOf(value) << ' ' << value << '\n';
    }
}

} // namespace
} // namespace qel::api

int main() {
    using namespace qel::api;
    AllRecords::forEach([]<class Record>() { describeRecord<Record>(); });
    describeEnumerations();
    describe("getComponentVersion", &base::BaseAPIIf::getComponentVersion);
    describe("getComponentVariant", &base::BaseAPIIf::getComponentVariant);
    describe("getComponentName", &base::BaseAPIIf::getComponentName);
    camera::forEachOperation([](std::size_t, const auto& operation) { describe(operation); });
}
