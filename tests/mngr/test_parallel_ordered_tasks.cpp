// SPDX-License-Identifier: MIT
// Tasks run ahead on helper threads; results, errors and the end of the
// helpers come in the owner's order and time.

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

#include "devctrl/mngr/parallel_ordered_tasks.h"

using tarn::vyxpn::ParallelOrderedTasks;

namespace {

TEST(ParallelOrderedTasks, ResultsComeInIndexOrderWhateverTheThreads) {
    for (unsigned threads : {0u, 1u, 2u, 5u, 40u}) {
        std::atomic<int> onHelpers{0};
        const auto owner = std::this_thread::get_id();
        ParallelOrderedTasks<std::string> tasks(20, threads, [&](std::size_t i) {
            onHelpers += std::this_thread::get_id() != owner;
            // Later tasks finish first: the owner still takes them in order.
            std::this_thread::sleep_for(std::chrono::microseconds(200 * (20 - i)));
            return "task " + std::to_string(i);
        });
        for (std::size_t i = 0; i < 20; ++i)
            EXPECT_EQ(tasks.take(i), "task " + std::to_string(i)) << threads << " threads";
        if (threads == 0) {
            EXPECT_EQ(onHelpers, 0) << "without helpers the owner runs every task";
        }
    }
}

TEST(ParallelOrderedTasks, AnErrorReachesTheOwnerAtItsIndex) {
    ParallelOrderedTasks<int> tasks(6, 3, [](std::size_t i) {
        if (i == 2 || i == 4)
            throw std::out_of_range("task " + std::to_string(i));
        return static_cast<int>(i);
    });
    EXPECT_EQ(tasks.take(0), 0);
    EXPECT_EQ(tasks.take(1), 1);
    try {
        tasks.take(2);
        ADD_FAILURE() << "no error";
    } catch (const std::out_of_range& error) {
        EXPECT_STREQ(error.what(), "task 2");
    }
    EXPECT_EQ(tasks.take(3), 3) << "the tasks after an error are there for whoever wants them";
}

TEST(ParallelOrderedTasks, StoppingStartsNothingMoreAndWaitsForWhatRuns) {
    for (std::size_t stopAfter : {0u, 1u, 5u, 49u}) {
        std::atomic<int> started{0}, running{0};
        {
            ParallelOrderedTasks<int> tasks(50, 2, [&](std::size_t i) {
                ++started;
                ++running;
                std::this_thread::sleep_for(std::chrono::milliseconds(1));
                --running;
                return static_cast<int>(i);
            });
            for (std::size_t i = 0; i < stopAfter; ++i)
                tasks.take(i);
            tasks.stop();
            EXPECT_EQ(running, 0) << "stop() returns once every running task is done";
            const int startedAtStop = started;
            std::this_thread::sleep_for(std::chrono::milliseconds(5));
            EXPECT_EQ(started, startedAtStop) << "nothing starts after stop()";
            // The owner may still take the next one: it runs it itself.
            if (stopAfter < 50 && startedAtStop == static_cast<int>(stopAfter)) {
                EXPECT_EQ(tasks.take(stopAfter), static_cast<int>(stopAfter));
            }
        }
        EXPECT_EQ(running, 0);
    }
}

TEST(ParallelOrderedTasks, ResultsNotTakenAreFreed) {
    auto counter = std::make_shared<int>(0);
    {
        ParallelOrderedTasks<std::shared_ptr<int>> tasks(8, 2,
                                                         [&](std::size_t) { return counter; });
        tasks.take(0);
    }
    EXPECT_EQ(counter.use_count(), 1);
}

}  // namespace
