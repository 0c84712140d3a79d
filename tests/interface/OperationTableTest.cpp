// SPDX-License-Identifier: Apache-2.0
// What the table of operations says in text. Its names and types in their order are recorded in
// tests/reliability/recorded/interface.txt; scripts/pages/reference.py compares the names of the arguments with the
// header's.
#include <cstddef>
#include <map>
#include <string_view>
#include <utility>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <qel/api/camera/Operations.h>

namespace qel::api::camera {
namespace {

using ::testing::ElementsAre;

template <std::size_t number>
constexpr const auto& operation = std::get<number>(operations);

TEST(OperationTable, FindsEachOperationByItsNameAlone) {
    forEachOperation(
        [](std::size_t number, const auto& operation) { EXPECT_EQ(findOperation(operation.name), number); });
    EXPECT_EQ(findOperation("viewYaw "), operationCount);
    EXPECT_EQ(findOperation(""), operationCount);
}

TEST(OperationTable, NamesArgumentsAndTypes) {
    const auto& yaw = operation<slotOf("viewYaw")>;
    EXPECT_EQ(yaw.name, "viewYaw");
    EXPECT_THAT(yaw.argumentNames, ElementsAre("state", "angle"));
    EXPECT_THAT(argumentTypes(yaw), ElementsAre("ViewState", "double"));
    EXPECT_EQ(resultType(yaw), "ViewStateResult");
    EXPECT_THAT(argumentTypes(operation<slotOf("projectionCreate")>), ElementsAre("Frustum", "ProjectionType"));
    EXPECT_THAT(argumentTypes(operation<slotOf("planarCameraUpdateWindowSize")>),
                ElementsAre("PlanarCameraState", "int32", "int32"));
    EXPECT_EQ(argumentTypes(operation<slotOf("viewCreateDefault")>).size(), 0U);
}

TEST(OperationTable, GroupsTheOperations) {
    std::map<std::string_view, std::string_view> firsts;
    forEachOperation(
        [&](std::size_t, const auto& operation) { firsts.emplace(groupOf(operation.name), operation.name); });
    EXPECT_THAT(firsts, ElementsAre(std::pair("PlanarCamera", "planarCameraCreateDefault"),
                                    std::pair("Projection", "projectionCreateDefault"),
                                    std::pair("Surface", "surfaceCreateDefault"),
                                    std::pair("Transforms", "transformScreenPointToViewPoint"),
                                    std::pair("Utilities", "utilsMakePerspectiveMatrix"),
                                    std::pair("View", "viewCreateDefault")));
    EXPECT_EQ(groupOf("roll"), "");
    EXPECT_EQ(groupOf(""), "");
}

} // namespace
} // namespace qel::api::camera
