// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include "devctrl/mngr/device_mngr.h"
#include "support/test_env.h"

using namespace tarn::vyxpn;
using tarn::vyxpn::StringList;

// The tool's export of the sample installation lists every part of every
// family, obsolete ones included, in the library's order and with the
// fields the library gives for it.
TEST(SampleDataExport, ListsEveryPartWithTheLibrarysFields) {
    devctrl_test::DataDirScope scope(DEVCTRL_TEST_SAMPLE_DATA);
    TarnDeviceMngr& mngr = *TarnDeviceMngr::getInstance();
    if (mngr.getFamilyFiles().empty())
        GTEST_SKIP() << "no sample families installed";
    std::string out;
    ASSERT_EQ(devctrl_test::runTool(
                  std::string("--data ") + DEVCTRL_TEST_SAMPLE_DATA + " export --all", &out),
              0);
    const QJsonObject exported =
        QJsonDocument::fromJson(QByteArray::fromStdString(out)).object()["pms"].toObject();
    ASSERT_EQ(static_cast<std::size_t>(exported.size()), mngr.getFamilyFiles().size());
    for (const auto& entry : mngr.getFamilyFiles()) {
        StringList parts;
        mngr.getAllPartsByPM(entry.first, parts, true, false);
        const QJsonArray inExport =
            exported[QString::fromStdString(entry.first)].toObject()["parts"].toArray();
        ASSERT_EQ(static_cast<std::size_t>(inExport.size()), parts.size()) << entry.first;
        for (std::size_t i = 0; i < parts.size(); ++i) {
            std::string pm, device, package, speed, condition;
            ASSERT_TRUE(mngr.getNameByPart(parts[i], pm, device, package, speed, condition));
            const QJsonObject part = inExport[static_cast<int>(i)].toObject();
            auto field = [&](const char* name) { return part[name].toString().toStdString(); };
            EXPECT_EQ(StringList({field("name"), field("device"), field("package"), field("speed"),
                                  field("condition")}),
                      StringList({parts[i], device, package, speed, condition}));
        }
    }
}
