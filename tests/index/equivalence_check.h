#pragma once
// Sweeps that put every selection query to the library and to the plain walks
// of reference_walks.h and expect the same answer, exceptions included.

#include <cstddef>
#include <ostream>
#include <string>
#include <vector>

#include "devctrl/mngr/device_mngr.h"

namespace devctrl_test {

// What a query gave: its values, or the exception it raised.
struct Answer {
    std::vector<std::string> values;
    std::string thrown;  // "" when it returned
    bool operator==(const Answer& other) const {
        return values == other.values && thrown == other.thrown;
    }
};
std::ostream& operator<<(std::ostream& out, const Answer& answer);

// Runs `query` (which returns the values) and records what happened.
template <typename Query>
Answer answerOf(Query&& query) {
    Answer answer;
    try {
        answer.values = query();
    } catch (const std::out_of_range&) {
        answer.thrown = "std::out_of_range";
    } catch (const std::exception& error) {
        answer.thrown = std::string("std::exception: ") + error.what();
    }
    return answer;
}

// How much of a family to sweep: every combination of cells (stride 1) or
// every stride-th, for a second look after an event that rebuilds indexes.
struct Sweep {
    std::size_t stride = 1;
};

// Every list query of one family (family-level first-seen lists and manager
// sorted lists) for every device, device+package and device+package+speed
// in the table, plus unknown ones, under all four filter settings; the part
// listings; part names from every distinct field set, its upper- and
// lower-case variants and some that do not exist. Records failures with
// gtest; returns the number of comparisons made.
std::size_t expectFamilyMatchesWalk(tarn::vyxpn::TarnDeviceMngr& mngr, const std::string& pm,
                                    Sweep sweep = {});

// Part owners and fields for every part of every family and `extraNames`, and
// the family list under all four filter settings.
std::size_t expectLookupsMatchWalk(tarn::vyxpn::TarnDeviceMngr& mngr,
                                   const std::vector<std::string>& extraNames);

// Both of the above for every loaded family.
std::size_t expectManagerMatchesWalk(tarn::vyxpn::TarnDeviceMngr& mngr,
                                     const std::vector<std::string>& extraNames = {},
                                     Sweep sweep = {});

}  // namespace devctrl_test
