// SPDX-License-Identifier: Apache-2.0
// A fuzz target as a plain program: runs every file of the corpora named, then a fixed number of inputs mutated from
// them, the same ones on every machine and at every run. Fails too when a target finds that it was not reached whole.
//
//   fuzz_records --runs 20000 corpus/records findings/records

#include <algorithm>
#include <charconv>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <ios>
#include <string>
#include <string_view>
#include <vector>

#include "fuzz/Require.h"

namespace {

using Input = std::vector<std::uint8_t>;

constexpr std::size_t longInput = 64; ///< bytes; what is longer is mostly changed in place

/// Mutated inputs may grow a little beyond the longest of the corpora, so that one is not cut whenever it grows.
std::size_t longestOf(const std::vector<Input>& inputs) {
    std::size_t longest = 0;
    for (const Input& input : inputs) {
        longest = std::max(longest, input.size());
    }
    return std::max<std::size_t>(longest + longest / 4, 128);
}

/// splitmix64.
class Random {
public:
    std::size_t below(std::size_t bound) {
        mState += 0x9E3779B97F4A7C15U;
        std::uint64_t z = mState;
        z = (z ^ (z >> 30U)) * 0xBF58476D1CE4E5B9U;
        z = (z ^ (z >> 27U)) * 0x94D049BB133111EBU;
        return static_cast<std::size_t>((z ^ (z >> 31U)) % bound);
    }
    std::uint8_t byte() { return static_cast<std::uint8_t>(below(256)); }

private:
    std::uint64_t mState = 1;
};

std::vector<Input> readCorpora(const std::vector<std::string>& folders) {
    std::vector<std::filesystem::path> paths;
    for (const std::string& folder : folders) {
        if (std::filesystem::is_directory(folder)) {
            for (const auto& entry : std::filesystem::directory_iterator(folder)) {
                paths.push_back(entry.path());
            }
        } else if (std::filesystem::exists(folder)) {
            paths.emplace_back(folder);
        }
    }
    std::sort(paths.begin(), paths.end()); // a folder's own order differs from machine to machine

    std::vector<Input> inputs;
    for (const auto& path : paths) {
        Input& input = inputs.emplace_back(std::filesystem::file_size(path));
        std::ifstream file(path, std::ios::binary);
        file.read(reinterpret_cast<char*>(input.data()), static_cast<std::streamsize>(input.size()));
    }
    return inputs;
}

/// Changes one bit, one byte, or a few bytes into those of another input: most of what a long message says stays.
void changeInPlace(Input& input, const std::vector<Input>& others, Random& random) {
    const std::size_t at = random.below(input.size());
    switch (random.below(3)) {
    case 0: input[at] ^= static_cast<std::uint8_t>(1U << random.below(8)); break;
    case 1: input[at] = random.byte(); break;
    default: {
        const Input& other = others[random.below(others.size())];
        const std::size_t from = random.below(other.size() + 1);
        const std::size_t size = std::min({1 + random.below(16), other.size() - from, input.size() - at});
        std::copy_n(other.begin() + static_cast<std::ptrdiff_t>(from), size,
                    input.begin() + static_cast<std::ptrdiff_t>(at));
    }
    }
}

Input mutated(Input input, const std::vector<Input>& others, std::size_t longest, Random& random) {
    if (input.size() > longInput && random.below(4) != 0) {
        changeInPlace(input, others, random);
        return input;
    }
    for (std::size_t i = 1 + random.below(4); i > 0; --i) {
        const auto at = static_cast<std::ptrdiff_t>(random.below(input.size() + 1));
        switch (random.below(5)) {
        case 0: input.insert(input.begin() + at, random.byte()); break;
        case 1: input.resize(static_cast<std::size_t>(at)); break;
        case 2: {
            const Input& other = others[random.below(others.size())];
            input.insert(input.begin() + at, other.begin(), other.end());
            break;
        }
        case 3:
            if (static_cast<std::size_t>(at) < input.size()) {
                input[static_cast<std::size_t>(at)] ^= static_cast<std::uint8_t>(1U << random.below(8));
            }
            break;
        default:
            if (static_cast<std::size_t>(at) < input.size()) {
                input[static_cast<std::size_t>(at)] = random.byte();
            }
        }
    }
    input.resize(std::min(input.size(), longest));
    return input;
}

} // namespace

extern "C" __attribute__((weak)) bool fuzzReachedEverything() { return true; }

int main(int count, char** arguments) {
    std::size_t runs = 0;
    std::vector<std::string> folders;
    for (int i = 1; i < count; ++i) {
        const std::string_view argument = arguments[i];
        if (argument == "--runs" && i + 1 < count) {
            const std::string_view number = arguments[++i];
            std::from_chars(number.data(), number.data() + number.size(), runs);
        } else {
            folders.emplace_back(argument);
        }
    }
    const std::vector<Input> inputs = readCorpora(folders);
    if (inputs.empty()) {
        std::fprintf(stderr, "no input in the folders named\n");
        return EXIT_FAILURE;
    }
    for (const Input& input : inputs) {
        LLVMFuzzerTestOneInput(input.data(), input.size());
    }
    const std::size_t longest = longestOf(inputs);
    Random random;
    for (std::size_t i = 0; i < runs; ++i) {
        // In memory of its own size, so that the address sanitizer sees its end.
        const Input input = mutated(inputs[random.below(inputs.size())], inputs, longest, random);
        const Input exact(input.begin(), input.end());
        LLVMFuzzerTestOneInput(exact.data(), exact.size());
    }
    std::printf("%zu inputs of the corpora and %zu mutated ones\n", inputs.size(), runs);
    // Single inputs are run to look into them; a corpus shall reach everything.
    const bool isCorpus = std::any_of(folders.begin(), folders.end(),
                                      [](const std::string& folder) { return std::filesystem::is_directory(folder); });
    return !isCorpus || fuzzReachedEverything() ? EXIT_SUCCESS : EXIT_FAILURE;
}
