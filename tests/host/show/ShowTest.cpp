// SPDX-License-Identifier: Apache-2.0
// What camera show says of states that the component itself made.
#include <cmath>
#include <cstddef>
#include <limits>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <qel/host/ComponentLoader.h>

#include "host/calls/ServiceCall.h"
#include "host/console/RecordJson.h"
#include "host/show/Show.h"
#include "tests/host/ErrorOf.h"

namespace qel::host::test {
namespace {

namespace camera = api::camera;
using ::testing::AllOf;
using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;
using ::testing::StartsWith;

constexpr double nan = std::numeric_limits<double>::quiet_NaN();
constexpr double infinity = std::numeric_limits<double>::infinity();

camera::CameraAPIIf& service() {
    static const ComponentLoader component(CAMERA_MODULE);
    return component.camera();
}

/// The state that an operation makes.
template <OperationName name, class... Arguments>
auto made(const Arguments&... arguments) {
    return call<name>(service(), arguments...);
}

/// Of a matrix given row by row.
camera::Matrix matrix(const std::vector<std::vector<double>>& rows) {
    camera::Matrix made;
    made.mData = rows;
    return made;
}

const camera::Matrix movedByFive = matrix({{1, 0, 0, 0}, {0, 1, 0, 0}, {0, 0, 1, 5}, {0, 0, 0, 1}});

template <class Record>
StateReport report(const Record& record) {
    return reportState(toJson(record));
}

template <class Record>
std::vector<std::string> warningsOf(const Record& record) {
    return report(record).warnings();
}

camera::ViewState lookingDown() {
    return made<"viewCreate">(toVector({1, 5, 2}), toVector({1, 0, 2}), toVector({0, 0, -1}));
}

TEST(Show, TellsOfAView) {
    EXPECT_EQ(report(lookingDown()).text(),
              "View\n"
              "  eye             (1, 5, 2)\n"
              "  look-at         (1, 4, 2), one unit ahead\n"
              "  direction       (0, -1, 0)\n"
              "  up              (0, 0, -1)\n"
              "  kind words      view transform matrix general (64), view matrix general (64), orientation general "
              "(64)\n");
}

TEST(Show, TellsTheKindWordsOfAViewThatWasRefused) {
    const auto blank = made<"viewCreate">(toVector({0, 0, 0}), toVector({0, 0, 0}), toVector({0, 1, 0}));
    EXPECT_THAT(report(blank).text(), HasSubstr("view transform matrix identity (1), view matrix identity (1), "
                                                "orientation identity (1)"));
}

TEST(Show, TellsOfAPerspectiveProjection) {
    camera::Frustum frustum;
    frustum.mLeft = -1;
    frustum.mRight = std::sqrt(3.0);
    frustum.mBottom = -1 / std::sqrt(3.0);
    frustum.mTop = 1;
    frustum.mNearDist = 1;
    frustum.mFarDist = 100;
    const auto state = made<"projectionCreate">(frustum, camera::ProjectionType::PERSPECTIVE);
    EXPECT_EQ(report(state).text(), "Projection\n"
                                    "  kind            perspective\n"
                                    "  field of view   75 degrees vertically, 105 degrees horizontally\n"
                                    "  aspect ratio    1.73205\n"
                                    "  frustum         left -1, right 1.73205, bottom -0.57735, top 1\n"
                                    "  near, far       1, 100\n"
                                    "  kind words      projection matrix general (64), its inverse general (64)\n");
}

TEST(Show, TellsOfAnOrthographicProjection) {
    const auto state = made<"projectionUpdateOrthographic">(made<"projectionCreateDefault">(), 8, 6, 1, 9);
    EXPECT_THAT(report(state).text(), AllOf(HasSubstr("  kind            orthographic\n"
                                                      "  extent          8 wide and 6 high\n"
                                                      "  aspect ratio    1.33333\n"
                                                      "  frustum         left -4, right 4, bottom -3, top 3\n"
                                                      "  near, far       1, 9\n"),
                                            Not(HasSubstr("degrees"))));
}

TEST(Show, TellsOfASurface) {
    const auto state = made<"surfaceCreate">(0.5, 0.25, 0.5, 0.75, 0.1, 0.9, 1000, 800);
    EXPECT_EQ(report(state).text(),
              "Surface\n"
              "  window          1000 x 800 pixels\n"
              "  viewport        x 0.5, y 0.25, width 0.5, height 0.75 of the window: pixels 500 to 1000 across, 200 "
              "to 800 up\n"
              "  depths          0.1 near to 0.9 far\n"
              "  kind words      viewport matrix general (64), its inverse general (64)\n");
}

TEST(Show, TellsOfNumbersThatAreNotFiniteWhateverTheirSign) {
    EXPECT_EQ(shown(nan), "NaN");
    EXPECT_EQ(shown(std::copysign(nan, -1.0)), "NaN");
    EXPECT_EQ(shown(std::vector{infinity, -infinity, -1e300}), "(Infinity, -Infinity, -1e+300)");
    const auto view = made<"viewSetEye">(made<"viewCreateDefault">(), toVector({std::copysign(nan, -1.0), nan, 0}));
    EXPECT_THAT(report(view).text(), HasSubstr("  eye             (NaN, NaN, 0)\n"));
}

TEST(Show, TellsOfThePartsOfACamera) {
    auto state = made<"planarCameraUpdateWindowSize">(made<"planarCameraCreateDefault">(), 1280, 720);
    const std::string text = report(state).text();
    EXPECT_THAT(text, HasSubstr("View\n  eye             (0, 0, 0)\n"));
    EXPECT_THAT(text, HasSubstr("\nProjection\n  kind            perspective\n"));
    EXPECT_THAT(text, HasSubstr("\nSurface\n  window          1280 x 720 pixels\n  viewport        the whole window\n"
                                "  depths          0 near to 1 far\n"));
}

TEST(Show, TakesTheStateOutOfAResultAndWarnsWhereTheCallFailed) {
    camera::SurfaceStateResult result;
    service().surfaceCreateDefault(result);
    EXPECT_EQ(report(result).text(), report(result.mValue).text());
    const Json nested{{"mValue", toJson(result)}, {"mResult", {{"mError", 0}}}};
    EXPECT_EQ(reportState(nested).text(), report(result.mValue).text());
    result.mResult.mError = -1;
    result.mResult.__set_mMessage("Unable to create Surface object.");
    EXPECT_THAT(warningsOf(result), ElementsAre("result: the call that made it failed with error -1: Unable to create "
                                                "Surface object."));
}

TEST(Show, RefusesWhatIsNoState) {
    const auto errorOfJson = [](const std::string& json) {
        return errorOf<JsonError>([&] { reportState(parseJson(json)); });
    };
    EXPECT_EQ(errorOfJson(R"({"mData": [1, 2, 3]})"),
              "wants a state of a planar camera, a view, a projection or a surface, but an object of mData came");
    EXPECT_THAT(errorOfJson("[]"), HasSubstr("but a list of 0 came"));
    EXPECT_EQ(errorOfJson(R"({"mPrivate": "", "mFrustum": {}})"),
              "the field mProjectionMatrix of ProjectionState is missing");
}

// What the component makes without raw matrices is in step, whatever was done to it.
TEST(ShowWarnings, AreNoneForACameraThatWasNavigated) {
    auto state = made<"planarCameraUpdateWindowSize">(made<"planarCameraCreateDefault">(), 1280, 720);
    state = made<"planarCameraFitWorldSpaceBoundingBox">(state, 1e6, 1e6, 1e6, 1e6 + 2, 1e6 + 1, 1e6 + 3);
    for (int i = 0; i < 50; ++i) {
        state =
            made<"planarCameraRotateAboutWorldAxis">(state, toVector({1e6, 1e6, 1e6}), toVector({0, 0, 1}), 0.3, 0.1);
        state = made<"planarCameraYawPitchRoll">(state, 0.1, -0.2, 0.05);
        state = made<"planarCameraRoll">(state, 0.01);
        state = made<"planarCameraZoomWithAnchor_Screen">(state, 100, 200, 0.5, 0.97);
        state = made<"planarCameraPanWithAnchor">(state, 100, 200, 0.5, 10, -5);
        ASSERT_THAT(warningsOf(state), IsEmpty()) << i;
    }
    state = made<"planarCameraSwitchProjectionType">(state, 0, 0, 0, 1e6, 1e6, 1e6);
    EXPECT_THAT(warningsOf(state), IsEmpty());
}

TEST(ShowWarnings, AreNoneForARigidViewMatrixOfSinglePrecision) {
    const auto turned = made<"viewUpdateLookat">(made<"viewCreateDefault">(), toVector({3, -2, 7}),
                                                 toVector({0.5, 1, -1}), toVector({0, 0, 1}));
    camera::Matrix single = turned.mViewMatrix;
    for (auto& row : single.mData) {
        for (double& number : row) {
            number = static_cast<float>(number);
        }
    }
    EXPECT_THAT(warningsOf(made<"viewSetViewMatrix">(turned, single)), IsEmpty());
}

TEST(ShowWarnings, TellOfARawViewTransformMatrixWhereItTurns) {
    const auto view = made<"viewSetViewTransformMatrix">(lookingDown(), movedByFive);
    const auto turned = ElementsAre(StartsWith("view: the view transform matrix looks along (0, 0, -1) with (0, 1, 0) "
                                               "upwards, not as direction and up say"));
    EXPECT_THAT(warningsOf(view), turned);
    EXPECT_THAT(warningsOf(made<"planarCameraSetView">(made<"planarCameraCreateDefault">(), view)), turned);
    // The default view and the matrix look the same way.
    EXPECT_THAT(warningsOf(made<"viewSetViewTransformMatrix">(made<"viewCreateDefault">(), movedByFive)), IsEmpty());
}

TEST(ShowWarnings, TellOfAViewMatrixThatScales) {
    const auto twice = matrix({{2, 0, 0, 0}, {0, 2, 0, 0}, {0, 0, 2, -5}, {0, 0, 0, 1}});
    EXPECT_THAT(warningsOf(made<"viewSetViewMatrix">(made<"viewCreateDefault">(), twice)),
                AllOf(Contains(HasSubstr("are not the inverse of each other")),
                      Contains(HasSubstr("the view transform matrix has its eye at (0, 0, 10), not where the eye "
                                         "is"))));
}

TEST(ShowWarnings, TellOfARawProjectionMatrix) {
    const auto state = made<"projectionSetProjectionMatrix">(made<"projectionCreateDefault">(), movedByFive,
                                                             camera::ProjectionType::PERSPECTIVE);
    EXPECT_THAT(warningsOf(state), ElementsAre(StartsWith("projection: its frustum is none"),
                                               StartsWith("projection: the projection matrix is not that of this "
                                                          "perspective frustum"),
                                               StartsWith("projection: the inverse that it keeps is that of another "
                                                          "projection matrix")));
}

TEST(ShowWarnings, TellThatTheFrustumIsTurnedOverEvenByTheProjectionsOwnMatrix) {
    // Near and far are taken from the view space that looks along -z.
    const auto before = made<"projectionCreateDefault">();
    const auto state =
        made<"projectionSetProjectionMatrix">(before, before.mProjectionMatrix, camera::ProjectionType::PERSPECTIVE);
    EXPECT_THAT(warningsOf(state), Contains(StartsWith("projection: its frustum is none")));
    EXPECT_THAT(warningsOf(state), Not(Contains(HasSubstr("the inverse that it keeps"))));
}

TEST(ShowWarnings, TellOfAViewportThatWasSetAlone) {
    camera::Viewport viewport;
    viewport.mX = 0.5;
    viewport.mWidth = 0.25;
    viewport.mHeight = 1;
    viewport.mDepthMax = 1;
    const auto state = made<"surfaceSetViewport">(made<"surfaceCreateDefault">(), viewport);
    EXPECT_THAT(
        warningsOf(state),
        ElementsAre(StartsWith("surface: screen positions are still those of the viewport (0, 0, 1, 1, 0, 1)")));
    EXPECT_THAT(warningsOf(made<"surfaceSetResolutionX">(state, 800)), IsEmpty());
}

TEST(ShowWarnings, TellOfFieldsThatWereChangedButNotInTheBlob) {
    auto view = lookingDown();
    view.mEye = toVector({9, 9, 9});
    EXPECT_THAT(warningsOf(view), ElementsAre("view: mEye is (9, 9, 9), but mPrivate has (1, 5, 2); operations read "
                                              "mPrivate alone"));
    view = lookingDown();
    view.mDirection = toVector({1, 0, 0});
    view.mOrientation.mData = {0, 0, 0, 1};
    view.mViewMatrix = movedByFive;
    view.mViewTransformMatrix.mData.clear();
    EXPECT_THAT(warningsOf(view), ElementsAre(StartsWith("view: mViewTransformMatrix is not the matrix"),
                                              StartsWith("view: mViewMatrix is not the matrix"),
                                              StartsWith("view: mDirection is (1, 0, 0), but mPrivate has (0, -1, 0)"),
                                              StartsWith("view: mOrientation is (0, 0, 0, 1), which is not")));

    auto projection = made<"projectionCreateDefault">();
    projection.mFrustum.mFarDist = 7;
    projection.mProjectionMatrix = movedByFive;
    projection.mProjectionType = camera::ProjectionType::ORTHOGRAPHIC;
    EXPECT_THAT(warningsOf(projection),
                ElementsAre(StartsWith("projection: mProjectionMatrix"), StartsWith("projection: mFrustum"),
                            StartsWith("projection: mProjectionType is not the perspective one")));

    auto surface = made<"surfaceCreateDefault">();
    surface.mResolutionX = 641;
    surface.mViewport.mX = 0.5;
    EXPECT_THAT(warningsOf(surface),
                ElementsAre(StartsWith("surface: mViewport is (0.5, 0, 1, 1, 0, 1), but mPrivate has (0, 0, 1, 1, 0, "
                                       "1)"),
                            StartsWith("surface: the window's size is (641, 480), but mPrivate has (640, 480)")));
}

TEST(ShowWarnings, TellWhichPartOfACameraIsNotItsOwn) {
    const auto whole = made<"planarCameraCreateDefault">();
    auto state = whole;
    state.mViewState = lookingDown();
    const auto warnings = warningsOf(state);
    EXPECT_THAT(warnings, Contains(StartsWith("camera: mViewState.mPrivate is not the part")));
    EXPECT_THAT(warnings, Contains(StartsWith("view: mEye is (1, 5, 2), but mPrivate has (0, 0, 0)")));
    EXPECT_THAT(report(state).text(), HasSubstr("  eye             (0, 0, 0)\n"));
    state = whole;
    state.mProjectionState.mPrivate.back() ^= 1;
    EXPECT_THAT(warningsOf(state), ElementsAre(StartsWith("camera: mProjectionState.mPrivate is not the part")));
    state = whole;
    state.mSurfaceState.mPrivate.back() ^= 1;
    EXPECT_THAT(warningsOf(state), ElementsAre(StartsWith("camera: mSurfaceState.mPrivate is not the part")));
    state = whole;
    state.mSurfaceState.mPrivate.front() ^= 1; // in what nobody reads
    EXPECT_THAT(warningsOf(state), IsEmpty());
}

TEST(ShowWarnings, TellOfAForgedInverse) {
    auto surface = made<"surfaceCreateDefault">();
    const std::size_t first = camera::impl::blobHeaderSize + offsetof(camera::impl::Surface::Block, inverse);
    surface.mPrivate[first + 7] ^= 1; // the exponent of the inverse's first element
    EXPECT_THAT(warningsOf(surface), ElementsAre("surface: the viewport matrix and the inverse that it keeps do not "
                                                 "belong together"));
}

TEST(ShowWarnings, TellOfABlobThatIsTooShortOrTooLong) {
    const auto withBytes = [](auto state, std::size_t size) {
        state.mPrivate.resize(size);
        return report(state);
    };
    const StateReport view = withBytes(lookingDown(), 383);
    EXPECT_THAT(view.warnings(), ElementsAre("view: mPrivate has 383 bytes instead of 384: operations on this state "
                                             "fail, and what is shown are its other fields"));
    EXPECT_THAT(view.text(),
                AllOf(HasSubstr("  eye             (1, 5, 2)\n"), HasSubstr("  up              (0, 0, -1)\n")));
    EXPECT_THAT(withBytes(lookingDown(), 385).warnings(),
                ElementsAre("view: mPrivate has 385 bytes instead of 384: operations leave out what comes after"));
    EXPECT_THAT(withBytes(made<"projectionCreateDefault">(), 0).warnings(),
                ElementsAre(StartsWith("projection: mPrivate has 0 bytes instead of 336")));
    EXPECT_THAT(withBytes(made<"surfaceCreateDefault">(), 100).warnings(),
                ElementsAre(StartsWith("surface: mPrivate has 100 bytes instead of 336")));
    const StateReport whole = withBytes(made<"planarCameraCreateDefault">(), 1079);
    EXPECT_THAT(whole.warnings(), ElementsAre(StartsWith("camera: mPrivate has 1079 bytes instead of 1080")));
    EXPECT_THAT(whole.text(), HasSubstr("  window          640 x 480 pixels\n"));
    EXPECT_THAT(report(camera::ViewState{}).text(),
                HasSubstr("  unknown         the fields hold too few or too many numbers\n"));
}

TEST(ShowWarnings, TellOfNumbersThatAreNotFinite) {
    EXPECT_THAT(warningsOf(made<"viewSetEye">(made<"viewCreateDefault">(), toVector({nan, 0, 0}))),
                ElementsAre("view: it holds numbers that are not finite"));
    EXPECT_THAT(warningsOf(made<"projectionSetNear">(made<"projectionCreateDefault">(), nan)),
                Contains("projection: it holds numbers that are not finite"));
    EXPECT_THAT(warningsOf(made<"surfaceUpdate">(made<"surfaceCreateDefault">(), 0, 0, 1, 1, 0.5, 0.5, 640, 480)),
                Contains("surface: its viewport matrices hold numbers that are not finite"));
}

} // namespace
} // namespace qel::host::test
