// SPDX-License-Identifier: Apache-2.0
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <qel/api/camera/Operations.h>

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

TEST(OperationList, HasAllOperationsInTheTablesOrder) {
    const auto entries = operationsLike("");
    ASSERT_EQ(entries.size(), api::camera::operationCount);
    for (std::size_t number = 0; number < entries.size(); ++number) {
        EXPECT_EQ(entries[number].number, number);
        EXPECT_EQ(api::camera::findOperation(entries[number].name), number);
    }
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
    Json expected = parseJson(R"([{"number": 0, "name": "planarCameraPanWithAnchor", "group": "PlanarCamera",
        "arguments": [{"name": "state", "type": "PlanarCameraState"}, {"name": "x", "type": "int32"},
                      {"name": "y", "type": "int32"}, {"name": "depth", "type": "double"},
                      {"name": "dx", "type": "int32"}, {"name": "dy", "type": "int32"}],
        "result": "PlanarCameraStateResult"}])");
    expected[0]["number"] = api::camera::slotOf("planarCameraPanWithAnchor");
    EXPECT_EQ(operationJson(operationsLike("PanWithAnchor")), expected);
}

TEST(OperationList, KnowsTheNameThatWasMeant) {
    EXPECT_EQ(namesLike("viewseteye"), "viewSetEye");
    EXPECT_EQ(namesLike("projectionGetFoV"), "projectionGetHFoV or projectionGetVFoV or projectionSetFoV");
}

} // namespace
} // namespace qel::host::test
