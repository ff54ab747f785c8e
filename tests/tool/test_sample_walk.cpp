#include <gtest/gtest.h>

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <set>
#include <tuple>

#include "devctrl/mngr/device_mngr.h"
#include "support/test_env.h"

using namespace tarn::vyxpn;
using Strings = std::vector<std::string>;
using Fields = std::tuple<std::string, std::string, std::string, std::string>;

// Choosing family, device, package, speed and condition one after another
// must reach every part the family lists, and nothing else; the tool's export
// gives the same parts with the same fields.
TEST(SampleDataWalk, SelectionReachesEveryPartAndExportAgrees) {
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

    for (bool withObsolete : {false, true}) {
        for (const auto& entry : mngr.getFamilyFiles()) {
            const std::string& pm = entry.first;
            SCOPED_TRACE(pm + (withObsolete ? " with obsolete parts" : ""));
            std::set<Fields> walked;
            Strings devices, packages, speeds, conditions, parts;
            mngr.getDevices(pm, devices, withObsolete, false);
            for (const auto& device : devices) {
                mngr.getPackages(pm, device, packages, withObsolete, false);
                for (const auto& package : packages) {
                    mngr.getSpeeds(pm, device, package, speeds, withObsolete, false);
                    for (const auto& speed : speeds) {
                        mngr.getOperations(pm, device, package, speed, conditions, withObsolete,
                                           false);
                        for (const auto& condition : conditions)
                            walked.emplace(device, package, speed, condition);
                    }
                }
            }
            mngr.getAllPartsByPM(pm, parts, withObsolete, false);
            const QJsonArray exportedParts =
                exported[QString::fromStdString(pm)].toObject()["parts"].toArray();
            if (withObsolete) {
                ASSERT_EQ(static_cast<std::size_t>(exportedParts.size()), parts.size());
            }
            std::set<Fields> reached;
            for (std::size_t i = 0; i < parts.size(); ++i) {
                std::string partPm, device, package, speed, condition;
                ASSERT_TRUE(
                    mngr.getNameByPart(parts[i], partPm, device, package, speed, condition));
                EXPECT_EQ(partPm, pm) << parts[i];
                Fields fields{device, package, speed, condition};
                EXPECT_EQ(walked.count(fields), 1u) << parts[i] << " is not reached by the walk";
                reached.insert(fields);
                if (!withObsolete)
                    continue;
                const QJsonObject part = exportedParts[static_cast<int>(i)].toObject();
                EXPECT_EQ(part["name"].toString().toStdString(), parts[i]);
                EXPECT_EQ(Fields(part["device"].toString().toStdString(),
                                 part["package"].toString().toStdString(),
                                 part["speed"].toString().toStdString(),
                                 part["condition"].toString().toStdString()),
                          fields)
                    << parts[i];
            }
            EXPECT_EQ(reached.size(), walked.size()) << "a walked choice without a part";
        }
    }
}
