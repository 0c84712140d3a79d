// SPDX-License-Identifier: Apache-2.0
#include <cstddef>
#include <fstream>
#include <map>
#include <sstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>
#include <thrift/protocol/TBinaryProtocol.h>
#include <thrift/protocol/TCompactProtocol.h>
#include <thrift/protocol/TJSONProtocol.h>

#include <qel/api/camera/CameraAPIIf.h>
#include <qel/api/camera/Fields.h>

#include "tests/records/AllRecords.h"
#include "tests/records/SameBits.h"
#include "tests/wire/WireBytes.h"

namespace qel::api {
namespace {

using namespace ::apache::thrift::protocol;

// A record as the component fills it: 3 coordinates, 4 components, 4x4 elements, whole blobs, no message. Every number
// is one third, which takes 17 digits where numbers are written as text.
constexpr double number = 1.0 / 3.0;

template <class Value>
void fillWhole(Value&) {}
void fillWhole(double& value) { value = number; }
void fillWhole(camera::Vector& v) { v.mData.assign(3, number); }
void fillWhole(camera::Quaternion& q) { q.mData.assign(4, number); }
void fillWhole(camera::Matrix& m) { m.mData.assign(4, std::vector<double>(4, number)); }

template <IsRecord Record>
void fillWhole(Record& record) {
    forEachField<Record>([&](const auto& field) { fillWhole(record.*field.member); });
    if constexpr (std::is_same_v<Record, camera::ViewState>) {
        record.mPrivate.assign(384, '\0');
    } else if constexpr (std::is_same_v<Record, camera::ProjectionState> ||
                         std::is_same_v<Record, camera::SurfaceState>) {
        record.mPrivate.assign(336, '\0');
    } else if constexpr (std::is_same_v<Record, camera::PlanarCameraState>) {
        record.mPrivate.assign(1080, '\0');
    } else if constexpr (std::is_same_v<Record, base::StringResult>) {
        record.mValue = "CameraAPI";
    }
}

/// The rows of the page's table of sizes: name, then three numbers.
std::map<std::string, std::vector<std::size_t>> sizesOnThePage() {
    std::map<std::string, std::vector<std::size_t>> sizes;
    std::ifstream page(CAMERA_RECORDS_PAGE);
    for (std::string line; std::getline(page, line);) {
        if (!line.starts_with("| `")) {
            continue;
        }
        std::istringstream cells(line.substr(3));
        std::string name;
        std::getline(cells, name, '`');
        char bar = ' ';
        std::vector<std::size_t> row;
        for (std::size_t size = 0; cells >> bar && cells >> size;) {
            row.push_back(size);
        }
        if (row.size() == 3) {
            sizes[name] = row;
        }
    }
    return sizes;
}

TEST(WireSizes, AreWhatThePageSays) {
    const auto page = sizesOnThePage();
    std::size_t records = 0;
    AllRecords::forEach([&]<class Record>() {
        Record record;
        fillWhole(record);
        const std::vector<std::size_t> sizes{written<TBinaryProtocol>(record).size(),
                                             written<TCompactProtocol>(record).size(),
                                             written<TJSONProtocol>(record).size()};
        const auto row = page.find(FieldTable<Record>::recordName);
        ASSERT_NE(row, page.end()) << FieldTable<Record>::recordName << " " << sizes[0] << " " << sizes[1] << " "
                                   << sizes[2];
        EXPECT_EQ(row->second, sizes) << FieldTable<Record>::recordName;
        ++records;
    });
    EXPECT_EQ(page.size(), records);
}

} // namespace
} // namespace qel::api
