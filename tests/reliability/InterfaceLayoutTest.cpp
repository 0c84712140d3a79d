// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>

#include <algorithm>
#include <bit>
#include <cstddef>
#include <fstream>
#include <iterator>
#include <sstream>
#include <string>
#include <vector>

#include <qel/api/base/BaseAPIIf.h>
#include <qel/api/base/Fields.h>
#include <qel/api/camera/Fields.h>
#include <qel/api/camera/Operations.h>

#include "support/ElfFile.h"

namespace qel::api::camera::test {

namespace {

// What a host that was compiled against an older version of the headers relies on: where each operation stands among
// the virtual functions, where each field lies in its record, and what the module exports. The table of it is
// committed; a change of it is meant or a mistake, and either way breaks hosts until they are compiled again.

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

template <class Record>
void describe(std::ostream& out) {
    out << "record " << FieldTable<Record>::recordName << " size " << sizeof(Record) << " align " << alignof(Record)
        << '\n';
    const Record record{};
    const auto* const start = reinterpret_cast<const std::byte*>(&record);
    std::apply(
        [&](const auto&... field) {
            ((out << "  " << field.name << " at " << reinterpret_cast<const std::byte*>(&(record.*field.member)) - start
                  << " size " << sizeof(record.*field.member) << '\n'),
             ...);
        },
        FieldTable<Record>::fields);
    out << "  __isset at " << reinterpret_cast<const std::byte*>(&record.__isset) - start << " size "
        << sizeof record.__isset << '\n';
}

std::string interfaceAsBuilt() {
    std::ostringstream out;
    out << "interface BaseAPIIf size " << sizeof(base::BaseAPIIf) << '\n';
    out << "  getComponentVersion slot " << slotOf(&base::BaseAPIIf::getComponentVersion) << '\n';
    out << "  getComponentVariant slot " << slotOf(&base::BaseAPIIf::getComponentVariant) << '\n';
    out << "  getComponentName slot " << slotOf(&base::BaseAPIIf::getComponentName) << '\n';
    out << "interface CameraAPIIf size " << sizeof(CameraAPIIf) << '\n';
    forEachOperation([&](std::size_t, const auto& operation) {
        out << "  " << operation.name << " slot " << slotOf(operation.member) << '\n';
    });

    describe<base::ServiceResult>(out);
    describe<base::StringResult>(out);
    describe<Vector>(out);
    describe<Quaternion>(out);
    describe<Matrix>(out);
    describe<Frustum>(out);
    describe<Viewport>(out);
    describe<ViewState>(out);
    describe<ProjectionState>(out);
    describe<SurfaceState>(out);
    describe<PlanarCameraState>(out);
    describe<VectorResult>(out);
    describe<MatrixResult>(out);
    describe<ViewStateResult>(out);
    describe<ProjectionStateResult>(out);
    describe<SurfaceStateResult>(out);
    describe<PlanarCameraStateResult>(out);
    describe<DoubleResult>(out);

    std::vector<std::string> names;
    const ElfFile module(CAMERA_MODULE_FILE);
    for (const auto& symbol : module.exports()) {
        names.push_back(symbol.name);
    }
    std::sort(names.begin(), names.end());
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
