// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <bit>
#include <cstddef>
#include <fstream>
#include <initializer_list>
#include <iterator>
#include <sstream>
#include <string>
#include <string_view>
#include <type_traits>
#include <typeinfo>
#include <utility>
#include <vector>

#include <qel/api/base/BaseAPIIf.h>
#include <qel/api/camera/Operations.h>

#include "tests/component/support/ElfFile.h"
#include "tests/records/AllRecords.h"

namespace qel::api::camera::test {

namespace {

// What a host that was compiled against an older version of the headers relies on: where each operation stands among
// the virtual functions and what it takes, where each field lies in its record and what it is, which bit says that it
// is set, what the enumerators mean, and what the module exports. The table of it is committed; a change of it is meant
// or a mistake, and either way breaks hosts until they are compiled again. Types are written as the linker mangles
// them.

/// The slot of a virtual function, as the Itanium ABI has it in a pointer to member on most 64-bit machines.
template <class Member>
std::size_t slotOf(const Member member) {
    struct Representation {
        std::ptrdiff_t pointer;
        std::ptrdiff_t adjustment;
    };
    const auto representation = std::bit_cast<Representation>(member);
    return static_cast<std::size_t>(representation.pointer - 1) / sizeof(void*);
}

/// One more virtual function gets the slot after the last, so that what is added at a table's end shows.
template <class Class>
class OneMore : public Class {
public:
    virtual void afterTheLast() = 0;
};

template <class Class>
std::size_t slotCountOf() {
    return slotOf(&OneMore<Class>::afterTheLast);
}

template <class Member>
void describeFunction(std::ostream& out, const std::string_view name, const Member member) {
    out << "  " << name << " slot " << slotOf(member) << " type " << typeid(Member).name() << '\n';
}

/// Which bit of a record's set-flags stands for a field, counted from the first byte's lowest: the one that changes.
template <class Record, class Field>
std::string flagBitOf(const Field& field) {
    using Flags = decltype(Record::__isset);
    using Bytes = std::array<unsigned char, sizeof(Flags)>;
    Record record{};
    const auto before = std::bit_cast<Bytes>(record.__isset);
    field.markSet(record, true);
    const auto after = std::bit_cast<Bytes>(record.__isset);
    std::string changed;
    for (std::size_t bit = 0; bit < 8 * sizeof(Flags); ++bit) {
        if ((((before[bit / 8] ^ after[bit / 8]) >> (bit % 8)) & 1) != 0) {
            changed += ' ' + std::to_string(bit);
        }
    }
    return changed.empty() ? " none" : changed;
}

template <class Record>
void describe(std::ostream& out) {
    out << "record " << FieldTable<Record>::recordName << " size " << sizeof(Record) << " align " << alignof(Record)
        << " slots " << slotCountOf<Record>() << '\n';
    describeFunction(out, "read", &Record::read);
    describeFunction(out, "write", &Record::write);
    describeFunction(out, "printTo", &Record::printTo);
    const Record record{};
    const auto* const start = reinterpret_cast<const std::byte*>(&record);
    forEachField<Record>([&](const auto& field) {
        using Value = typename std::remove_cvref_t<decltype(field)>::Value;
        out << "  " << field.name << " at " << reinterpret_cast<const std::byte*>(&(record.*field.member)) - start
            << " size " << sizeof(Value) << " type " << typeid(Value).name() << " flag" << flagBitOf<Record>(field)
            << '\n';
    });
    out << "  __isset at " << reinterpret_cast<const std::byte*>(&record.__isset) - start << " size "
        << sizeof record.__isset << '\n';
}

template <class Enumeration>
void describeEnumerators(std::ostream& out, const std::string_view name,
                         const std::initializer_list<std::pair<std::string_view, Enumeration>> enumerators) {
    using Number = std::underlying_type_t<Enumeration>;
    out << "enumeration " << name << " size " << sizeof(Enumeration) << " type " << typeid(Number).name() << '\n';
    for (const auto& [enumerator, value] : enumerators) {
        out << "  " << enumerator << " = " << static_cast<Number>(value) << '\n';
    }
}

std::string interfaceAsBuilt() {
    std::ostringstream out;
    out << "interface BaseAPIIf size " << sizeof(base::BaseAPIIf) << " slots " << slotCountOf<base::BaseAPIIf>()
        << '\n';
    describeFunction(out, "getComponentVersion", &base::BaseAPIIf::getComponentVersion);
    describeFunction(out, "getComponentVariant", &base::BaseAPIIf::getComponentVariant);
    describeFunction(out, "getComponentName", &base::BaseAPIIf::getComponentName);
    out << "interface CameraAPIIf size " << sizeof(CameraAPIIf) << " slots " << slotCountOf<CameraAPIIf>() << '\n';
    forEachOperation(
        [&](std::size_t, const auto& operation) { describeFunction(out, operation.name, operation.member); });

    describeEnumerators<CameraAPIError::type>(
        out, "CameraAPIError",
        {{"CAMERA_API_SUCCESS", CameraAPIError::CAMERA_API_SUCCESS},
         {"CAMERA_API_ERROR_INVALID_ID", CameraAPIError::CAMERA_API_ERROR_INVALID_ID},
         {"CAMERA_API_ERROR_CREATION_FAILED", CameraAPIError::CAMERA_API_ERROR_CREATION_FAILED},
         {"CAMERA_API_ERROR_DESTRUCTION_FAILED", CameraAPIError::CAMERA_API_ERROR_DESTRUCTION_FAILED},
         {"CAMERA_API_ERROR_CALL_FAILED", CameraAPIError::CAMERA_API_ERROR_CALL_FAILED},
         {"CAMERA_API_ERROR_UNKNOWN", CameraAPIError::CAMERA_API_ERROR_UNKNOWN}});
    describeEnumerators<ProjectionType::type>(
        out, "ProjectionType",
        {{"PERSPECTIVE", ProjectionType::PERSPECTIVE}, {"ORTHOGRAPHIC", ProjectionType::ORTHOGRAPHIC}});

    AllRecords::forEach([&]<class Record>() { describe<Record>(out); });

    std::vector<std::string> names;
    const ElfFile module(CAMERA_MODULE_FILE);
    for (const auto& symbol : module.exports()) {
        names.push_back(symbol.name);
    }
    std::sort(names.begin(), names.end());
    out << "factory type " << typeid(decltype(createComponentInstance)).name() << '\n';
    for (const std::string& name : names) {
        out << "export " << name << '\n';
    }
    return out.str();
}

std::string recorded() {
    std::ifstream file(CAMERA_RECORDED_INTERFACE);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

#if defined(__x86_64__) && defined(__GLIBCXX__)
constexpr bool isRecordedHere = true;
#else
constexpr bool isRecordedHere = false;
#endif

TEST(InterfaceLayout, IsTheRecordedOne) {
    if (!isRecordedHere) {
        GTEST_SKIP() << "recorded for x86-64 and the GNU C++ library";
    }
    const std::string actual = interfaceAsBuilt();
    if (actual != recorded()) {
        std::ofstream("interface-as-built.txt") << actual;
    }
    EXPECT_EQ(actual, recorded()) << "if it is meant: interface-as-built.txt, in the folder of this test, is what "
                                     "belongs into " CAMERA_RECORDED_INTERFACE ", and hosts must be told";
}

} // namespace

} // namespace qel::api::camera::test
