// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <stdexcept>
#include <string>

#include "host/console/Input.h"

namespace qel::host {

/// A text is not what an argument of an operation is written as. Its text says what was expected and what came.
class ArgumentError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// How a value of this type is written on the command line, such as "a number".
template <class Type>
std::string expectation();

/// Reads one argument of an operation from the command line: a number; an enumerator by name or number; a record from
/// JSON (a file, "-" for standard input, or the JSON itself) or, where it consists of numbers alone, from these with
/// commas between them. Throws ArgumentError.
///
/// Type is one of those that operations take.
template <class Type>
Type parseArgument(const std::string& text, Input& input);

} // namespace qel::host
