// SPDX-License-Identifier: Apache-2.0
// The operations that answer with numbers: transforms, getters and utilities. Each compares its own answer.

#include <cstddef>
#include <vector>

#include "fuzz/Written.h"
#include "fuzz/differential/DifferentialSteps.h"

namespace camera::fuzz::differential {
namespace {

using oracle::ScreenPoint;
using oracle::Sized;

/// Whatever rounds does so in proportion to the size of the sums.
void compareAnswer(const Step& s, const api::VectorResult& got, const Sized& expected) {
    requireWritten(got.mValue);
    if (s.judge.certain) {
        const Real allowed = oracle::rounding * s.judge.condition * expected.size;
        const oracle::Vector answer = real(got.mValue);
        compare(s.called.data(), answer.x, expected.value.x, allowed);
        compare(s.called.data(), answer.y, expected.value.y, allowed);
        compare(s.called.data(), answer.z, expected.value.z, allowed);
    }
}

/// A point in whole pixels, and its depth.
void comparePixel(const Step& s, const api::VectorResult& got, const Sized& expected) {
    requireWritten(got.mValue);
    if (s.judge.certain) {
        const oracle::Vector answer = real(got.mValue);
        compareExactly("pixel x", answer.x, expected.value.x);
        compareExactly("pixel y", answer.y, expected.value.y);
        compare("depth of a pixel", answer.z, expected.value.z,
                oracle::rounding * s.judge.condition * (expected.size + std::abs(expected.value.z)));
    }
}

/// An operation on one vector; `second` does the same by the second implementation.
template <class Second>
constexpr auto onVector = [](Step& s, auto run) {
    const api::Vector v = s.takenVector();
    const Sized expected = Second()(s, Sized{real(v), length(real(v))});
    compareAnswer(s, run.ask(v), expected);
};

using VectorToView = decltype([](Step& s, const Sized& v) { return s.camera.view.vectorToView(s.judge, v.value); });
using PointToView = decltype([](Step& s, const Sized& p) { return s.camera.view.pointToView(s.judge, p.value); });

// A view alone goes through its matrices both ways; a camera comes back by the rotation and the eye.
using VectorThroughMatrix = decltype([](Step& s, const Sized& v) {
    return oracle::View::vectorThrough(s.judge, s.camera.view.toWorld, v.value);
});
using PointThroughMatrix = decltype([](Step& s, const Sized& p) {
    return oracle::View::pointThrough(s.judge, s.camera.view.toWorld, p.value);
});
using VectorToWorld = decltype([](Step& s, const Sized& v) { return s.camera.view.vectorToWorld(v); });
using PointToWorld = decltype([](Step& s, const Sized& p) { return s.camera.view.pointToWorld(p); });

// From and to the screen.

ScreenPoint screenPoint(Bytes& bytes) { return {pixel(bytes), pixel(bytes), depth(bytes)}; }
double depthOf(const ScreenPoint& point) { return static_cast<double>(point.depth); }

template <bool toWorld>
constexpr auto screenPointTo = [](Step& s, auto run) {
    const ScreenPoint point = screenPoint(s.bytes);
    const Sized inView = s.camera.screenToView(s.judge, point);
    const Sized expected = toWorld ? s.camera.view.pointToWorld(inView) : inView;
    compareAnswer(s, run.ask(point.x, point.y, depthOf(point)), expected);
};

/// From the second to the first.
template <bool toWorld>
constexpr auto screenVectorTo = [](Step& s, auto run) {
    const ScreenPoint first = screenPoint(s.bytes), second = screenPoint(s.bytes);
    const Sized a = s.camera.screenToView(s.judge, first), b = s.camera.screenToView(s.judge, second);
    const Sized inView{a.value - b.value, a.size + b.size};
    const Sized expected = toWorld ? s.camera.view.vectorToWorld(inView) : inView;
    compareAnswer(s, run.ask(first.x, first.y, depthOf(first), second.x, second.y, depthOf(second)), expected);
};

template <bool fromWorld>
constexpr auto pointToScreen = [](Step& s, auto run) {
    const api::Vector p = s.takenVector();
    const Sized inView = fromWorld ? s.camera.view.pointToView(s.judge, real(p)) : Sized{real(p), length(real(p))};
    const Sized expected = s.camera.viewToScreen(s.judge, inView);
    comparePixel(s, run.ask(p), expected);
};

// The projection's getters.

template <Real oracle::Projection::*low, Real oracle::Projection::*high>
constexpr auto fieldOfView = [](Step& s, auto run) {
    const oracle::Projection& p = s.camera.projection;
    const Real expected = p.angle(s.judge, p.*low, p.*high);
    const double got = run.ask().mValue;
    if (s.judge.certain) {
        compare("field of view", got, expected, p.orthographic ? 0.0L : oracle::rounding * s.judge.condition);
    }
};

constexpr auto aspectRatio = [](Step& s, auto run) {
    const Real expected = s.camera.projection.aspect();
    compare("aspect ratio", run.ask().mValue, expected, oracle::rounding * std::abs(expected));
};

// The utilities, which take anything.

template <oracle::Matrix4 (*formula)(const std::array<Real, 6>&)>
constexpr auto makeMatrix = [](Step& s, auto run) {
    const api::Frustum f = frustum(s.bytes);
    const api::Matrix& got = run.ask(f).mValue;
    requireWritten(got);
    compareMatrix("a utility's matrix", real(got), formula(real(f)), 0.0L, oracle::rounding);
};

/// Of any shape; the first row says how many columns count.
constexpr auto convertMatrix = [](Step& s, auto run) {
    const std::size_t rows = 1 + s.bytes.byte() % 5, columns = s.bytes.byte() % 6;
    api::Matrix matrix;
    for (std::size_t r = 0; r < rows; ++r) {
        auto& row = matrix.mData.emplace_back();
        const std::size_t more = r != 0 && s.bytes.byte() % 4 == 1 ? 1 : 0;
        for (std::size_t k = 0; k < columns + more; ++k) {
            row.push_back(coordinate(s.bytes));
        }
    }
    const auto& got = run.ask(matrix).mValue.mData;
    require(got.size() == columns, "a transposed matrix has as many rows as the argument columns");
    for (std::size_t k = 0; k < columns; ++k) {
        require(got[k].size() == rows, "a transposed matrix has as many columns as the argument rows");
        for (std::size_t r = 0; r < rows; ++r) {
            compareExactly("a transposed matrix", got[k][r], matrix.mData[r][k]);
        }
    }
};

} // namespace

std::span<const Entry> questionSteps() {
    using oracle::Projection;
    static constexpr std::array entries{
        entry<"viewTransformWorldVectorToViewVector">(nothing, onVector<VectorToView>),
        entry<"viewTransformViewVectorToWorldVector">(nothing, onVector<VectorThroughMatrix>),
        entry<"viewTransformWorldPointToViewPoint">(nothing, onVector<PointToView>),
        entry<"viewTransformViewPointToWorldPoint">(nothing, onVector<PointThroughMatrix>),
        entry<"projectionGetHFoV">(nothing, fieldOfView<&Projection::l, &Projection::r>),
        entry<"projectionGetVFoV">(nothing, fieldOfView<&Projection::b, &Projection::t>),
        entry<"projectionGetAspectRatio">(nothing, aspectRatio),
        entry<"utilsMakePerspectiveMatrix">(nothing, makeMatrix<Projection::perspectiveMatrix>),
        entry<"utilsMakeOrthographicMatrix">(nothing, makeMatrix<Projection::orthographicMatrix>),
        entry<"utilsConvertMatrixFromRowMajorToColumnMajor">(nothing, convertMatrix),
        entry<"transformScreenPointToViewPoint">(nothing, screenPointTo<false>),
        entry<"transformScreenPointToWorldPoint">(nothing, screenPointTo<true>),
        entry<"transformViewPointToScreenPoint">(nothing, pointToScreen<false>),
        entry<"transformWorldPointToScreenPoint">(nothing, pointToScreen<true>),
        entry<"transformWorldPointToViewPoint">(nothing, onVector<PointToView>),
        entry<"transformWorldVectorToViewVector">(nothing, onVector<VectorToView>),
        entry<"transformViewPointToWorldPoint">(nothing, onVector<PointToWorld>),
        entry<"transformViewVectorToWorldVector">(nothing, onVector<VectorToWorld>),
        entry<"transformScreenVectorToViewVector">(nothing, screenVectorTo<false>),
        entry<"transformScreenVectorToWorldVector">(nothing, screenVectorTo<true>),
    };
    return entries;
}

} // namespace camera::fuzz::differential
