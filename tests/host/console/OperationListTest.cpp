// SPDX-License-Identifier: Apache-2.0
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include "host/console/OperationList.h"

namespace qel::host::test {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::StartsWith;

std::vector<std::string> namesOf(const std::string& pattern) {
    std::vector<std::string> names;
    for (const OperationEntry& entry : operationsLike(pattern)) {
        names.emplace_back(entry.name);
    }
    return names;
}

TEST(OperationList, HasAllOperationsInSlotOrder) {
    const auto entries = operationsLike("");
    ASSERT_EQ(entries.size(), 79U);
    for (std::size_t slot = 0; slot < entries.size(); ++slot) {
        EXPECT_EQ(entries[slot].slot, slot);
    }
    EXPECT_EQ(entries.front().name, "viewCreateDefault");
    EXPECT_EQ(entries.back().name, "transformScreenVectorToWorldVector");
}

TEST(OperationList, FindsPartsOfNamesInUpperOrLowerCase) {
    EXPECT_THAT(namesOf("ZOOM"), ElementsAre("projectionZoom", "planarCameraZoomArea",
                                             "planarCameraZoomWithAnchor_Screen", "planarCameraZoomWithAnchor_World"));
}

TEST(OperationList, FindsPatternsOfTheShell) {
    EXPECT_THAT(namesOf("get?fov"), ElementsAre("projectionGetHFoV", "projectionGetVFoV"));
    EXPECT_THAT(namesOf("planar*[wr]ithanchor"),
                ElementsAre("planarCameraZoomWithAnchor_Screen", "planarCameraZoomWithAnchor_World",
                            "planarCameraPanWithAnchor"));
}

TEST(OperationList, FindsNothingWhereThereIsNothing) { EXPECT_THAT(namesOf("fisheye"), IsEmpty()); }

TEST(OperationList, ShowsAnOperationWithItsArgumentsAndItsResult) {
    EXPECT_EQ(signatureOf("viewSetEye"), "viewSetEye(state:ViewState, eye:Vector) -> ViewStateResult");
    EXPECT_EQ(signatureOf("surfaceCreateDefault"), "surfaceCreateDefault() -> SurfaceStateResult");
    EXPECT_EQ(signatureOf("projectionCreate"),
              "projectionCreate(frustum:Frustum, projectionType:ProjectionType) -> ProjectionStateResult");
}

TEST(OperationList, HasAHeadingForEachGroup) {
    EXPECT_EQ(operationLines(operationsLike("defa")), "View\n"
                                                      "  viewCreateDefault() -> ViewStateResult\n"
                                                      "\n"
                                                      "Projection\n"
                                                      "  projectionCreateDefault() -> ProjectionStateResult\n"
                                                      "\n"
                                                      "Surface\n"
                                                      "  surfaceCreateDefault() -> SurfaceStateResult\n"
                                                      "\n"
                                                      "PlanarCamera\n"
                                                      "  planarCameraCreateDefault() -> PlanarCameraStateResult\n");
}

TEST(OperationList, IsJsonForPrograms) {
    EXPECT_EQ(layOut(operationJson(operationsLike("PanWithAnchor"))),
              "[\n"
              "  {\n"
              "    \"slot\": 64,\n"
              "    \"name\": \"planarCameraPanWithAnchor\",\n"
              "    \"group\": \"PlanarCamera\",\n"
              "    \"arguments\": [\n"
              "      {\"name\": \"state\", \"type\": \"PlanarCameraState\"},\n"
              "      {\"name\": \"x\", \"type\": \"int32\"},\n"
              "      {\"name\": \"y\", \"type\": \"int32\"},\n"
              "      {\"name\": \"depth\", \"type\": \"double\"},\n"
              "      {\"name\": \"dx\", \"type\": \"int32\"},\n"
              "      {\"name\": \"dy\", \"type\": \"int32\"}\n"
              "    ],\n"
              "    \"result\": \"PlanarCameraStateResult\"\n"
              "  }\n"
              "]");
}

TEST(OperationList, KnowsTheNameThatWasMeant) {
    EXPECT_EQ(namesLike("viewSetEyes"), "viewSetEye");
    EXPECT_EQ(namesLike("viewseteye"), "viewSetEye");
    EXPECT_EQ(namesLike("projectionGetFoV"), "projectionGetHFoV or projectionGetVFoV or projectionSetFoV");
    EXPECT_EQ(namesLike("fly"), "");
}

} // namespace
} // namespace qel::host::test
