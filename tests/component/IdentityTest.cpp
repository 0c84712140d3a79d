// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>

#include <array>
#include <type_traits>
#include <utility>

#include "tests/component/support/Calls.h"
#include "tests/component/support/RecordFields.h"

namespace qel::api::camera::test {

namespace {

using base::BaseAPIIf;
using base::StringResult;

constexpr std::array<std::pair<void (BaseAPIIf::*)(StringResult&), const char*>, 3> answers{
    {{&BaseAPIIf::getComponentName, "CameraAPI"},
     {&BaseAPIIf::getComponentVariant, ""},
     {&BaseAPIIf::getComponentVersion, CAMERA_VERSION}}};

TEST(Identity, ReplacesTheWholeResultAnOlderErrorAndEverySetFlagIncluded) {
    const LoadedService service;
    for (const auto& [getter, value] : answers) {
        StringResult expected;
        expected.mValue = value;
        StringResult result;
        ((*service).*getter)(result);
        EXPECT_EQ(fingerprint(result), fingerprint(expected));
        result.mResult = olderError();
        result.mValue = "a value from before that is too long to fit in the string object itself";
        setAllFlags(result, true);
        ((*service).*getter)(result);
        EXPECT_EQ(fingerprint(result), fingerprint(expected));
        expectSuccess(result.mResult);
    }
}

TEST(Identity, InterfacesHaveTheShapeThatHostsRelyOn) {
    static_assert(std::is_abstract_v<BaseAPIIf> && std::is_abstract_v<CameraAPIIf>);
    static_assert(std::has_virtual_destructor_v<BaseAPIIf>);
    static_assert(std::is_base_of_v<BaseAPIIf, CameraAPIIf>);
    static_assert(sizeof(BaseAPIIf) == sizeof(void*), "no data members");
    // From a virtual base there is no static way down, only the checked one.
    static_assert(![]<class Base>(Base* base) {
        return requires { static_cast<CameraAPIIf*>(base); };
    }(static_cast<BaseAPIIf*>(nullptr)));
    static_assert(std::is_convertible_v<CameraAPIIf*, BaseAPIIf*>);
}

} // namespace

} // namespace qel::api::camera::test
