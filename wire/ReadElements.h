// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>
#include <vector>

namespace qel::api::wire {

/// Fills a list from its start. In the end the list holds what has been read and no more, also when an exception ends
/// the reading. Elements that the list held before are read over, so their storage is used again.
template <class Element>
class ReadElements {
public:
    explicit ReadElements(std::vector<Element>& list) : mList(list) {}
    ~ReadElements() { mList.erase(mList.begin() + static_cast<std::ptrdiff_t>(mCount), mList.end()); }

    ReadElements(const ReadElements&) = delete;
    ReadElements& operator=(const ReadElements&) = delete;

    /// The place of the next element.
    Element& next() {
        if (mCount == mList.size()) {
            mList.emplace_back();
        }
        return mList[mCount++];
    }

    /// The places of the next `size` elements, in one piece.
    Element* next(std::size_t size) {
        if (mList.size() - mCount < size) {
            mList.resize(mCount + size);
        }
        Element* first = mList.data() + mCount;
        mCount += size;
        return first;
    }

    void reserve(std::size_t size) { mList.reserve(size); }

private:
    std::vector<Element>& mList;
    std::size_t mCount = 0;
};

} // namespace qel::api::wire
