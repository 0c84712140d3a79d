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
#include <vector>

#include <qel/api/camera/Fields.h>
#include <qel/api/camera/Operations.h>

#include "tests/records/AllRecords.h"

namespace qel::api {
namespace {

template <class Value>
struct TypeName {
    static std::string get() {
        const bool isBase = std::is_same_v<Value, base::ServiceResult> || std::is_same_v<Value, base::StringResult>;
        return std::string(isBase ? "base." : "") + FieldTable<Value>::recordName;
    }
};
template <>
struct TypeName<double> {
    static std::string get() { return "double"; }
};
template <>
struct TypeName<std::int32_t> {
    static std::string get() { return "i32"; }
};
template <>
struct TypeName<std::string> {
    static std::string get() { return "string"; }
};
template <>
struct TypeName<camera::ProjectionType::type> {
    static std::string get() { return "ProjectionType"; }
};
template <class Element>
struct TypeName<std::vector<Element>> {
    static std::string get() { return "list<" + TypeName<Element>::get() + ">"; }
};

template <class Record>
void describeRecord() {
    std::cout << "record " << TypeName<Record>::get() << '\n';
    forEachField<Record>([](const auto& field) {
        using Value = typename std::remove_cvref_t<decltype(field)>::Value;
        std::cout << "  field " << field.id << ' ' << field.name << ' '
                  << (field.form == Form::binary ? "binary" : TypeName<Value>::get())
                  << (field.form == Form::optional ? " optional" : "") << '\n';
    });
}

template <class Result, class... Arguments, std::size_t count>
void describeOperation(std::string_view service, std::string_view name,
                       const std::array<std::string_view, count>& argumentNames) {
    std::cout << "operation " << service << ' ' << name << ' ' << TypeName<Result>::get() << '\n';
    std::size_t i = 0;
    ((std::cout << "  argument " << i + 1 << ' ' << argumentNames[i] << ' '
                << TypeName<std::remove_cvref_t<Arguments>>::get() << '\n',
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
