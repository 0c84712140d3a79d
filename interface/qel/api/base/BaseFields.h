// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <qel/api/Field.h>
#include <qel/api/base/Records.h>

namespace qel::api {

// A table keeps one field a line.
// clang-format off

QEL_API_FIELD_TABLE(base, ServiceResult,
    QEL_API_FIELD(1, mError, plain),
    QEL_API_FIELD(2, mMessage, optional));

QEL_API_FIELD_TABLE(base, StringResult,
    QEL_API_FIELD(1, mResult, plain),
    QEL_API_FIELD(2, mValue, plain));

// clang-format on

} // namespace qel::api
