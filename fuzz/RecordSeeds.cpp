// SPDX-License-Identifier: Apache-2.0
// Writes the well-formed messages that the target `records` starts from, one of every record over every protocol, with
// content in every field; or checks that a folder holds them.
//
//   fuzz_record_seeds --write fuzz/corpus/records
//   fuzz_record_seeds --check fuzz/corpus/records

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <filesystem>
#include <fstream>
#include <ios>
#include <iterator>
#include <limits>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

#include "fuzz/RecordContents.h"
#include "fuzz/RecordKinds.h"
#include "fuzz/Require.h"
#include "fuzz/StateObjects.h"

namespace camera::fuzz {
namespace {

using qel::api::FieldTable;
using qel::api::forEachField;
using qel::api::Form;
using namespace qel::api::camera;

/// Fills a record with content: lists of the size that operations make, blobs of the size that they read.
class Filler {
public:
    /// Fillers that start elsewhere put the numbers to other places.
    Filler(std::size_t start, bool withMessage) : mNext(start), mWithMessage(withMessage) {}

    template <class Record>
    void fill(Record& record) {
        forEachField<Record>([&](const auto& field) {
            auto& member = record.*field.member;
            using Member = std::remove_cvref_t<decltype(member)>;
            if (field.form == Form::optional && !mWithMessage) {
                return;
            }
            if constexpr (std::is_same_v<Member, std::vector<double>>) {
                fillList(member, std::is_same_v<Record, Quaternion> ? 4 : 3);
            } else if constexpr (std::is_same_v<Member, std::vector<std::vector<double>>>) {
                member.resize(4);
                for (auto& row : member) {
                    fillList(row, 4);
                }
            } else if constexpr (std::is_same_v<Member, std::string>) {
                if constexpr (IsState<Record>) { // whose only text is its blob
                    member = blob(blobSize<Record>);
                } else {
                    member = text();
                }
            } else if constexpr (std::is_same_v<Member, double>) {
                member = number();
            } else if constexpr (std::is_same_v<Member, std::int32_t>) {
                member = CameraAPIError::CAMERA_API_ERROR_CALL_FAILED;
            } else if constexpr (std::is_same_v<Member, ProjectionType::type>) {
                member = ProjectionType::ORTHOGRAPHIC;
            } else {
                fill(member);
            }
            field.markSet(record, true);
        });
    }

private:
    double number() {
        using Limits = std::numeric_limits<double>;
        constexpr auto nan = std::bit_cast<double>(0x7ff8123456789abcU); // with a payload, as the other
        constexpr auto negativeNan = std::bit_cast<double>(0xfff8000000000001U);
        static constexpr std::array<double, 17> numbers = {1.0 / 3,
                                                           -12.5,
                                                           1920.0,
                                                           -0.0,
                                                           0.78539816339744828,
                                                           -6378137.0,
                                                           nan,
                                                           0.1,
                                                           -1.0,
                                                           Limits::infinity(),
                                                           2.5e-5,
                                                           -4.9406564584124654e-324,
                                                           99.999999999999986,
                                                           Limits::max(),
                                                           negativeNan,
                                                           1080.0,
                                                           -Limits::infinity()};
        return numbers[mNext++ % numbers.size()];
    }

    void fillList(std::vector<double>& list, std::size_t size) {
        list.resize(size);
        for (double& value : list) {
            value = number();
        }
    }

    /// Nobody looks into a blob on its way: numbers, and whatever words there may be between them.
    std::string blob(std::size_t size) {
        std::string bytes;
        while (bytes.size() < size) {
            const auto word = bytes.size() % 64 == 0 ? mNext : std::bit_cast<std::uint64_t>(number());
            for (unsigned i = 0; i < 8; ++i) {
                bytes += static_cast<char>(word >> (8 * i) & 0xff);
            }
        }
        return bytes;
    }

    /// What JSON escapes, and characters of one to four bytes.
    static std::string text() { return "\"Größe\" 0 < 3 \\ µm\t→ 目 🎥\n\x7f/"; }

    std::size_t mNext;
    bool mWithMessage;
};

using Seeds = std::map<std::string, std::string>; ///< bytes by file name

template <std::size_t kind>
void addSeeds(Seeds& seeds) {
    using Record = std::tuple_element_t<kind, RecordKinds>;
    for (std::size_t protocol = 0; protocol < protocolCount; ++protocol) {
        Record record;
        Filler(5 * kind + protocol, (kind + protocol) % 2 == 0).fill(record);
        require(isFull(record), "a seed has content in every field");

        const auto buffer = std::make_shared<apache::thrift::transport::TMemoryBuffer>();
        record.write(makeProtocol(protocol, buffer).get());
        const std::size_t otherProtocol = (protocol + 1 + kind % (protocolCount - 1)) % protocolCount;
        const std::array<char, 2> head{static_cast<char>(kind),
                                       static_cast<char>(protocol + protocolCount * otherProtocol)};
        seeds["full-" + std::string(FieldTable<Record>::recordName) + "-" + protocolNames[protocol]] =
            std::string(head.begin(), head.end()) + buffer->getBufferAsString();
    }
}

Seeds allSeeds() {
    Seeds seeds;
    [&]<std::size_t... kinds>(std::index_sequence<kinds...>) { (addSeeds<kinds>(seeds), ...); }
    (std::make_index_sequence<kindCount>());
    return seeds;
}

bool writeSeed(const std::filesystem::path& path, const std::string& bytes) {
    std::ofstream file(path, std::ios::binary);
    file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    return static_cast<bool>(file.flush());
}

bool checkSeed(const std::filesystem::path& path, const std::string& bytes) {
    std::ifstream file(path, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(file), {}) == bytes;
}

/// Does one of the two with each seed, and says on stderr where that fails.
bool withAll(const std::filesystem::path& folder, bool (*work)(const std::filesystem::path&, const std::string&)) {
    bool all = true;
    for (const auto& [name, bytes] : allSeeds()) {
        if (!work(folder / name, bytes)) {
            std::fprintf(stderr, "%s cannot be written, is missing, or is not what --write makes\n",
                         (folder / name).c_str());
            all = false;
        }
    }
    return all;
}

} // namespace
} // namespace camera::fuzz

int main(int count, char** arguments) try {
    using namespace camera::fuzz;
    const std::string_view mode = count == 3 ? arguments[1] : "";
    if (mode == "--write" || mode == "--check") {
        return withAll(arguments[2], mode == "--write" ? writeSeed : checkSeed) ? EXIT_SUCCESS : EXIT_FAILURE;
    }
    std::fprintf(stderr, "wants --write FOLDER or --check FOLDER\n");
    return EXIT_FAILURE;
} catch (const std::exception& exception) {
    std::fprintf(stderr, "%s\n", exception.what());
    return EXIT_FAILURE;
}
