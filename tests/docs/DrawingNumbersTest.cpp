// SPDX-License-Identifier: Apache-2.0
// The numbers that the drawings of the pages carry, against what the component computes.
#include <cmath>
#include <fstream>
#include <iterator>
#include <map>
#include <numbers>
#include <regex>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include <qel/api/camera/CameraAPIIf.h>
#include <qel/host/ComponentLoader.h>

namespace qel::api::camera::test {
namespace {

using Numbers = std::vector<double>;
using Element = std::map<std::string, Numbers>; // the attributes data-... of one element, without "data-"

std::vector<Element> elementsOf(const std::string& drawing) {
    std::ifstream file(CAMERA_DRAWINGS "/" + drawing + ".svg");
    const std::string text(std::istreambuf_iterator<char>(file), {});
    if (text.empty()) {
        throw std::runtime_error("there is no drawing " + drawing);
    }
    static const std::regex element("<[^>]*>");
    static const std::regex attribute("data-([a-z-]+)=\"([^\"]*)\"");
    std::vector<Element> found;
    for (std::sregex_iterator it(text.begin(), text.end(), element), end; it != end; ++it) {
        const std::string one = it->str();
        Element numbers;
        for (std::sregex_iterator at(one.begin(), one.end(), attribute); at != end; ++at) {
            std::istringstream values((*at)[2]);
            numbers[(*at)[1]].assign(std::istream_iterator<double>(values), {});
        }
        if (!numbers.empty()) {
            found.push_back(numbers);
        }
    }
    return found;
}

Vector vectorOf(const Numbers& values) {
    Vector vector;
    vector.mData = values;
    return vector;
}

class Drawing : public ::testing::Test {
protected:
    CameraAPIIf& service() { return mComponent.camera(); }

    void setProjection(const ProjectionState& projection) {
        service().planarCameraSetProjection(mCamera, mCamera.mValue, projection);
    }
    Numbers screenOf(const Numbers& viewPoint) {
        VectorResult result;
        service().transformViewPointToScreenPoint(result, mCamera.mValue, vectorOf(viewPoint));
        return result.mValue.mData;
    }

    void SetUp() override { service().planarCameraCreateDefault(mCamera); }

    qel::host::ComponentLoader mComponent{CAMERA_MODULE};
    PlanarCameraStateResult mCamera;
};

TEST_F(Drawing, ViewFrameHasTheAxesOfALookat) {
    const auto elements = elementsOf("view-frame");
    ASSERT_EQ(elements.size(), 3U) << "right, up, backwards";
    for (std::size_t axis = 0; axis < 3; ++axis) {
        const Element& element = elements[axis];
        ViewStateResult view;
        service().viewCreate(view, vectorOf(element.at("eye")), vectorOf(element.at("lookat")),
                             vectorOf(element.at("up")));
        for (std::size_t row = 0; row < 3; ++row) {
            EXPECT_NEAR(view.mValue.mViewTransformMatrix.mData[row][axis], element.at("axis")[row], 1e-12);
        }
    }
}

TEST_F(Drawing, FrustumHasTheDepthsOfItsPoints) {
    ProjectionStateResult projection;
    service().projectionCreateDefault(projection);
    service().projectionUpdatePerspective(projection, projection.mValue, std::numbers::pi / 4, 4.0 / 3, 1.0, 3.0);
    setProjection(projection.mValue);
    EXPECT_NEAR(projection.mValue.mFrustum.mTop, 0.414214, 1e-6) << "as the drawing's label says";
    const auto& matrix = projection.mValue.mProjectionMatrix.mData;

    const auto elements = elementsOf("frustum");
    ASSERT_EQ(elements.size(), 4U);
    for (const Element& element : elements) {
        const double z = element.at("view")[2];
        EXPECT_NEAR(screenOf(element.at("view"))[2], element.at("depth")[0], 1e-12) << z;
        const double clipZ = matrix[2][2] * z + matrix[2][3];
        const double clipW = matrix[3][2] * z + matrix[3][3];
        EXPECT_NEAR(clipZ / clipW, element.at("clip")[0], 1e-12) << z;
    }
}

TEST_F(Drawing, ScreenHasThePixelsOfItsPoints) {
    SurfaceStateResult surface;
    service().surfaceCreate(surface, 0.25, 0.25, 0.5, 0.5, 0, 1, 640, 480);
    service().planarCameraSetSurface(mCamera, mCamera.mValue, surface.mValue);
    // With an orthographic frustum from -1 to 1, view space is normalised device space.
    ProjectionStateResult projection;
    service().projectionCreateDefault(projection);
    service().projectionUpdateOrthographic(projection, projection.mValue, 2, 2, 1, 3);
    setProjection(projection.mValue);

    const auto elements = elementsOf("screen");
    ASSERT_EQ(elements.size(), 3U);
    for (const Element& element : elements) {
        const Numbers& device = element.at("device");
        const Numbers pixel = screenOf({device[0], device[1], -2});
        EXPECT_EQ(pixel[0], element.at("pixel")[0]);
        EXPECT_EQ(pixel[1], element.at("pixel")[1]);
    }
}

TEST_F(Drawing, ArcballTurnsByTheAnglesOfItsDrags) {
    service().planarCameraUpdateWindowSize(mCamera, mCamera.mValue, 480, 480);
    service().planarCameraTranslateInWorldSpace(mCamera, mCamera.mValue, vectorOf({0, 0, 5}));
    const auto elements = elementsOf("arcball");
    ASSERT_EQ(elements.size(), 2U);
    for (const Element& element : elements) {
        const auto pixel = [&](const char* name, std::size_t i) {
            return static_cast<std::int32_t>(element.at(name)[i]);
        };
        PlanarCameraStateResult turned;
        service().planarCameraArcballRotation(turned, mCamera.mValue, vectorOf({0, 0, 0}), pixel("drag-from", 0),
                                              pixel("drag-from", 1), pixel("drag-to", 0), pixel("drag-to", 1));
        // A drag from the middle turns about an axis that is perpendicular to the arm from pivot to eye.
        const double cosine = turned.mValue.mViewState.mEye.mData[2] / 5;
        EXPECT_NEAR(std::acos(cosine), element.at("turn")[0], 1e-9);
    }
}

} // namespace
} // namespace qel::api::camera::test
