// SPDX-License-Identifier: Apache-2.0
//
//   exchange write PROTOCOL FILE   writes records for a client in another language to look at and change
//   exchange check PROTOCOL FILE   reads what the client made of them; exit code 1 where it is not what was agreed
//
// client.py and client.js know the same records and the same changes. PROTOCOL is binary, compact or json.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <fstream>
#include <iostream>
#include <iterator>
#include <memory>
#include <stdexcept>
#include <string>
#include <tuple>

#include <qel/api/camera/CameraAPIIf.h>

#include "fuzz/RecordKinds.h"

namespace {

namespace base = qel::api::base;
namespace camera = qel::api::camera;
using ::apache::thrift::protocol::TProtocol;
using ::apache::thrift::transport::TMemoryBuffer;

struct Records {
    camera::PlanarCameraStateResult camera;
    camera::VectorResult vector;
    camera::MatrixResult matrix;
    camera::DoubleResult number;
    base::StringResult text;
    base::ServiceResult result;
    camera::ViewStateResult view;

    [[nodiscard]] auto all() const { return std::tie(camera, vector, matrix, number, text, result, view); }
};

Records original() {
    Records r;
    auto& view = r.camera.mValue.mViewState;
    for (int row = 0; row < 4; ++row) {
        view.mViewTransformMatrix.mData.emplace_back();
        for (int column = 0; column < 4; ++column) {
            view.mViewTransformMatrix.mData.back().push_back(10.0 * row + column + 0.5);
        }
    }
    view.mViewMatrix.mData = {{1.5}, {}, {2.5, -0.0}};
    view.mEye.mData = {1, 2.5, -3};
    view.mDirection.mData = {0, 0, -1};
    view.mOrientation.mData = {0, 0, 0, 1};
    for (int i = 0; i < 256; ++i) {
        view.mPrivate += static_cast<char>(i);
    }
    auto& projection = r.camera.mValue.mProjectionState;
    projection.mProjectionMatrix.mData = {{1e300, 5e-324, 0.1}};
    projection.mProjectionType = camera::ProjectionType::ORTHOGRAPHIC;
    projection.mFrustum.mLeft = -1;
    projection.mFrustum.mRight = 1;
    projection.mFrustum.mBottom = -0.75;
    projection.mFrustum.mTop = 0.75;
    projection.mFrustum.mNearDist = 0.1;
    projection.mFrustum.mFarDist = 1000;
    auto& surface = r.camera.mValue.mSurfaceState;
    surface.mViewport.mY = 0.25;
    surface.mViewport.mWidth = 1;
    surface.mViewport.mHeight = 0.5;
    surface.mViewport.mDepthMax = 1;
    surface.mResolutionX = 1920;
    surface.mResolutionY = 1080;
    surface.mPrivate = std::string("\0\xff", 2);
    for (int i = 0; i < 1080; ++i) {
        r.camera.mValue.mPrivate += static_cast<char>(i * 7 % 256);
    }
    r.camera.mResult.__set_mError(-1);
    r.camera.mResult.__set_mMessage("camera \"7\"\n\xc3\xa4");

    r.vector.mValue.mData = {0.1, 1e20};
    r.vector.mResult.mError = 4;
    r.matrix.mResult.__set_mMessage("");
    r.number.mValue = 0.7853981633974483;
    r.text.mValue = "CameraAPI";
    r.result.mError = 2147483647;
    return r;
}

Records changed() {
    Records r = original();
    auto& camera = r.camera.mValue;
    camera.mViewState.mEye.mData = {4, 5.5, -6};
    camera.mViewState.mViewMatrix.mData.push_back({9});
    camera.mProjectionState.mProjectionType = camera::ProjectionType::PERSPECTIVE;
    camera.mProjectionState.mFrustum.mFarDist = 2000.25;
    camera.mSurfaceState.mResolutionX = 640;
    camera.mPrivate.assign(camera.mPrivate.rbegin(), camera.mPrivate.rend());
    r.camera.mResult.__set_mError(4);
    r.camera.mResult.__set_mMessage("ge\xc3\xa4ndert");
    r.vector.mResult.__set_mMessage("now set");
    r.matrix.mResult = base::ServiceResult();
    r.number.mValue *= 2;
    r.text.mValue.clear();
    r.result.mError = -2147483647 - 1;
    r.view.mValue.mPrivate = std::string(1, '\0');
    return r;
}

std::shared_ptr<TProtocol> protocolOver(const std::string& name, const std::shared_ptr<TMemoryBuffer>& buffer) {
    const auto found = std::find(::camera::fuzz::protocolNames.begin(), ::camera::fuzz::protocolNames.end(), name);
    if (found == ::camera::fuzz::protocolNames.end()) {
        throw std::invalid_argument("no protocol is called " + name);
    }
    return ::camera::fuzz::makeProtocol(static_cast<std::size_t>(found - ::camera::fuzz::protocolNames.begin()),
                                        buffer);
}

void write(const std::string& protocolName, const std::string& file) {
    auto buffer = std::make_shared<TMemoryBuffer>();
    const auto protocol = protocolOver(protocolName, buffer);
    const Records records = original();
    std::apply([&](const auto&... record) { (record.write(protocol.get()), ...); }, records.all());
    std::ofstream(file, std::ios::binary) << buffer->getBufferAsString();
}

bool check(const std::string& protocolName, const std::string& file) {
    std::ifstream in(file, std::ios::binary);
    const std::string bytes(std::istreambuf_iterator<char>(in), {});
    const auto buffer = qel::api::bufferOf(bytes);
    const auto protocol = protocolOver(protocolName, buffer);

    bool good = true;
    const auto compare = [&]<class Record>(const Record& wanted) {
        Record came;
        came.read(protocol.get());
        if (!(wanted == came)) {
            good = false;
            std::cerr << "wanted " << wanted << "\ncame   " << came << '\n';
        }
    };
    const Records records = changed();
    std::apply([&](const auto&... wanted) { (compare(wanted), ...); }, records.all());
    if (buffer->available_read() != 0) {
        good = false;
        std::cerr << buffer->available_read() << " bytes too many\n";
    }
    return good;
}

} // namespace

int main(int count, char** arguments) {
    try {
        const std::string what = count == 4 ? arguments[1] : "";
        if (what == "write") {
            write(arguments[2], arguments[3]);
            return 0;
        }
        if (what == "check") {
            return check(arguments[2], arguments[3]) ? 0 : 1;
        }
        std::cerr << "usage: exchange write|check binary|compact|json FILE\n";
    } catch (const std::exception& exception) {
        std::cerr << exception.what() << '\n';
    }
    return 2;
}
