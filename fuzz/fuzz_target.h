#pragma once

#include "choices.h"

#include <gtest/gtest.h>

#include <chrono>
#include <cstdlib>
#include <iostream>

/// FUZZ_TARGET(driver, runs) makes void driver(Choices&) a test over the seeds 0 to runs - 1, or a
/// target of libFuzzer. docs/fuzzing.md says how to run both.

namespace veldrune::test {

/// The number in an environment variable.
inline int number_of(const char* variable, int otherwise) {
    const char* text = std::getenv(variable);
    return text ? std::atoi(text) : otherwise;
}

/// Runs a driver over seeds until one fails.
inline void run_seeds(void (*driver)(Choices&), int runs) {
    using Clock = std::chrono::steady_clock;
    const Clock::time_point begin = Clock::now();
    const auto elapsed = [&] {
        return std::chrono::duration<double>(Clock::now() - begin).count();
    };
    const int first = number_of("VELDRUNE_FUZZ_SEED", 0);
    const int seconds = number_of("VELDRUNE_FUZZ_SECONDS", -1);
    int done = 0;
    do {
        SCOPED_TRACE("VELDRUNE_FUZZ_SEED=" + std::to_string(first + done));
        Choices choices(static_cast<unsigned>(first + done));
        driver(choices);
        ++done;
    } while (!testing::Test::HasFailure() && (seconds < 0 ? done < runs : elapsed() < seconds));
    if (seconds >= 0)
        std::cout << done << " runs from seed " << first << " on in " << elapsed() << " s\n";
}

} // namespace veldrune::test

#ifdef VELDRUNE_LIBFUZZER
#define FUZZ_TARGET(driver, runs)                                                                  \
    extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {            \
        veldrune::test::Choices choices(std::span(data, size));                                    \
        veldrune::test::driver(choices);                                                           \
        if (testing::Test::HasFailure())                                                           \
            std::abort();                                                                          \
        return 0;                                                                                  \
    }
#else
#define FUZZ_TARGET(driver, runs)                                                                  \
    TEST(Fuzz, driver) {                                                                           \
        veldrune::test::run_seeds(veldrune::test::driver, runs);                                   \
    }
#endif
