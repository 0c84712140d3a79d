// SPDX-License-Identifier: Apache-2.0
#include "host/tour/Page.h"

#include <cstddef>
#include <cstdint>
#include <sstream>

#include "host/tour/CallRecorder.h"
#include "host/tour/PageStyle.h"

namespace qel::host {
namespace {

namespace camera = api::camera;

std::string escaped(std::string_view text) {
    std::string result;
    for (const char character : text) {
        switch (character) {
        case '&': result += "&amp;"; break;
        case '<': result += "&lt;"; break;
        case '>': result += "&gt;"; break;
        case '"': result += "&quot;"; break;
        default: result += character;
        }
    }
    return result;
}

std::string lengthOf(const std::string& blob) {
    return std::to_string(blob.size()).append(" bytes>").insert(0, 1, '<');
}

/// The record's text, with the length of each opaque blob in its place.
std::string readableText(const camera::PlanarCameraState& state) {
    camera::PlanarCameraState readable = state;
    readable.mPrivate = lengthOf(state.mPrivate);
    readable.mViewState.mPrivate = lengthOf(state.mViewState.mPrivate);
    readable.mProjectionState.mPrivate = lengthOf(state.mProjectionState.mPrivate);
    readable.mSurfaceState.mPrivate = lengthOf(state.mSurfaceState.mPrivate);
    std::ostringstream text;
    text << readable;
    return text.str();
}

std::string list(const std::vector<double>& values) {
    std::string text;
    for (const double value : values) {
        text += (text.empty() ? "" : ", ") + describe(value);
    }
    return text;
}

std::string range(double from, double to) { return describe(from) + " to " + describe(to); }

using Facts = std::vector<std::pair<std::string, std::string>>;

Facts digest(const camera::PlanarCameraState& state) {
    const auto& view = state.mViewState;
    const auto& projection = state.mProjectionState;
    const auto& frustum = projection.mFrustum;
    const auto& surface = state.mSurfaceState;
    const bool orthographic = projection.mProjectionType == camera::ProjectionType::ORTHOGRAPHIC;
    return {
        {"Eye", list(view.mEye.mData)},
        {"Direction", list(view.mDirection.mData)},
        {"Orientation", list(view.mOrientation.mData)},
        {"Projection", orthographic ? "orthographic" : "perspective"},
        {"Left, right", range(frustum.mLeft, frustum.mRight)},
        {"Bottom, top", range(frustum.mBottom, frustum.mTop)},
        {"Near, far", range(frustum.mNearDist, frustum.mFarDist)},
        {"Surface", describe(surface.mResolutionX) + " × " + describe(surface.mResolutionY) + " pixels"},
    };
}

void writeFacts(std::ostream& out, std::string_view kind, const Facts& facts) {
    out << "<dl class=\"" << kind << "\">";
    for (const auto& [name, value] : facts) {
        const bool grouped = kind == "facts";
        out << (grouped ? "<div>" : "") << "<dt>" << escaped(name) << "</dt><dd>" << escaped(value) << "</dd>"
            << (grouped ? "</div>" : "");
    }
    out << "</dl>\n";
}

void writeShot(std::ostream& out, const Shot& shot, std::size_t number) {
    out << "<figure id=\"picture-" << number << "\">\n<a href=\"" << escaped(shot.file) << "\"><img src=\""
        << escaped(shot.file) << "\" alt=\"" << escaped(shot.title) << "\" width=\"" << shot.width << "\" height=\""
        << shot.height << "\" loading=\"lazy\"></a>\n<figcaption>\n<h3><span>" << number << "</span>"
        << escaped(shot.title) << "</h3>\n<p>" << escaped(shot.text) << "</p>\n";
    if (!shot.calls.empty()) {
        out << "<ul class=\"calls\">";
        for (const std::string& call : shot.calls) {
            out << "<li><code>" << escaped(call) << "</code></li>";
        }
        out << "</ul>\n";
    }
    writeFacts(out, "state", digest(shot.camera));
    out << "<details><summary>The whole record</summary><pre>" << escaped(readableText(shot.camera))
        << "</pre></details>\n</figcaption>\n</figure>\n";
}

/// The number of a chapter's first picture names its place on the page.
bool beginsChapter(const std::vector<Shot>& shots, std::size_t index) {
    return index == 0 || shots[index].chapter != shots[index - 1].chapter;
}

} // namespace

std::string makePage(const PageHead& head, const std::vector<Shot>& shots) {
    std::ostringstream out;
    out << "<!DOCTYPE html>\n<html lang=\"en\">\n<head>\n<meta charset=\"utf-8\">\n"
        << pageGenerator << "\n<meta name=\"viewport\" content=\"width=device-width, initial-scale=1\">\n<title>"
        << escaped(head.title) << "</title>\n<style>" << pageStyle << "</style>\n</head>\n<body>\n<header>\n<h1>"
        << escaped(head.title) << "</h1>\n<p>" << escaped(head.text) << "</p>\n";
    writeFacts(out, "facts", head.facts);
    out << "<nav>";
    for (std::size_t i = 0; i < shots.size(); ++i) {
        if (beginsChapter(shots, i)) {
            out << "<a href=\"#chapter-" << i + 1 << "\">" << escaped(shots[i].chapter) << "</a>";
        }
    }
    out << "</nav>\n</header>\n<main>\n";
    for (std::size_t i = 0; i < shots.size(); ++i) {
        if (beginsChapter(shots, i)) {
            out << (i == 0 ? "" : "</div>\n") << "<h2 id=\"chapter-" << i + 1 << "\">" << escaped(shots[i].chapter)
                << "</h2>\n<div class=\"grid\">\n";
        }
        writeShot(out, shots[i], i + 1);
    }
    out << (shots.empty() ? "" : "</div>\n")
        << "</main>\n<footer>Every picture is drawn with the matrices and the viewport of the state record below it, "
           "and with nothing else of the camera.</footer>\n</body>\n</html>\n";
    return out.str();
}

} // namespace qel::host
