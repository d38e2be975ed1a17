#pragma once

#include <algorithm>
#include <atomic>
#include <exception>
#include <mutex>
#include <system_error>
#include <thread>
#include <vector>

namespace veldrune::inspect {

/// Calls work(index) for every index from 0 to count - 1, on all cores, in any order. Each thread
/// gets a work of its own from make_work(). The first exception ends it and is thrown on. Where the
/// system has no more threads, those that there are do it.
template <typename MakeWork>
void share_out(int count, const MakeWork& make_work) {
    std::atomic<int> next = 0;
    std::exception_ptr failure;
    std::mutex failing;
    const auto run = [&] {
        try {
            auto work = make_work();
            for (int index = next++; index < count; index = next++)
                work(index);
        } catch (...) {
            next = count;
            const std::lock_guard lock(failing);
            if (!failure)
                failure = std::current_exception();
        }
    };
    {
        const int cores = static_cast<int>(std::thread::hardware_concurrency());
        std::vector<std::jthread> helpers;
        try {
            for (int i = 1; i < std::min(cores, count); ++i)
                helpers.emplace_back(run);
        } catch (const std::system_error&) { // no more threads
        }
        run();
    }
    if (failure)
        std::rethrow_exception(failure);
}

} // namespace veldrune::inspect
