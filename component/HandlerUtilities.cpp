// SPDX-License-Identifier: Apache-2.0
#include "component/CameraLibraryHandler.h"

#include <algorithm>
#include <cstddef>
#include <stdexcept>
#include <string>
#include <vector>

#include "component/Facade.h"
#include "component/ReadArguments.h"
#include "math/Pipeline.h"

namespace qel::api::camera {

using namespace component;

namespace {

using NestedList = std::vector<std::vector<double>>;

/// The first row says how many columns there are; surplus values of the others are ignored, missing ones are an error.
std::size_t columnsOf(const NestedList& matrix) {
    if (matrix.empty()) {
        throw std::invalid_argument("argument matrix: expected at least 1 row, got 0");
    }
    const std::size_t columns = matrix.front().size();
    for (const std::vector<double>& row : matrix) {
        if (row.size() < columns) {
            throw std::invalid_argument("argument matrix: expected " + std::to_string(columns) +
                                        " values in a row, got " + std::to_string(row.size()));
        }
    }
    return columns;
}

bool hasShape(const NestedList& list, const std::size_t rows, const std::size_t columns) {
    return list.size() == rows &&
           std::ranges::all_of(list, [&](const std::vector<double>& row) { return row.size() == columns; });
}

/// Swaps rows and columns of nested lists of any shape. `to` may be `from`. It is left alone where memory runs out.
void transpose(const NestedList& from, NestedList& to) {
    const std::size_t columns = columnsOf(from);
    NestedList fresh;
    const bool inPlace = &to != &from && hasShape(to, columns, from.size());
    if (!inPlace) {
        fresh.resize(columns);
        for (std::vector<double>& row : fresh) {
            row.resize(from.size());
        }
    }
    NestedList& target = inPlace ? to : fresh;
    for (std::size_t j = 0; j < columns; ++j) {
        for (std::size_t i = 0; i < from.size(); ++i) {
            target[j][i] = from[i][j];
        }
    }
    if (!inPlace) {
        to.swap(fresh);
    }
}

} // namespace

void CameraLibraryHandler::utilsMakePerspectiveMatrix(MatrixResult& _return, const Frustum& frustum) {
    answer(_return, Failure::ofCall(__func__, CameraAPIError::CAMERA_API_ERROR_CALL_FAILED),
           [&] { return math::makeFrustum(toFrustum(frustum)); });
}

void CameraLibraryHandler::utilsMakeOrthographicMatrix(MatrixResult& _return, const Frustum& frustum) {
    answer(_return, Failure::ofCall(__func__, CameraAPIError::CAMERA_API_ERROR_CALL_FAILED),
           [&] { return math::makeOrtho(toFrustum(frustum)); });
}

void CameraLibraryHandler::utilsConvertMatrixFromRowMajorToColumnMajor(MatrixResult& _return, const Matrix& matrix) {
    attempt(_return, Failure::ofCall(__func__, CameraAPIError::CAMERA_API_ERROR_CALL_FAILED),
            [&] { transpose(matrix.mData, _return.mValue.mData); });
}

} // namespace qel::api::camera
