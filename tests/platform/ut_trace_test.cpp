#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/ut_trace.h"

TEST(UtTrace, DefaultWritesOneLineToStandardError) {
    DiagTraceHandler saved = setDiagTraceHandler(nullptr);
    testing::internal::CaptureStderr();
    diagTrace("Failed to load device.acd of", "zr1a00");
    diagTrace("plain", nullptr);
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              "devctrl: Failed to load device.acd of zr1a00\ndevctrl: plain\n");
    setDiagTraceHandler(saved);
}

TEST(UtTrace, HandlersAreInstalledAndRestored) {
    std::vector<std::string> seen;
    DiagTraceHandler saved =
        setDiagTraceHandler([&](const char* message, const char*) { seen.push_back(message); });
    diagTrace("one", nullptr);
    DiagTraceHandler mine = setDiagTraceHandler(nullptr);
    EXPECT_TRUE(mine);
    testing::internal::CaptureStderr();
    diagTrace("back to default", nullptr);
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "devctrl: back to default\n");
    setDiagTraceHandler(saved);
    EXPECT_EQ(seen, (std::vector<std::string>{"one"}));

    ut_guimsg("no handler: nothing happens");
    GuiMsgHandler previous =
        setGuiMsgHandler([&](const char* message) { seen.push_back(message); });
    EXPECT_FALSE(previous);
    ut_guimsg("...");
    setGuiMsgHandler(nullptr);
    ut_guimsg("dropped");
    EXPECT_EQ(seen, (std::vector<std::string>{"one", "..."}));
}
