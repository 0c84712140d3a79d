// SPDX-License-Identifier: Apache-2.0
#include <qel/api/base/Records.h>

#include <qel/api/base/BaseFields.h>

#include "records/RecordText.h"
#include "records/RecordValue.h"
#include "records/RecordWire.h"

namespace qel::api::base {

using ::apache::thrift::protocol::TProtocol;
using namespace ::qel::api::records;

void ServiceResult::__set_mError(std::int32_t value) {
    mError = value;
    __isset.mError = true;
}

void ServiceResult::__set_mMessage(const std::string& value) {
    mMessage = value;
    __isset.mMessage = true;
}

bool ServiceResult::operator==(const ServiceResult& other) const { return equalRecords(*this, other); }
std::uint32_t ServiceResult::read(TProtocol* protocol) { return readRecord(*this, *protocol); }
std::uint32_t ServiceResult::write(TProtocol* protocol) const { return writeRecord(*this, *protocol); }
void ServiceResult::printTo(std::ostream& out) const { printRecord(*this, out); }
void swap(ServiceResult& a, ServiceResult& b) noexcept { swapRecords(a, b); }
std::ostream& operator<<(std::ostream& out, const ServiceResult& record) {
    record.printTo(out);
    return out;
}

void StringResult::__set_mResult(const ServiceResult& value) {
    mResult = value;
    __isset.mResult = true;
}

void StringResult::__set_mValue(const std::string& value) {
    mValue = value;
    __isset.mValue = true;
}

bool StringResult::operator==(const StringResult& other) const { return equalRecords(*this, other); }
std::uint32_t StringResult::read(TProtocol* protocol) { return readRecord(*this, *protocol); }
std::uint32_t StringResult::write(TProtocol* protocol) const { return writeRecord(*this, *protocol); }
void StringResult::printTo(std::ostream& out) const { printRecord(*this, out); }
void swap(StringResult& a, StringResult& b) noexcept { swapRecords(a, b); }
std::ostream& operator<<(std::ostream& out, const StringResult& record) {
    record.printTo(out);
    return out;
}

} // namespace qel::api::base
