// SPDX-License-Identifier: Apache-2.0
#include "component/ReadArguments.h"

#include <cstddef>
#include <stdexcept>
#include <string>

namespace qel::api::camera::component {

void throwTooShort(const char* argument, const std::size_t expected, const char* what, const std::size_t size) {
    throw std::invalid_argument(std::string("argument ") + argument + ": expected " + std::to_string(expected) + ' ' +
                                what + ", got " + std::to_string(size));
}

math::Mat4 toMat4(const Matrix& matrix, const char* argument) {
    expectAtLeast(matrix.mData, 4, argument, "rows");
    for (std::size_t r = 0; r < 4; ++r) {
        expectAtLeast(matrix.mData[r], 4, argument, "values in a row");
    }
    const double* row0 = matrix.mData[0].data();
    const double* row1 = matrix.mData[1].data();
    const double* row2 = matrix.mData[2].data();
    const double* row3 = matrix.mData[3].data();
    return {{row0[0], row1[0], row2[0], row3[0], //
             row0[1], row1[1], row2[1], row3[1], //
             row0[2], row1[2], row2[2], row3[2], //
             row0[3], row1[3], row2[3], row3[3]},
            math::MatrixKind::general};
}

} // namespace qel::api::camera::component
