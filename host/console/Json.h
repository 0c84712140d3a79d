// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <stdexcept>
#include <string>
#include <string_view>

#include <nlohmann/json_fwd.hpp>

namespace qel::host {

/// JSON whose objects keep their members in the order in which they were put in: that of the field tables.
using Json = nlohmann::ordered_json;

/// A text is no JSON, or not that of the record that is wanted. The text says where and what came instead.
class JsonError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// Throws JsonError where the text is not one JSON value.
Json parseJson(std::string_view text);

/// The value over as many lines as a person likes to read: what fits on one is on one, but each row of a matrix has its
/// own. Doubles are spelled by numberText. Ends without a line feed.
std::string layOut(const Json& json);

/// What a value is in a few words, to tell what came instead of what was wanted.
std::string describe(const Json& json);

} // namespace qel::host
