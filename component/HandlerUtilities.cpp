// SPDX-License-Identifier: Apache-2.0
#include "component/CameraLibraryHandler.h"

#include <cstddef>
#include <stdexcept>
#include <string>
#include <vector>

#include "component/Facade.h"
#include "component/ReadArguments.h"
#include "math/Pipeline.h"

namespace qel::api::camera {

namespace {

using NestedList = std::vector<std::vector<double>>;

/// Swaps rows and columns of nested lists of any shape. The first row says how many columns there are; surplus values
/// of the others are ignored. `to` is not `from`.
void transpose(const NestedList& from, NestedList& to) {
    if (from.empty()) {
        throw std::invalid_argument("argument matrix: expected at least 1 row, got 0");
    }
    const std::size_t columns = from.front().size();
    for (const std::vector<double>& row : from) {
        if (row.size() < columns) {
            throw std::invalid_argument("argument matrix: expected " + std::to_string(columns) +
                                        " values in a row, got " + std::to_string(row.size()));
        }
    }
    to.resize(columns);
    for (std::size_t j = 0; j < columns; ++j) {
        to[j].resize(from.size());
        for (std::size_t i = 0; i < from.size(); ++i) {
            to[j][i] = from[i][j];
        }
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
    attempt(_return, Failure::ofCall(__func__, CameraAPIError::CAMERA_API_ERROR_CALL_FAILED), [&] {
        if (&matrix == &_return.mValue) {
            transpose(NestedList(matrix.mData), _return.mValue.mData);
        } else {
            transpose(matrix.mData, _return.mValue.mData);
        }
    });
}

} // namespace qel::api::camera
