// SPDX-License-Identifier: Apache-2.0
#include "Arguments.h"

#include <cstddef>
#include <stdexcept>
#include <string>
#include <vector>

namespace qel::api::camera {

namespace {

template <class List>
void expectAtLeast(const List& list, const std::size_t count, const char* argument, const char* what) {
    if (list.size() < count) {
        throw std::invalid_argument(std::string("argument ") + argument + ": expected " + std::to_string(count) + ' ' +
                                    what + ", got " + std::to_string(list.size()));
    }
}

} // namespace

math::Vec3 toVec3(const Vector& vector, const char* argument) {
    const std::vector<double>& data = vector.mData;
    expectAtLeast(data, 3, argument, "values");
    return {data[0], data[1], data[2]};
}

math::Quat toQuat(const Quaternion& quaternion, const char* argument) {
    const std::vector<double>& data = quaternion.mData;
    expectAtLeast(data, 4, argument, "values");
    return {data[0], data[1], data[2], data[3]};
}

math::Mat4 toMat4(const Matrix& matrix, const char* argument) {
    expectAtLeast(matrix.mData, 4, argument, "rows");
    math::Mat4 m = math::zeroMatrix(math::MatrixKind::general);
    for (std::size_t r = 0; r < 4; ++r) {
        expectAtLeast(matrix.mData[r], 4, argument, "values in a row");
        for (std::size_t k = 0; k < 4; ++k) {
            m(r, k) = matrix.mData[r][k];
        }
    }
    return m;
}

} // namespace qel::api::camera
