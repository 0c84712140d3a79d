// SPDX-License-Identifier: Apache-2.0
// The operations that answer with numbers: transforms, getters and utilities. Each compares its own answer.

#include <cstddef>
#include <vector>

#include "fuzz/differential/DifferentialSteps.h"

namespace camera::fuzz::differential {
namespace {

using oracle::ScreenPoint;
using oracle::Sized;

/// Whatever rounds does so in proportion to the size of the sums.
void compareAnswer(const Step& s, const api::VectorResult& got, const Sized& expected) {
    if (s.judge.certain) {
        const Real allowed = oracle::rounding * s.judge.condition * expected.size;
        compareVector(s.called.data(), got.mValue, expected.value, allowed);
    }
}

/// A point in whole pixels, and its depth.
void comparePixel(const Step& s, const api::VectorResult& got, const Sized& expected) {
    const auto& answer = got.mValue.mData;
    require(answer.size() == 3, "a vector has three values");
    if (s.judge.certain) {
        compareExactly("pixel x", answer[0], expected.value.x);
        compareExactly("pixel y", answer[1], expected.value.y);
        compare("depth of a pixel", answer[2], expected.value.z,
                oracle::rounding * s.judge.condition * (expected.size + std::abs(expected.value.z)));
    }
}

// A view alone goes through its matrices both ways; a camera comes back by the rotation and the eye.

template <Name name>
void worldVectorToView(Step& s) {
    const api::Vector v = s.takenVector();
    const Sized expected = s.camera.view.vectorToView(s.judge, real(v));
    compareAnswer(s, run<name>(s, v), expected);
}

template <Name name>
void worldPointToView(Step& s) {
    const api::Vector p = s.takenVector();
    const Sized expected = s.camera.view.pointToView(s.judge, real(p));
    compareAnswer(s, run<name>(s, p), expected);
}

void viewVectorThroughMatrix(Step& s) {
    const api::Vector v = s.takenVector();
    const Sized expected = oracle::View::vectorThrough(s.judge, s.camera.view.toWorld, real(v));
    compareAnswer(s, run<"viewTransformViewVectorToWorldVector">(s, v), expected);
}

void viewPointThroughMatrix(Step& s) {
    const api::Vector p = s.takenVector();
    const Sized expected = oracle::View::pointThrough(s.judge, s.camera.view.toWorld, real(p));
    compareAnswer(s, run<"viewTransformViewPointToWorldPoint">(s, p), expected);
}

void viewVectorToWorld(Step& s) {
    const api::Vector v = s.takenVector();
    const Sized expected = s.camera.view.vectorToWorld({real(v), length(real(v))});
    compareAnswer(s, run<"transformViewVectorToWorldVector">(s, v), expected);
}

void viewPointToWorld(Step& s) {
    const api::Vector p = s.takenVector();
    const Sized expected = s.camera.view.pointToWorld({real(p), length(real(p))});
    compareAnswer(s, run<"transformViewPointToWorldPoint">(s, p), expected);
}

// From and to the screen.

ScreenPoint screenPoint(Bytes& bytes) { return {pixel(bytes), pixel(bytes), depth(bytes)}; }
double depthOf(const ScreenPoint& point) { return static_cast<double>(point.depth); }

void screenPointToView(Step& s) {
    const ScreenPoint point = screenPoint(s.bytes);
    const Sized expected = s.camera.screenToView(s.judge, point);
    compareAnswer(s, run<"transformScreenPointToViewPoint">(s, point.x, point.y, depthOf(point)), expected);
}

void screenPointToWorld(Step& s) {
    const ScreenPoint point = screenPoint(s.bytes);
    const Sized expected = s.camera.view.pointToWorld(s.camera.screenToView(s.judge, point));
    compareAnswer(s, run<"transformScreenPointToWorldPoint">(s, point.x, point.y, depthOf(point)), expected);
}

/// From the second to the first.
Sized screenVector(Step& s, const ScreenPoint& first, const ScreenPoint& second) {
    const Sized a = s.camera.screenToView(s.judge, first), b = s.camera.screenToView(s.judge, second);
    return {a.value - b.value, a.size + b.size};
}

void screenVectorToView(Step& s) {
    const ScreenPoint a = screenPoint(s.bytes), b = screenPoint(s.bytes);
    const Sized expected = screenVector(s, a, b);
    compareAnswer(s, run<"transformScreenVectorToViewVector">(s, a.x, a.y, depthOf(a), b.x, b.y, depthOf(b)), expected);
}

void screenVectorToWorld(Step& s) {
    const ScreenPoint a = screenPoint(s.bytes), b = screenPoint(s.bytes);
    const Sized expected = s.camera.view.vectorToWorld(screenVector(s, a, b));
    compareAnswer(s, run<"transformScreenVectorToWorldVector">(s, a.x, a.y, depthOf(a), b.x, b.y, depthOf(b)),
                  expected);
}

void viewPointToScreen(Step& s) {
    const api::Vector p = s.takenVector();
    const Sized expected = s.camera.viewToScreen(s.judge, {real(p), length(real(p))});
    comparePixel(s, run<"transformViewPointToScreenPoint">(s, p), expected);
}

void worldPointToScreen(Step& s) {
    const api::Vector p = s.takenVector();
    const Sized expected = s.camera.viewToScreen(s.judge, s.camera.view.pointToView(s.judge, real(p)));
    comparePixel(s, run<"transformWorldPointToScreenPoint">(s, p), expected);
}

// The projection's getters.

void horizontalFoV(Step& s) {
    const oracle::Projection& p = s.camera.projection;
    const Real expected = p.angle(s.judge, p.l, p.r);
    const double got = run<"projectionGetHFoV">(s).mValue;
    if (s.judge.certain) {
        compare("horizontal field of view", got, expected,
                p.orthographic ? 0.0L : oracle::rounding * s.judge.condition);
    }
}

void verticalFoV(Step& s) {
    const oracle::Projection& p = s.camera.projection;
    const Real expected = p.angle(s.judge, p.b, p.t);
    const double got = run<"projectionGetVFoV">(s).mValue;
    if (s.judge.certain) {
        compare("vertical field of view", got, expected, p.orthographic ? 0.0L : oracle::rounding * s.judge.condition);
    }
}

void aspectRatio(Step& s) {
    const Real expected = s.camera.projection.aspect();
    compare("aspect ratio", run<"projectionGetAspectRatio">(s).mValue, expected, oracle::rounding * std::abs(expected));
}

// The utilities, which take anything.

void compareUtility(const api::MatrixResult& got, const oracle::Matrix4& expected) {
    require(got.mValue.mData.size() == 4, "a matrix has four rows");
    for (std::size_t r = 0; r < 4; ++r) {
        require(got.mValue.mData[r].size() == 4, "a row has four values");
    }
    compareMatrix("a utility's matrix", real(got.mValue), expected, 0.0L, oracle::rounding);
}

void makePerspectiveMatrix(Step& s) {
    const api::Frustum f = frustum(s.bytes);
    compareUtility(run<"utilsMakePerspectiveMatrix">(s, f), oracle::Projection::perspectiveMatrix(real(f)));
}

void makeOrthographicMatrix(Step& s) {
    const api::Frustum f = frustum(s.bytes);
    compareUtility(run<"utilsMakeOrthographicMatrix">(s, f), oracle::Projection::orthographicMatrix(real(f)));
}

/// Of any shape; the first row says how many columns count.
void convertMatrix(Step& s) {
    const std::size_t rows = 1 + s.bytes.byte() % 5, columns = s.bytes.byte() % 6;
    api::Matrix matrix;
    for (std::size_t r = 0; r < rows; ++r) {
        auto& row = matrix.mData.emplace_back();
        const std::size_t more = r != 0 && s.bytes.byte() % 4 == 1 ? 1 : 0;
        for (std::size_t k = 0; k < columns + more; ++k) {
            row.push_back(coordinate(s.bytes));
        }
    }
    const auto& got = run<"utilsConvertMatrixFromRowMajorToColumnMajor">(s, matrix).mValue.mData;
    require(got.size() == columns, "a transposed matrix has as many rows as the argument columns");
    for (std::size_t k = 0; k < columns; ++k) {
        require(got[k].size() == rows, "a transposed matrix has as many columns as the argument rows");
        for (std::size_t r = 0; r < rows; ++r) {
            compareExactly("a transposed matrix", got[k][r], matrix.mData[r][k]);
        }
    }
}

} // namespace

std::span<const Entry> questionSteps() {
    static constexpr std::array entries{
        Entry{"viewTransformWorldVectorToViewVector", worldVectorToView<"viewTransformWorldVectorToViewVector">,
              nothing},
        Entry{"viewTransformViewVectorToWorldVector", viewVectorThroughMatrix, nothing},
        Entry{"viewTransformWorldPointToViewPoint", worldPointToView<"viewTransformWorldPointToViewPoint">, nothing},
        Entry{"viewTransformViewPointToWorldPoint", viewPointThroughMatrix, nothing},
        Entry{"projectionGetHFoV", horizontalFoV, nothing},
        Entry{"projectionGetVFoV", verticalFoV, nothing},
        Entry{"projectionGetAspectRatio", aspectRatio, nothing},
        Entry{"utilsMakePerspectiveMatrix", makePerspectiveMatrix, nothing},
        Entry{"utilsMakeOrthographicMatrix", makeOrthographicMatrix, nothing},
        Entry{"utilsConvertMatrixFromRowMajorToColumnMajor", convertMatrix, nothing},
        Entry{"transformScreenPointToViewPoint", screenPointToView, nothing},
        Entry{"transformScreenPointToWorldPoint", screenPointToWorld, nothing},
        Entry{"transformViewPointToScreenPoint", viewPointToScreen, nothing},
        Entry{"transformWorldPointToScreenPoint", worldPointToScreen, nothing},
        Entry{"transformWorldPointToViewPoint", worldPointToView<"transformWorldPointToViewPoint">, nothing},
        Entry{"transformWorldVectorToViewVector", worldVectorToView<"transformWorldVectorToViewVector">, nothing},
        Entry{"transformViewPointToWorldPoint", viewPointToWorld, nothing},
        Entry{"transformViewVectorToWorldVector", viewVectorToWorld, nothing},
        Entry{"transformScreenVectorToViewVector", screenVectorToView, nothing},
        Entry{"transformScreenVectorToWorldVector", screenVectorToWorld, nothing},
    };
    return entries;
}

} // namespace camera::fuzz::differential
