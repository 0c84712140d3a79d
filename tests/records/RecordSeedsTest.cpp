// SPDX-License-Identifier: Apache-2.0
#include <array>
#include <cstddef>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>
#include <string>

#include <gtest/gtest.h>

#include "fuzz/RecordContents.h"
#include "fuzz/RecordKinds.h"
#include "tests/records/RandomRecords.h"
#include "tests/wire/WireBytes.h"

namespace camera::fuzz {
namespace {

/// A message of a record with content in every field, for a record that has none yet.
template <class Record>
std::string newMessage(std::size_t protocol) {
    qel::api::RandomRecords random(protocol);
    random.noZeroBytesInTexts();
    Record record = arrived(random.make<Record>());
    while (!isFull(record)) {
        record = arrived(random.make<Record>());
    }
    const auto buffer = qel::api::bufferOf("");
    record.write(makeProtocol(protocol, buffer).get());
    return buffer->getBufferAsString();
}

/// The corpus of the target `records` has a message of every record over every protocol, with content in every field,
/// and it is still what the record writes.
template <std::size_t kind>
void checkSeeds() {
    using Record = std::tuple_element_t<kind, RecordKinds>;
    for (std::size_t protocol = 0; protocol < protocolCount; ++protocol) {
        const std::string name =
            "full-" + std::string(qel::api::FieldTable<Record>::recordName) + "-" + protocolNames[protocol];
        std::ifstream file(std::filesystem::path(CAMERA_RECORD_SEEDS) / name, std::ios::binary);
        const std::string seed(std::istreambuf_iterator<char>(file), {});
        if (seed.size() < 2) {
            std::ofstream(name, std::ios::binary)
                << static_cast<char>(kind) << static_cast<char>(protocol) << newMessage<Record>(protocol);
            ADD_FAILURE() << name << " is missing; the folder of this test has one for " CAMERA_RECORD_SEEDS;
            continue;
        }
        EXPECT_EQ(seed[0], static_cast<char>(kind)) << name;
        EXPECT_EQ(static_cast<std::size_t>(seed[1]) % protocolCount, protocol) << name;
        const auto buffer = qel::api::bufferOf(seed.substr(2));
        Record record;
        record.read(makeProtocol(protocol, buffer).get());
        EXPECT_TRUE(isFull(record)) << name;
        const auto again = qel::api::bufferOf("");
        record.write(makeProtocol(protocol, again).get());
        EXPECT_EQ(qel::api::toHex(again->getBufferAsString()), qel::api::toHex(seed.substr(2))) << name;
    }
}

TEST(RecordSeeds, AreWhatTheRecordsWrite) {
    []<std::size_t... kinds>(std::index_sequence<kinds...>) { (checkSeeds<kinds>(), ...); }
    (std::make_index_sequence<kindCount>());
}

} // namespace
} // namespace camera::fuzz
