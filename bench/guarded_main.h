// SPDX-License-Identifier: MIT
#pragma once
// The main() of the harness's small programs: an exception is a failure the
// harness must see, so it ends the program with a message and status 1.

#include <exception>
#include <iostream>

namespace devctrl_bench {

template <typename Run>
int guardedMain(const char* program, Run run) {
    try {
        return run();
    } catch (const std::exception& e) {
        std::cerr << program << ": " << e.what() << '\n';
        return 1;
    }
}

}  // namespace devctrl_bench
