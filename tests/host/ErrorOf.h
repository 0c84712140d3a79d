// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>

namespace qel::host::test {

/// The text of the error that an action ends with.
template <class Error, class Action>
std::string errorOf(const Action& action) {
    try {
        action();
    } catch (const Error& error) {
        return error.what();
    }
    return "there was no error";
}

} // namespace qel::host::test
