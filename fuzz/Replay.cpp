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

/// Changes one bit, one byte or a few bytes, in place or by putting some in or cutting the end off. Most of what a long
/// message says stays, so it is mostly changed in place.
Input mutated(Input input, const std::vector<Input>& others, std::size_t longest, Random& random) {
    const bool inPlace = input.size() > longInput && random.below(4) != 0;
    for (std::size_t i = inPlace ? 1 : 1 + random.below(4); i > 0; --i) {
        const std::size_t at = random.below(input.size() + (inPlace ? 0 : 1));
        const auto place = input.begin() + static_cast<std::ptrdiff_t>(at);
        const Input& other = others[random.below(others.size())];
        const std::size_t kind = random.below(inPlace ? 3 : 5);
        if (kind == 3) {
            input.insert(place, random.byte());
        } else if (kind == 4) {
            input.erase(place, input.end());
        } else if (kind == 2 && inPlace) {
            const std::size_t from = random.below(other.size() + 1);
            const std::size_t size = std::min({1 + random.below(16), other.size() - from, input.size() - at});
            std::copy_n(other.begin() + static_cast<std::ptrdiff_t>(from), size, place);
        } else if (kind == 2) {
            input.insert(place, other.begin(), other.end());
        } else if (at < input.size()) {
            *place = kind == 0 ? static_cast<std::uint8_t>(*place ^ 1U << random.below(8)) : random.byte();
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
        Input exact = mutated(inputs[random.below(inputs.size())], inputs, longest, random);
        exact.shrink_to_fit();
        LLVMFuzzerTestOneInput(exact.data(), exact.size());
    }
    std::printf("%zu inputs of the corpora and %zu mutated ones\n", inputs.size(), runs);
    // Single inputs are run to look into them; a corpus shall reach everything.
    const bool isCorpus = std::any_of(folders.begin(), folders.end(),
                                      [](const std::string& folder) { return std::filesystem::is_directory(folder); });
    return !isCorpus || fuzzReachedEverything() ? EXIT_SUCCESS : EXIT_FAILURE;
}
