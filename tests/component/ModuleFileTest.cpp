// SPDX-License-Identifier: Apache-2.0
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <link.h>

#include <string>
#include <string_view>

#include "tests/component/support/ElfFile.h"
#include "tests/component/support/Sanitized.h"

namespace qel::api::camera::test {

namespace {

using ::testing::AnyOf;
using ::testing::Each;
using ::testing::StartsWith;

const ElfFile& moduleFile() {
    static const ElfFile file(CAMERA_MODULE_FILE);
    return file;
}

// Nor a symbol unique to the process, which would pin the module in it for good.
TEST(ModuleFile, ExportsTheFactoryAndNothingElse) {
    ASSERT_EQ(moduleFile().exports().size(), 1U);
    EXPECT_EQ(moduleFile().exports().front().name, "createComponentInstance");
    EXPECT_EQ(moduleFile().exports().front().type, STT_FUNC);
    EXPECT_EQ(moduleFile().exports().front().binding, STB_GLOBAL);
}

TEST(ModuleFile, NeedsTheRuntimesOfCAndCxxAlone) {
    if (sanitized) {
        GTEST_SKIP() << "a sanitizer's own libraries come in";
    }
    EXPECT_FALSE(moduleFile().needed().empty());
    EXPECT_THAT(moduleFile().needed(),
                Each(AnyOf(StartsWith("libstdc++.so."), StartsWith("libm.so."), StartsWith("libgcc_s.so."),
                           StartsWith("libc.so."), StartsWith("ld-linux"))));
}

TEST(ModuleFile, DoesNotAskToStayLoaded) { EXPECT_EQ(moduleFile().flags1() & DF_1_NODELETE, 0U); }

TEST(ModuleFile, HasANameOfItsOwnAndTheNameOfTheInterface) {
    EXPECT_EQ(moduleFile().soname(), "CameraLibrary.so");
    using namespace std::string_view_literals;
    EXPECT_NE(moduleFile().bytes().find("\0BaseAPI\0"sv), std::string::npos) << "text that tools look for in modules";
}

} // namespace

} // namespace qel::api::camera::test
