// SPDX-License-Identifier: Apache-2.0
//
// camera_recording MODULE check DIGESTS    compares with committed digests; 77 where the C library rounds otherwise
// camera_recording MODULE digest           prints them
// camera_recording MODULE write FILE       records arguments and results
// camera_recording MODULE compare FILE...  calls with the recorded arguments and tells how far the results are apart:
//                                          with the first recording whose C library rounds alike, or just the first
//
// 10,000 operations, each result a possible argument of later ones. What the operations compute is determined to the
// last bit by IEEE 754 and by the C library's sin, cos, tan, atan and acos, so those are recorded beside them: a digest
// of operations holds where the digest of mathematics above it does. GNU's library rounds in two ways, with fused
// operations and, where the processor has none, without; there is a pair for each.

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <fstream>
#include <iterator>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

#include "tests/component/support/AnyOperation.h"
#include "tests/component/support/LoadedModule.h"
#include "tests/reliability/Census.h"
#include "tests/reliability/Difference.h"
#include "tests/reliability/RecordedArguments.h"
#include "tests/reliability/RecordingFile.h"

namespace qel::api::camera::test {

namespace {

constexpr std::size_t recordedOperations = 10000;
constexpr std::size_t recordedNumbers = 20000; ///< of each function of the C library
constexpr int skipped = 77;                    ///< what ctest takes for a test that could not be run

/// FNV-1a. Every NaN counts as the same one, see unitsApart.
class Digest {
public:
    template <class Value>
    void add(const Value& value) {
        const Contents contents(value);
        for (const Item& item : contents.items()) {
            const bool nan = item.isNumber && std::isnan(item.number());
            std::string bytes;
            appendNumber(bytes, nan ? std::uint64_t{0x7FF8000000000000} : item.bits);
            for (const char byte : bytes) {
                mValue = (mValue ^ static_cast<std::uint8_t>(byte)) * 0x100000001B3U;
            }
        }
    }
    [[nodiscard]] std::string text() const {
        std::array<char, 17> digits{};
        std::snprintf(digits.data(), digits.size(), "%016llx", static_cast<unsigned long long>(mValue));
        return digits.data();
    }

private:
    std::uint64_t mValue = 0xCBF29CE484222325;
};

struct Function {
    const char* name;
    double (*call)(double);
    double low;
    double high;
};
constexpr std::array<Function, 5> functions{{
    {"sin", [](double x) { return std::sin(x); }, -7.0, 7.0},
    {"cos", [](double x) { return std::cos(x); }, -7.0, 7.0},
    {"tan", [](double x) { return std::tan(x); }, -1.5, 1.5},
    {"atan", [](double x) { return std::atan(x); }, -20.0, 20.0},
    {"acos", [](double x) { return std::acos(x); }, -1.0, 1.0},
}};

/// visit(function, value) for the same arguments everywhere.
template <class Visitor>
void forEachNumber(const Visitor& visit) {
    std::uint64_t state = 1;
    for (const Function& function : functions) {
        for (std::size_t i = 0; i < recordedNumbers; ++i) {
            state = state * 6364136223846793005U + 1442695040888963407U;
            const double argument =
                function.low + (function.high - function.low) * (static_cast<double>(state >> 11U) * 0x1p-53);
            visit(function, function.call(argument));
        }
    }
}

/// Calls visit(operation, arguments, result) for the row of operations, and fails unless the row exercises each.
template <class Visitor>
void forEachRecorded(CameraAPIIf& service, const Visitor& visit) {
    RecordedArguments source(service);
    Census census(service);
    for (std::size_t i = 0; i < recordedOperations; ++i) {
        const AnyOperation& operation = allOperations()[source.below(operationCount)];
        const Arguments arguments = source.argumentsOf(operation);
        const AnyResult result = callAfresh(service, operation, arguments);
        visit(operation, arguments, result);
        census.add(operation, arguments, result, source.flaw());
        source.keep(payloadOf(result));
    }
    census.require();
}

std::string digests(CameraAPIIf& service) {
    Digest library;
    forEachNumber([&](const Function&, double value) { library.add(value); });
    Digest operations;
    forEachRecorded(service, [&](const AnyOperation&, const Arguments&, const AnyResult& result) {
        std::visit([&](const auto& held) { operations.add(held); }, result);
    });
    return "mathematics " + library.text() + "\noperations " + operations.text() + "\n";
}

std::string readFile(const char* path) {
    std::ifstream file(path, std::ios::binary);
    if (!file) {
        throw std::runtime_error(std::string(path) + " cannot be read");
    }
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

int check(CameraAPIIf& service, const char* path) {
    const std::string expected = readFile(path);
    const std::string actual = digests(service);
    if (expected.find(actual) != std::string::npos) {
        std::printf("%zu operations give the recorded bits\n", recordedOperations);
        return EXIT_SUCCESS;
    }
    if (expected.find(actual.substr(0, actual.find('\n') + 1)) == std::string::npos) {
        std::printf("skipped: this machine's C library rounds as none of those of the recordings\n");
        return skipped;
    }
    std::printf("recorded:\n%sthis build:\n%s", expected.c_str(), actual.c_str());
    return EXIT_FAILURE;
}

void write(CameraAPIIf& service, const char* path) {
    std::string bytes;
    forEachNumber([&](const Function&, double value) { appendValue(bytes, value); });
    forEachRecorded(service, [&](const AnyOperation& operation, const Arguments& arguments, const AnyResult& result) {
        appendValue(bytes, static_cast<std::int32_t>(operation.number));
        for (const AnyArgument& argument : arguments) {
            bytes += fingerprint(argument);
        }
        bytes += fingerprint(result);
    });
    std::ofstream file(path, std::ios::binary);
    file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    if (!file.flush()) {
        throw std::runtime_error(std::string(path) + " cannot be written");
    }
}

/// A row of differences, summed up.
struct Summary {
    std::size_t all = 0;
    std::size_t differing = 0;
    Difference worst;

    void add(const Difference& difference) {
        ++all;
        differing += difference.none() ? 0U : 1U;
        worst.units = std::max(worst.units, difference.units);
        worst.roundings = std::max(worst.roundings, difference.roundings);
    }
    void print(const char* name) const {
        std::printf("%-45s %6zu of %6zu differ, by %llu units at most, %.3g roundings of what it is part of\n", name,
                    differing, all, static_cast<unsigned long long>(worst.units), worst.roundings);
    }
};

/// What a unit in the last place of the C library's functions may come to, in units of the largest number of a vector,
/// matrix or frustum. A number's own units say nothing: where two turns cancel, one library gives 0 and the other
/// 1e-17. With every value of the functions moved by a unit, up or down by chance, the worst of the row is 46 (a turn
/// about a pivot much farther away than the eye comes to stand from the origin), the next 30 (a field of view near pi,
/// whose tangent enlarges the unit of its argument).
constexpr double mostRoundings = 64.0;

/// Compares the values of the C library's functions with the recorded ones.
std::array<Summary, functions.size()> compareLibrary(Source& source) {
    std::array<Summary, functions.size()> library;
    forEachNumber([&](const Function& function, double value) {
        double recorded = 0.0;
        source.get(recorded);
        library[static_cast<std::size_t>(&function - functions.data())].add(differenceOf(value, recorded));
    });
    return library;
}

bool roundsAlike(const std::array<Summary, functions.size()>& library) {
    return std::all_of(library.begin(), library.end(), [](const Summary& summary) { return summary.differing == 0; });
}

/// Fails when a result is not the recorded one, bit for bit; where the C library's functions differ, when it is further
/// away than what that can come to.
int compare(CameraAPIIf& service, const std::span<const char* const> paths) {
    std::string bytes;
    for (const char* const path : paths) {
        const std::string other = readFile(path);
        Source source(other);
        if (bytes.empty() || roundsAlike(compareLibrary(source))) {
            bytes = other;
        }
    }
    Source source(bytes);
    const std::array<Summary, functions.size()> library = compareLibrary(source);
    bool agree = true;
    for (std::size_t i = 0; i < functions.size(); ++i) {
        library[i].print(functions[i].name);
        agree = agree && library[i].worst.units <= 1;
    }

    Summary operations;
    std::array<Summary, operationCount> each;
    while (!source.empty()) {
        const AnyOperation& operation = allOperations().at(source.number(4));
        Arguments arguments = operation.blank;
        for (AnyArgument& argument : arguments) {
            source.get(argument);
        }
        AnyResult expected = operation.fresh;
        source.get(expected);
        const AnyResult result = callAfresh(service, operation, arguments);
        const Difference difference = std::visit(
            [&](const auto& held) {
                return differenceOf(held, std::get<std::remove_cvref_t<decltype(held)>>(expected));
            },
            result);
        operations.add(difference);
        each[operation.number].add(difference);
    }
    operations.print("operations");
    for (const AnyOperation& operation : allOperations()) {
        if (each[operation.number].differing != 0) {
            each[operation.number].print(std::string(operation.name).c_str());
        }
    }
    agree = agree && (roundsAlike(library) ? operations.differing == 0 : operations.worst.roundings <= mostRoundings);
    return agree ? EXIT_SUCCESS : EXIT_FAILURE;
}

int run(const char* module, const std::string_view what, const std::span<const char* const> paths) {
    const LoadedService loaded(module);
    CameraAPIIf& service = *loaded;
    if (what == "digest") {
        std::printf("%s", digests(service).c_str());
        return EXIT_SUCCESS;
    }
    if (!paths.empty() && what == "check") {
        return check(service, paths.front());
    }
    if (!paths.empty() && what == "compare") {
        return compare(service, paths);
    }
    if (!paths.empty() && what == "write") {
        write(service, paths.front());
        return EXIT_SUCCESS;
    }
    throw std::runtime_error("knows digest, check FILE, write FILE and compare FILE...");
}

} // namespace

} // namespace qel::api::camera::test

int main(int count, char** arguments) {
    try {
        if (count < 3) {
            throw std::runtime_error("usage: camera_recording MODULE digest|check|write|compare [FILE...]");
        }
        const std::vector<const char*> words(arguments + 1, arguments + count);
        return qel::api::camera::test::run(words[0], words[1], std::span(words).subspan(2));
    } catch (const std::exception& error) {
        std::fprintf(stderr, "camera_recording: %s\n", error.what());
        return EXIT_FAILURE;
    }
}
