// SPDX-License-Identifier: Apache-2.0
#include <benchmark/benchmark.h>
#include <osg/Matrixd>
#include <osg/Quat>
#include <osg/Vec3d>
#include <osg/ref_ptr>
#include <osgGA/TrackballManipulator>

#include "bench/Benchmarks.h"
#include "bench/Scene.h"

namespace qel::bench {

namespace {

/// A trackball that is turned without a window and its events.
class Trackball final : public osgGA::TrackballManipulator {
public:
    void turn(float fromX, float fromY, float toX, float toY) { rotateTrackball(fromX, fromY, toX, toY, 1.0F); }
};

void lookAt(benchmark::State& state) {
    osg::Matrixd view;
    osg::Matrixd inverse;
    osg::Quat orientation;
    for (auto _ : state) {
        view.makeLookAt(toType<osg::Vec3d>(scene::eye), toType<osg::Vec3d>(scene::target),
                        toType<osg::Vec3d>(scene::up));
        inverse.invert(view);
        orientation = inverse.getRotate();
        benchmark::DoNotOptimize(&view);
        benchmark::DoNotOptimize(&inverse);
        benchmark::DoNotOptimize(&orientation);
        benchmark::ClobberMemory();
    }
}

void trackball(benchmark::State& state) {
    const osg::ref_ptr<Trackball> ball = new Trackball;
    ball->setTransformation(toType<osg::Vec3d>(scene::eye), toType<osg::Vec3d>(scene::target),
                            toType<osg::Vec3d>(scene::up));
    osg::Matrixd view;
    for (auto _ : state) {
        ball->turn(-0.375F, -0.375F, 0.375F, 0.375F);
        view = ball->getInverseMatrix();
        benchmark::DoNotOptimize(&view);
        benchmark::ClobberMemory();
    }
}

} // namespace

void registerOpenSceneGraph() {
    benchmark::RegisterBenchmark("peer/openscenegraph/look at, inverse, quaternion", lookAt);
    benchmark::RegisterBenchmark("peer/openscenegraph/trackball and inverse", trackball);
}

} // namespace qel::bench
