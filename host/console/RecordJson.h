// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <nlohmann/json_fwd.hpp>

#include <qel/api/camera/Results.h>
#include <qel/api/camera/States.h>
#include <qel/api/camera/Values.h>

#include "host/console/Json.h"

namespace qel::host {

/// A record as an object of its fields by their names. Bytes are base64, enumerators are their names (or the number
/// where a value has none), and an optional field that is not set is left out. Doubles that JSON has no spelling for
/// are strings such as "NaN" and "-Infinity", see numberText.
template <class Record>
Json toJson(const Record& record);

/// Reads what toJson writes, bit for bit, and raises the set-flag of each field. All fields but optional ones must be
/// there, and no others. Where a record is wanted, a result that holds such a record in its mValue serves too, unless
/// it is that of a call that failed. Throws JsonError, which names the field.
template <class Record>
Record fromJson(const Json& json);

} // namespace qel::host
