// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace qel::host {

/// Bytes as base64 with padding, RFC 4648.
std::string toBase64(std::string_view bytes);

/// The bytes; nothing where the text is not exactly what toBase64 writes of any bytes.
std::optional<std::string> fromBase64(std::string_view text);

} // namespace qel::host
