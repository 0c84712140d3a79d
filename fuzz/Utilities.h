// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cmath>
#include <cstddef>
#include <vector>

#include <qel/api/camera/Values.h>

#include "fuzz/Require.h"
#include "fuzz/SameBits.h"

namespace camera::fuzz {

namespace api = qel::api::camera;

// What the three matrix utilities answer, worked out from their argument.

inline void requireTransposed(const api::Matrix& transposed, const api::Matrix& matrix) {
    const std::vector<std::vector<double>>& from = matrix.mData;
    const std::vector<std::vector<double>>& to = transposed.mData;
    require(to.size() == from.front().size(), "a transposed matrix has a row for each column");
    for (std::size_t i = 0; i < to.size(); ++i) {
        require(to[i].size() == from.size(), "a transposed matrix has a column for each row");
        for (std::size_t j = 0; j < from.size(); ++j) {
            require(sameBits(to[i][j], from[j][i]), "a transposed matrix holds the elements across its diagonal");
        }
    }
}

/// Whether a frustum's formulas neither overflow nor underflow.
inline bool isOrdinary(const api::Frustum& frustum) {
    for (const double value :
         {frustum.mLeft, frustum.mRight, frustum.mBottom, frustum.mTop, frustum.mNearDist, frustum.mFarDist}) {
        if (value != 0.0 && !(std::abs(value) >= 1e-60 && std::abs(value) <= 1e60)) {
            return false;
        }
    }
    return true;
}

/// Sums, products and the quotient round once each, and nothing is cancelled: the sums' terms are exact.
inline void requireQuotient(double value, long double dividend, long double divisor) {
    if (divisor == 0) {
        require(!std::isfinite(value), "an empty frustum's matrix is not finite");
        return;
    }
    const long double quotient = dividend / divisor;
    require(std::abs(value - quotient) <= 2e-15L * std::abs(quotient), "a frustum's matrix is the classic one");
}

/// glFrustum's matrix, or glOrtho's. Numbers so large or small that the formulas leave their range decide only what is
/// not zero or one.
inline void requireFrustumMatrix(const api::Matrix& matrix, const api::Frustum& frustum, bool perspective) {
    const std::vector<std::vector<double>>& m = matrix.mData;
    require(m.size() == 4, "a matrix has four rows");
    const std::size_t offCentre = perspective ? 2 : 3; // the column that holds how far the sides are off the middle
    for (std::size_t row = 0; row < 4; ++row) {
        require(m[row].size() == 4, "a row has four values");
        for (std::size_t column = 0; column < 4; ++column) {
            if (row == 3) {
                const double last = column != offCentre ? 0.0 : perspective ? -1.0 : 1.0;
                require(m[row][column] == last, "a frustum's matrix has the classic last row");
            } else if (column != row && column != offCentre && !(row == 2 && column == 3)) {
                require(m[row][column] == 0.0, "a frustum's matrix is zero elsewhere");
            }
        }
    }
    if (!isOrdinary(frustum)) {
        return;
    }
    const long double l = frustum.mLeft;
    const long double r = frustum.mRight;
    const long double b = frustum.mBottom;
    const long double t = frustum.mTop;
    const long double n = frustum.mNearDist;
    const long double f = frustum.mFarDist;
    const long double sign = perspective ? 1 : -1;
    requireQuotient(m[0][0], perspective ? 2 * n : 2, r - l);
    requireQuotient(m[1][1], perspective ? 2 * n : 2, t - b);
    requireQuotient(m[0][offCentre], sign * (r + l), r - l);
    requireQuotient(m[1][offCentre], sign * (t + b), t - b);
    requireQuotient(m[2][2], perspective ? -(f + n) : -2, f - n);
    requireQuotient(m[2][3], perspective ? -2 * f * n : -(f + n), f - n);
}

} // namespace camera::fuzz
