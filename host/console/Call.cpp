// SPDX-License-Identifier: Apache-2.0
#include "host/console/Call.h"

#include <cstddef>
#include <memory>
#include <string_view>
#include <tuple>
#include <type_traits>
#include <utility>

#include <nlohmann/json.hpp>

#include <qel/api/camera/Operations.h>

#include "host/console/CallArguments.h"
#include "host/console/OperationList.h"
#include "host/console/RecordJson.h"

namespace qel::host {

namespace {

namespace camera = api::camera;

/// One argument, with the place where an error was made.
template <class Type>
Type read(std::string_view operation, std::string_view name, const std::string& text, Input& input) {
    try {
        return parseArgument<Type>(text, input);
    } catch (const ArgumentError& error) {
        throw ArgumentError(std::string(operation) + ": the argument " + std::string(name) + " " + error.what());
    }
}

template <class Result, class... Arguments, std::size_t... index>
Call prepare(const camera::Operation<Result, Arguments...>& operation, const std::vector<std::string>& texts,
             [[maybe_unused]] Input& input, std::index_sequence<index...>) {
    if (texts.size() != sizeof...(Arguments)) {
        throw ArgumentError(std::string(operation.name) + " takes " + std::to_string(sizeof...(Arguments)) +
                            (sizeof...(Arguments) == 1 ? " argument" : " arguments") + ", but " +
                            std::to_string(texts.size()) + " came: " + signatureOf(operation.name));
    }
    // In braces, so that they are read in order. The call may be copied, and states are large.
    const auto arguments = std::make_shared<std::tuple<std::remove_cvref_t<Arguments>...>>(
        std::tuple<std::remove_cvref_t<Arguments>...>{read<std::remove_cvref_t<Arguments>>(
            operation.name, operation.argumentNames[index], texts[index], input)...});
    return [arguments, member = operation.member](camera::CameraAPIIf& service) {
        Result result;
        std::apply([&](const auto&... argument) { (service.*member)(result, argument...); }, *arguments);
        return CallOutcome{layOut(toJson(result)), result.mResult};
    };
}

template <class Result, class... Arguments>
Call prepare(const camera::Operation<Result, Arguments...>& operation, const std::vector<std::string>& texts,
             Input& input) {
    return prepare(operation, texts, input, std::index_sequence_for<Arguments...>{});
}

/// What one may have meant by a name that no operation has.
std::string adviceFor(const std::string& name) {
    if (const std::string similar = namesLike(name); !similar.empty()) {
        return "did you mean " + similar + "?";
    }
    return operationsLike(name).empty() ? "camera ops lists them" : "try: camera ops " + name;
}

} // namespace

Call prepareCall(const std::string& operation, const std::vector<std::string>& arguments, Input& input) {
    Call call;
    camera::forEachOperation([&](std::size_t, const auto& candidate) {
        if (candidate.name == operation) {
            call = prepare(candidate, arguments, input);
        }
    });
    if (!call) {
        throw ArgumentError("there is no operation " + operation + "; " + adviceFor(operation));
    }
    return call;
}

} // namespace qel::host
