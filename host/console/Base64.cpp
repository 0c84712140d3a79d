// SPDX-License-Identifier: Apache-2.0
#include "host/console/Base64.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>

#include <thrift/protocol/TBase64Utils.h>

namespace qel::host {

namespace {

constexpr std::size_t groupBytes = 3;
constexpr std::size_t groupLetters = 4;

} // namespace

std::string toBase64(std::string_view bytes) {
    std::string text;
    text.reserve((bytes.size() + groupBytes - 1) / groupBytes * groupLetters);
    for (std::size_t at = 0; at < bytes.size(); at += groupBytes) {
        const std::string_view piece = bytes.substr(at, groupBytes);
        std::array<std::uint8_t, groupBytes> in{};
        std::copy(piece.begin(), piece.end(), in.begin());
        std::array<std::uint8_t, groupLetters> out{'=', '=', '=', '='};
        apache::thrift::protocol::base64_encode(in.data(), static_cast<std::uint32_t>(piece.size()), out.data());
        text.append(out.begin(), out.end());
    }
    return text;
}

std::optional<std::string> fromBase64(std::string_view text) {
    if (text.size() % groupLetters != 0) {
        return std::nullopt;
    }
    std::string bytes;
    bytes.reserve(text.size() / groupLetters * groupBytes);
    for (std::size_t at = 0; at < text.size(); at += groupLetters) {
        const std::string_view group = text.substr(at, groupLetters);
        const std::size_t letters = std::min(group.find('='), groupLetters);
        if (letters < 2) {
            return std::nullopt;
        }
        std::array<std::uint8_t, groupLetters> buffer{};
        std::copy(group.begin(), group.end(), buffer.begin());
        apache::thrift::protocol::base64_decode(buffer.data(), static_cast<std::uint32_t>(letters));
        bytes.append(buffer.begin(), buffer.begin() + static_cast<std::ptrdiff_t>(letters - 1));
    }
    // The decoder takes any letter for some bits, and does not look at the padding or the bits that are left over.
    if (toBase64(bytes) != text) {
        return std::nullopt;
    }
    return bytes;
}

} // namespace qel::host
