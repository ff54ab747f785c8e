#include <gtest/gtest.h>

#include <QDir>
#include <string>

#include "platform/base_settings.h"
#include "support/test_env.h"

using devctrl_test::EnvGuard;
using devctrl_test::TempDir;

TEST(BaseSettings, GroupsWriteToTheFileNamedByEnvironment) {
    TempDir dir;
    std::string path = dir.write("settings.ini", "[General]\nDevice=ZR4-6QF48C\n");
    EnvGuard env("DEVCTRL_SETTINGS", path.c_str());
    BaseSettings("Flow").setDefaultStringSetting("Device", "ZR12-7BG100I");
    EXPECT_NE(devctrl_test::readFile(path).find("[Flow]\nDevice=ZR12-7BG100I"), std::string::npos);
    EXPECT_EQ(BaseSettings(QString()).getDefaultStringSetting("Device"), "ZR4-6QF48C");
    EXPECT_EQ(BaseSettings("Flow").getDefaultStringSetting("Device"), "ZR12-7BG100I");
}

TEST(BaseSystem, DataPathFollowsEnvironmentOrSourceTree) {
    {
        EnvGuard env("DEVCTRL_DATA_DIR", "/no/such/devctrl/data");
        EXPECT_EQ(BaseSystem::getDataPath().path(), "/no/such/devctrl/data");
    }
    // The test build is not installed, so the library falls back to the
    // source tree's data; an empty variable counts as unset.
    EnvGuard env("DEVCTRL_DATA_DIR", "");
    EXPECT_EQ(BaseSystem::getDataPath().absolutePath(),
              QDir::cleanPath(QStringLiteral(DEVCTRL_TEST_SAMPLE_DATA)));
}
