// SPDX-License-Identifier: Apache-2.0
#include "host/tour/Tour.h"

#include <cstdio>
#include <fstream>
#include <stdexcept>
#include <string>

#include <qel/host/ComponentLoader.h>

#include "host/render/OffscreenContext.h"
#include "host/render/Picture.h"
#include "host/render/Renderer.h"
#include "host/scene/Mesh.h"
#include "host/tour/OutputFolder.h"
#include "host/tour/Stage.h"
#include "host/tour/TourSteps.h"

namespace qel::host {
namespace {

std::string fileName(std::size_t number, std::string_view name) {
    return (number < 10 ? "0" : "") + std::to_string(number) + "-" + std::string(name) + ".png";
}

void writeText(const std::filesystem::path& file, const std::string& text) {
    std::ofstream out(file, std::ios::binary);
    out << text;
    out.close();
    if (!out) {
        throw OutputError(file.string() + ": cannot be written");
    }
}

/// "CameraAPI 0.3.10", in the component's own words.
std::string identity(api::base::BaseAPIIf& component) {
    api::base::StringResult name;
    api::base::StringResult version;
    component.getComponentName(name);
    component.getComponentVersion(version);
    for (const auto& result : {name, version}) {
        if (result.mResult.mError != 0) {
            throw ServiceError("the component does not tell its identity: " + result.mResult.mMessage);
        }
    }
    return name.mValue + " " + version.mValue;
}

PageHead makeHead(const TourOptions& options, const Mesh& mesh, const std::string& component) {
    const Vec3 size = mesh.box.size();
    const std::string model = options.model.filename().string();
    return {"A camera's tour around " + model,
            "One camera goes through the operations of the component, step by step. Each picture names the operations "
            "that led to it and the camera that it was drawn with.",
            {{"Model", model},
             {"Triangles", std::to_string(mesh.triangles.size() / 3)},
             {"Size", describe(size[0]) + " × " + describe(size[1]) + " × " + describe(size[2])},
             {"Window", std::to_string(options.width) + " × " + std::to_string(options.height)},
             {"Component", component}}};
}

} // namespace

std::vector<Shot> runTour(const TourOptions& options, const Progress& progress) {
    if (options.width < smallestSide || options.width > largestSide || options.height < smallestSide ||
        options.height > largestSide) {
        throw std::runtime_error("a window has sides of " + std::to_string(smallestSide) + " to " +
                                 std::to_string(largestSide) + " pixels, not " + std::to_string(options.width) + "x" +
                                 std::to_string(options.height));
    }
    const Mesh mesh = loadMesh(options.model);
    const ComponentLoader component(options.module);
    const OffscreenContext context;
    Renderer renderer(mesh);
    OutputFolder output(options.output);

    Stage stage(component.camera(), renderer, mesh.box, options.width, options.height);
    const std::vector<Step> steps = tourSteps();
    std::vector<Shot> shots;
    for (const Step& step : steps) {
        const std::size_t number = shots.size() + 1;
        progress(number, steps.size(), step.title);
        stage.strokes.clear();
        step.act(stage);
        const Picture picture = renderer.draw(stage.camera, stage.strokes);
        shots.push_back({std::string(step.chapter), fileName(number, step.name), std::string(step.title),
                         std::string(step.text), stage.service.takeCalls(), stage.camera, picture.width,
                         picture.height});
        writePng(picture, output.folder() / shots.back().file);
    }
    writeText(output.folder() / "index.html", makePage(makeHead(options, mesh, identity(component.base())), shots));
    output.publish();
    return shots;
}

} // namespace qel::host
