#include <gtest/gtest.h>

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <set>
#include <tuple>

#include "devctrl/mngr/device_mngr.h"
#include "support/test_env.h"

using namespace tarn::vyxpn;
using devctrl_test::DataDirScope;
using devctrl_test::runTool;
using Strings = std::vector<std::string>;
using Fields = std::tuple<std::string, std::string, std::string, std::string>;

namespace {

Strings fromJson(const QJsonValue& value) {
    Strings list;
    for (const QJsonValue& item : value.toArray())
        list.push_back(item.toString().toStdString());
    return list;
}

std::string sampleArgs() {
    return std::string("--data ") + DEVCTRL_TEST_SAMPLE_DATA + " ";
}

}  // namespace

// Choosing family, device, package, speed and condition one after another
// must reach every part the family lists, and nothing else.
TEST(SampleDataWalk, SelectionReachesEveryPartAndEachPartSplitsBack) {
    DataDirScope scope(DEVCTRL_TEST_SAMPLE_DATA);
    TarnDeviceMngr& mngr = *TarnDeviceMngr::getInstance();
    if (mngr.getFamilyFiles().empty())
        GTEST_SKIP() << "no sample families installed";

    for (bool withObsolete : {false, true}) {
        Strings families;
        mngr.getAllFamilies(families, withObsolete, false);
        for (const auto& entry : mngr.getFamilyFiles()) {
            const std::string& pm = entry.first;
            SCOPED_TRACE(pm + (withObsolete ? " with obsolete parts" : ""));
            std::set<Fields> walked;
            Strings devices, packages, speeds, conditions;
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

            Strings parts;
            mngr.getAllPartsByPM(pm, parts, withObsolete, false);
            std::set<Fields> reached;
            for (const auto& part : parts) {
                std::string partPm, device, package, speed, condition;
                ASSERT_TRUE(mngr.getNameByPart(part, partPm, device, package, speed, condition));
                EXPECT_EQ(partPm, pm) << part;
                Fields fields{device, package, speed, condition};
                EXPECT_EQ(walked.count(fields), 1u) << part << " is not reached by the walk";
                reached.insert(fields);
            }
            EXPECT_EQ(reached.size(), walked.size()) << "a walked choice without a part";
            const bool listed = std::find(families.begin(), families.end(),
                                          TarnDeviceMngr::basePmToFamily(pm)) != families.end();
            EXPECT_EQ(listed, !parts.empty());
        }
    }
}

// The tool's export and parts commands give what the manager gives.
TEST(SampleDataWalk, ToolExportAndPartsAgreeWithTheManager) {
    DataDirScope scope(DEVCTRL_TEST_SAMPLE_DATA);
    TarnDeviceMngr& mngr = *TarnDeviceMngr::getInstance();
    if (mngr.getFamilyFiles().empty())
        GTEST_SKIP() << "no sample families installed";

    std::string out;
    ASSERT_EQ(runTool(sampleArgs() + "export --all", &out), 0);
    QJsonParseError error;
    const QJsonObject catalogue =
        QJsonDocument::fromJson(QByteArray::fromStdString(out), &error).object();
    ASSERT_EQ(error.error, QJsonParseError::NoError) << error.errorString().toStdString();
    Strings families;
    mngr.getAllFamilies(families, true, false);
    EXPECT_EQ(fromJson(catalogue["families"]), families);

    const QJsonObject pms = catalogue["pms"].toObject();
    ASSERT_EQ(static_cast<std::size_t>(pms.size()), mngr.getFamilyFiles().size());
    for (const auto& entry : mngr.getFamilyFiles()) {
        const std::string& pm = entry.first;
        SCOPED_TRACE(pm);
        const QJsonObject family = pms[QString::fromStdString(pm)].toObject();
        EXPECT_EQ(family["family"].toString().toStdString(), TarnDeviceMngr::basePmToFamily(pm));
        Strings devices, parts;
        mngr.getDevices(pm, devices, true, false);
        EXPECT_EQ(fromJson(family["devices"]), devices);
        mngr.getAllPartsByPM(pm, parts, true, false);
        const QJsonArray exported = family["parts"].toArray();
        ASSERT_EQ(static_cast<std::size_t>(exported.size()), parts.size());
        for (std::size_t i = 0; i < parts.size(); ++i) {
            const QJsonObject part = exported[static_cast<int>(i)].toObject();
            EXPECT_EQ(part["name"].toString().toStdString(), parts[i]);
            std::string partPm, device, package, speed, condition;
            mngr.getNameByPart(parts[i], partPm, device, package, speed, condition);
            EXPECT_EQ(part["device"].toString().toStdString(), device);
            EXPECT_EQ(part["package"].toString().toStdString(), package);
            EXPECT_EQ(part["speed"].toString().toStdString(), speed);
            EXPECT_EQ(part["condition"].toString().toStdString(), condition);
        }

        ASSERT_EQ(runTool(sampleArgs() + "--json parts " + pm + " --all", &out), 0);
        EXPECT_EQ(fromJson(QJsonDocument::fromJson(QByteArray::fromStdString(out)).array()), parts);
    }
}
