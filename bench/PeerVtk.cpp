// SPDX-License-Identifier: Apache-2.0
#include <array>

#include <benchmark/benchmark.h>
#include <vtkCamera.h>
#include <vtkGenericOpenGLRenderWindow.h>
#include <vtkMatrix4x4.h>
#include <vtkNew.h>
#include <vtkRenderer.h>

#include "bench/Benchmarks.h"
#include "bench/Scene.h"

namespace qel::bench {

namespace {

/// A renderer with a window of which nothing is ever shown.
struct View {
    vtkNew<vtkGenericOpenGLRenderWindow> window;
    vtkNew<vtkRenderer> renderer;
    vtkCamera* camera;

    View() : camera(renderer->GetActiveCamera()) {
        window->SetSize(640, 480);
        window->AddRenderer(renderer);
        camera->SetPosition(scene::eye.data());
        camera->SetFocalPoint(scene::target.data());
        camera->SetViewUp(scene::up.data());
        camera->SetViewAngle(scene::verticalFoV * 57.29577951308232);
        camera->SetClippingRange(scene::nearDist, scene::farDist);
    }
};

void lookAt(benchmark::State& state) {
    const View view;
    std::array<double, 3> eye = scene::eye;
    for (auto _ : state) {
        eye[0] = -eye[0]; // what has not changed costs VTK nothing
        view.camera->SetPosition(eye.data());
        view.camera->SetFocalPoint(scene::target.data());
        view.camera->SetViewUp(scene::up.data());
        benchmark::DoNotOptimize(view.camera->GetViewTransformMatrix());
        benchmark::ClobberMemory();
    }
}

void resetCamera(benchmark::State& state) {
    const View view;
    std::array<double, 6> bounds = scene::bounds;
    for (auto _ : state) {
        bounds[1] = -bounds[1] + 3.0; // 1 and 2: a box that has been fitted costs VTK nothing
        view.renderer->ResetCamera(bounds.data());
        benchmark::ClobberMemory();
    }
}

void turn(benchmark::State& state) {
    const View view;
    double degrees = 5.0;
    for (auto _ : state) {
        view.camera->Azimuth(degrees);
        view.camera->Elevation(degrees / 2.0);
        view.camera->OrthogonalizeViewUp();
        degrees = -degrees; // and back, so that the camera stays where it is
        benchmark::ClobberMemory();
    }
}

void move(benchmark::State& state) {
    const View view;
    std::array<double, 3> eye = scene::eye;
    for (auto _ : state) {
        eye[0] = -eye[0];
        view.camera->SetPosition(eye.data());
        benchmark::ClobberMemory();
    }
}

/// The first point after the camera has moved, or one of many for one camera: VTK keeps the matrices meanwhile.
void worldToDisplay(benchmark::State& state, bool moves) {
    const View view;
    std::array<double, 3> point = scene::point;
    std::array<double, 3> display{};
    std::array<double, 3> eye = scene::eye;
    for (auto _ : state) {
        if (moves) {
            eye[0] = -eye[0];
            view.camera->SetPosition(eye.data());
        }
        view.renderer->SetWorldPoint(point[0], point[1], point[2], 1.0);
        view.renderer->WorldToDisplay();
        view.renderer->GetDisplayPoint(display.data());
        benchmark::DoNotOptimize(display.data());
        benchmark::ClobberMemory();
    }
}

} // namespace

void registerVtk() {
    benchmark::RegisterBenchmark("peer/vtk/look at", lookAt);
    benchmark::RegisterBenchmark("peer/vtk/reset camera", resetCamera);
    benchmark::RegisterBenchmark("peer/vtk/azimuth, elevation, orthogonalise", turn);
    benchmark::RegisterBenchmark("peer/vtk/move, world to display", worldToDisplay, true);
    benchmark::RegisterBenchmark("peer/vtk/move", move);
    benchmark::RegisterBenchmark("peer/vtk/world to display", worldToDisplay, false);
}

} // namespace qel::bench
