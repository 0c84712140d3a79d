// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>

#include <bit>
#include <cstddef>
#include <cstdint>
#include <type_traits>

#include "tests/component/support/Calls.h"
#include "tests/component/support/LoadedModule.h"
#include "tests/component/support/Samples.h"
#include "tests/component/support/Slots.h"

namespace qel::api::camera::test {

namespace {

/// Where a member function stands in the table of virtual functions, in bytes. The Itanium ABI, on most machines,
/// represents a pointer to a virtual member function as that offset plus one and an adjustment of `this`.
template <class Member>
std::ptrdiff_t vtableOffset(const Member member) {
    struct Representation {
        std::ptrdiff_t pointer;
        std::ptrdiff_t adjustment;
    };
    static_assert(sizeof(Member) == sizeof(Representation));
    const auto representation = std::bit_cast<Representation>(member);
    EXPECT_EQ(representation.pointer & 1, 1) << "not virtual";
    EXPECT_EQ(representation.adjustment, 0);
    return representation.pointer - 1;
}

TEST(SlotOrder, TableNamesTheOperationsInTheOrderThatHostsRelyOn) {
    forEachOperation(
        [](const std::size_t slot, const auto& operation) { EXPECT_EQ(operation.name, slots[slot].operation); });
}

TEST(SlotOrder, TableHasTheOrderOfTheVirtualFunctions) {
#if defined(__x86_64__)
    // Two slots of the destructor come first, then the three identity operations, then slot 0.
    constexpr std::ptrdiff_t entry = sizeof(void*);
    EXPECT_EQ(vtableOffset(&base::BaseAPIIf::getComponentVersion), 2 * entry);
    EXPECT_EQ(vtableOffset(&base::BaseAPIIf::getComponentVariant), 3 * entry);
    EXPECT_EQ(vtableOffset(&base::BaseAPIIf::getComponentName), 4 * entry);
    forEachOperation([](const std::size_t slot, const auto& operation) {
        EXPECT_EQ(vtableOffset(operation.member), entry * (5 + static_cast<std::ptrdiff_t>(slot))) << operation.name;
    });
#else
    GTEST_SKIP() << "pointers to member functions are laid out differently here";
#endif
}

/// Spoils the first argument that can make a call fail; false where there is none.
template <class Tuple>
bool spoil(Tuple& arguments) {
    bool spoilt = false;
    forEachArgument(arguments, [&](auto& argument) {
        if (spoilt) {
            return;
        }
        if constexpr (requires { argument.mPrivate; }) {
            argument.mPrivate.clear();
            spoilt = true;
        } else if constexpr (requires { argument.mData; }) {
            argument.mData.clear();
            spoilt = true;
        }
    });
    return spoilt;
}

TEST(SlotOrder, CallThroughTheTableReachesTheOperationThatIsNamed) {
    const LoadedService service;
    const Samples samples(*service);
    std::size_t reached = 0;
    forEachOperation([&](const std::size_t slot, const auto& operation) {
        auto arguments = samples.argumentsOf(operation);
        if (spoil(arguments)) {
            const auto result = callAfresh(*service, operation, arguments);
            EXPECT_EQ(result.mResult.mMessage, slots[slot].failureMessage) << operation.name;
            ++reached;
        }
    });
    // Four default creations, creations from numbers at 21 and 37, and two utilities have nothing to spoil.
    EXPECT_EQ(reached, 79U - 8U);
}

} // namespace

} // namespace qel::api::camera::test
