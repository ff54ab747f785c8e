// SPDX-License-Identifier: MIT
// "Did you mean": which known names are offered for a mistyped one.

#include <gtest/gtest.h>

#include "devctrl/mngr/near_names.h"
#include "devctrl/util/string_list.h"

using tarn::vyxpn::NearNames;
using tarn::vyxpn::StringList;

TEST(NearNames, OffersCaseTwinsFirstThenOneEditNeighbours) {
    struct Case {
        const char* query;
        StringList known;
        StringList offered;
    };
    for (const Case& c : {
             // A name equal but for case hides the one-edit neighbours.
             Case{
                 "zr12-6bg100c", {"ZR12-6BG100C", "ZR12-6BG100I", "ZR12-6BG10C"}, {"ZR12-6BG100C"}},
             // One insertion, removal or replacement; two edits are too far.
             Case{"ZR4-6QF48",
                  {"ZR4-6QF48C", "ZR4-6QF4", "ZR4-6QF49", "ZR4-7QF49", "ZR4-6QF48"},
                  {"ZR4-6QF4", "ZR4-6QF48C", "ZR4-6QF49"}},
             // Four characters or more: the first letter must agree.
             Case{"LUTS", {"LUT", "BUTS"}, {"LUT"}},
             // Shorter names may differ anywhere.
             Case{"7", {"6", "8", "17", "117"}, {"6", "8", "17"}},
             // At most five, in natural order, each once.
             Case{"ZR1",
                  {"ZR9", "ZR10", "ZR2", "ZR3", "ZR4", "ZR5", "ZR6", "ZR2"},
                  {"ZR2", "ZR3", "ZR4", "ZR5", "ZR6"}},
             Case{"", {"A"}, {}},
         }) {
        NearNames near(c.query);
        for (const std::string& name : c.known)
            near.consider(name);
        EXPECT_EQ(near.best(), c.offered) << c.query;
    }
}
