// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>

#include <pthread.h>
#include <sched.h>

namespace qel::bench {

/// Keeps a thread on one of the processors that it may use, as long as this lives: two threads of a short measurement
/// would else share a processor for much of it, until the scheduler parts them.
class OnOneProcessor {
public:
    explicit OnOneProcessor(int number) {
        pthread_getaffinity_np(pthread_self(), sizeof mBefore, &mBefore);
        number %= CPU_COUNT(&mBefore);
        std::size_t processor = 0;
        while (!CPU_ISSET(processor, &mBefore) || number-- > 0) {
            ++processor;
        }
        cpu_set_t one;
        CPU_ZERO(&one);
        CPU_SET(processor, &one);
        pthread_setaffinity_np(pthread_self(), sizeof one, &one);
    }
    ~OnOneProcessor() { pthread_setaffinity_np(pthread_self(), sizeof mBefore, &mBefore); }

    OnOneProcessor(const OnOneProcessor&) = delete;
    OnOneProcessor& operator=(const OnOneProcessor&) = delete;

private:
    cpu_set_t mBefore;
};

} // namespace qel::bench
