// SPDX-License-Identifier: MIT
#pragma once
// Tasks 0..count-1 run on helper threads, started in index order, while the
// owner takes their results one by one in that same order. The owner alone
// decides what happens with a result, so everything a caller can see
// follows the order of the indexes, however the threads interleave.

#include <condition_variable>
#include <cstddef>
#include <exception>
#include <functional>
#include <mutex>
#include <system_error>
#include <thread>
#include <vector>

namespace tarn::vyxpn {

// Result must be default-constructible and movable.
template <typename Result>
class ParallelOrderedTasks {
  public:
    using Task = std::function<Result(std::size_t index)>;

    // Starts up to `threads` helpers on `task`. A thread the system refuses
    // is done without: take() runs a task nobody has started itself.
    ParallelOrderedTasks(std::size_t count, unsigned threads, Task task)
        : m_task(std::move(task)), m_slots(count) {
        try {
            for (unsigned i = 0; i < threads && i < count; ++i)
                m_threads.emplace_back([this] { work(); });
        } catch (const std::system_error&) {
        }
    }

    // Starts nothing more, waits for the running tasks and drops every
    // result not taken: no helper outlives the object.
    ~ParallelOrderedTasks() { stop(); }

    ParallelOrderedTasks(const ParallelOrderedTasks&) = delete;
    ParallelOrderedTasks& operator=(const ParallelOrderedTasks&) = delete;

    // The result of task `index`, once it is done; rethrows what the task
    // threw. Each index is taken once, in increasing order.
    Result take(std::size_t index) {
        std::unique_lock<std::mutex> lock(m_mutex);
        // Not started yet (no helper free, or none at all): do it here
        // rather than wait.
        if (m_next == index) {
            ++m_next;
            lock.unlock();
            run(index);
            lock.lock();
        }
        m_done.wait(lock, [&] { return m_slots[index].finished; });
        Slot& slot = m_slots[index];
        Result result = std::move(slot.result);
        const std::exception_ptr error = std::move(slot.error);
        lock.unlock();
        if (error)
            std::rethrow_exception(error);
        return result;
    }

    // Helpers start no further task; waits for the running ones. take()
    // still runs the next task itself.
    void stop() {
        {
            std::lock_guard<std::mutex> lock(m_mutex);
            m_stopped = true;
        }
        for (std::thread& thread : m_threads)
            thread.join();
        m_threads.clear();
    }

  private:
    struct Slot {
        bool finished = false;
        Result result{};
        std::exception_ptr error;
    };

    void work() {
        for (;;) {
            std::size_t index;
            {
                std::lock_guard<std::mutex> lock(m_mutex);
                if (m_stopped || m_next == m_slots.size())
                    return;
                index = m_next++;
            }
            run(index);
        }
    }

    void run(std::size_t index) {
        Result result{};
        std::exception_ptr error;
        try {
            result = m_task(index);
        } catch (...) {
            error = std::current_exception();
        }
        {
            std::lock_guard<std::mutex> lock(m_mutex);
            Slot& slot = m_slots[index];
            slot.result = std::move(result);
            slot.error = std::move(error);
            slot.finished = true;
        }
        m_done.notify_all();
    }

    Task m_task;
    std::mutex m_mutex;
    std::condition_variable m_done;
    std::vector<Slot> m_slots;
    std::size_t m_next = 0;
    bool m_stopped = false;
    std::vector<std::thread> m_threads;
};

}  // namespace tarn::vyxpn
