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

namespace camera::fuzz {
namespace {

using qel::api::FieldTable;
using qel::api::forEachField;
using qel::api::Form;
using namespace qel::api::camera;

/// Fills a record with content: lists of the size that operations make, images of the size that they read.
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
                member = field.form == Form::binary ? image(imageSize<Record>()) : text();
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
        static constexpr std::array numbers{1.0 / 3,
                                            -12.5,
                                            1920.0,
                                            -0.0,
                                            0.78539816339744828,
                                            -6378137.0,
                                            std::bit_cast<double>(0x7ff8123456789abcU), // a NaN with a payload
                                            0.1,
                                            -1.0,
                                            Limits::infinity(),
                                            2.5e-5,
                                            -4.9406564584124654e-324,
                                            99.999999999999986,
                                            Limits::max(),
                                            std::bit_cast<double>(0xfff8000000000001U),
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

    /// Nobody looks into an image on its way: numbers, and whatever words there may be between them.
    std::string image(std::size_t size) {
        std::string bytes;
        while (bytes.size() < size) {
            const auto word = bytes.size() % 64 == 0 ? mNext : std::bit_cast<std::uint64_t>(number());
            for (unsigned i = 0; i < 8; ++i) {
                bytes += static_cast<char>(word >> (8 * i) & 0xff);
            }
        }
        return bytes;
    }

    template <class Record>
    static constexpr std::size_t imageSize() {
        if (std::is_same_v<Record, PlanarCameraState>) {
            return 1080;
        }
        return std::is_same_v<Record, ViewState> ? 384 : 336;
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

bool writeSeeds(const std::filesystem::path& folder) {
    for (const auto& [name, bytes] : allSeeds()) {
        std::ofstream file(folder / name, std::ios::binary);
        file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
        if (!file.flush()) {
            std::fprintf(stderr, "%s cannot be written\n", (folder / name).c_str());
            return false;
        }
    }
    return true;
}

bool checkSeeds(const std::filesystem::path& folder) {
    bool same = true;
    for (const auto& [name, bytes] : allSeeds()) {
        std::ifstream file(folder / name, std::ios::binary);
        if (std::string(std::istreambuf_iterator<char>(file), {}) != bytes) {
            std::fprintf(stderr, "%s is missing or is not what --write makes\n", (folder / name).c_str());
            same = false;
        }
    }
    return same;
}

} // namespace
} // namespace camera::fuzz

int main(int count, char** arguments) try {
    const std::string_view mode = count == 3 ? arguments[1] : "";
    if (mode == "--write") {
        return camera::fuzz::writeSeeds(arguments[2]) ? EXIT_SUCCESS : EXIT_FAILURE;
    }
    if (mode == "--check") {
        return camera::fuzz::checkSeeds(arguments[2]) ? EXIT_SUCCESS : EXIT_FAILURE;
    }
    std::fprintf(stderr, "wants --write FOLDER or --check FOLDER\n");
    return EXIT_FAILURE;
} catch (const std::exception& exception) {
    std::fprintf(stderr, "%s\n", exception.what());
    return EXIT_FAILURE;
}
