// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <tuple>

#include <qel/api/Field.h>
#include <qel/api/base/Records.h>

namespace qel::api {

template <>
struct FieldTable<base::ServiceResult> {
    static constexpr const char* recordName = "ServiceResult";
    static constexpr std::tuple fields{
        QEL_API_FIELD(1, base::ServiceResult, mError, plain),
        QEL_API_FIELD(2, base::ServiceResult, mMessage, optional),
    };
};

template <>
struct FieldTable<base::StringResult> {
    static constexpr const char* recordName = "StringResult";
    static constexpr std::tuple fields{
        QEL_API_FIELD(1, base::StringResult, mResult, plain),
        QEL_API_FIELD(2, base::StringResult, mValue, plain),
    };
};

} // namespace qel::api
