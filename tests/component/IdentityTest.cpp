// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>

#include <string>
#include <type_traits>

#include "tests/component/support/Calls.h"
#include "tests/component/support/LoadedModule.h"

namespace qel::api::camera::test {

namespace {

using base::BaseAPIIf;
using base::StringResult;
using Getter = void (BaseAPIIf::*)(StringResult&);

struct Answer {
    Getter getter;
    const char* value;
};
constexpr std::array<Answer, 3> answers{{{&BaseAPIIf::getComponentName, "CameraAPI"},
                                         {&BaseAPIIf::getComponentVariant, ""},
                                         {&BaseAPIIf::getComponentVersion, "0.3.10"}}};

StringResult filledResult() {
    StringResult result;
    result.mResult = olderError();
    result.mResult.mError = -1;
    result.__set_mValue("a value from before that is too long to fit in the string object itself");
    return result;
}

TEST(Identity, AnswersNameVariantAndVersion) {
    const LoadedService service;
    for (const Answer& answer : answers) {
        StringResult result;
        ((*service).*answer.getter)(result);
        EXPECT_EQ(result.mValue, answer.value);
        expectSuccess(result);
    }
}

TEST(Identity, ReplacesTheWholeResultAndSoAnOlderError) {
    const LoadedService service;
    for (const Answer& answer : answers) {
        StringResult result = filledResult();
        ((*service).*answer.getter)(result);
        StringResult expected;
        expected.mValue = answer.value;
        EXPECT_EQ(fingerprint(result), fingerprint(expected)) << "flags included";
        expectSuccess(result);
    }
}

TEST(Identity, LowersEverySetFlag) {
    const LoadedService service;
    for (const Answer& answer : answers) {
        StringResult result;
        setAllFlags(result, true);
        ((*service).*answer.getter)(result);
        EXPECT_EQ(flagsOf(result), "----");
    }
}

TEST(Identity, SaysTheSameEachTime) {
    const LoadedService service;
    for (const Answer& answer : answers) {
        StringResult result;
        ((*service).*answer.getter)(result);
        const std::string first = fingerprint(result);
        ((*service).*answer.getter)(result);
        EXPECT_EQ(fingerprint(result), first);
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
