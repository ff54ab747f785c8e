// SPDX-License-Identifier: MIT
#include "part_properties_view.h"

#include <QHeaderView>

#include "devctrl/device/device_obj.h"
#include "devctrl/mngr/device_mngr.h"

namespace devctrl {

namespace {
QString yesNo(bool value) {
    return value ? PartPropertiesView::tr("yes") : PartPropertiesView::tr("no");
}
}  // namespace

PartPropertiesView::PartPropertiesView(QWidget* parent) : QTreeWidget(parent) {
    setObjectName("properties");
    setAccessibleName(tr("Part properties"));
    setColumnCount(2);
    setHeaderLabels({tr("Property"), tr("Value")});
    setRootIsDecorated(false);
    header()->setSectionResizeMode(0, QHeaderView::ResizeToContents);
}

void PartPropertiesView::showDevice(tarn::vyxpn::TarnDeviceObj& device) {
    clear();
    auto* mngr = tarn::vyxpn::TarnDeviceMngr::m_pMngr;
    if (!mngr || device.m_part.empty())
        return;
    auto* report = new QTreeWidgetItem(this, {tr("Resources")});
    tarn::vyxpn::KeyValueReport rows;
    // A chip the part cannot link has no place in its report; the
    // validation message says why.
    std::string refused;
    tarn::vyxpn::TarnDeviceObj reported = device;
    if (!mngr->checkLinkedASCs(reported, refused))
        reported.m_ascList.clear();
    mngr->calcDeviceData(reported, rows);
    for (const auto& [name, value] : rows)
        new QTreeWidgetItem(report, {QString::fromStdString(name), QString::fromStdString(value)});
    if (rows.empty())
        new QTreeWidgetItem(report, {tr("no device data")});

    const std::string& part = device.m_part;
    auto* settings = new QTreeWidgetItem(this, {tr("Tool settings")});
    // Named as the library and the command-line tool name them.
    const std::pair<QString, QString> values[] = {
        {QStringLiteral("synplify"), yesNo(mngr->enableSynplify(part))},
        {QStringLiteral("precision"), yesNo(mngr->enablePrecision(part))},
        {QStringLiteral("default synthesis"),
         QString::fromStdString(mngr->getDefaultSynthesis(part))},
        {QStringLiteral("icf"), yesNo(mngr->enableICF(part))},
        {QStringLiteral("lst"), yesNo(mngr->enableLST(part))},
        {QStringLiteral("bitgen"), yesNo(mngr->enableBitgen(part))},
        {QStringLiteral("asc max"), QString::number(mngr->getASCMaxNum(part))},
    };
    for (const auto& [name, value] : values)
        new QTreeWidgetItem(settings, {name, value});
    expandAll();
}

}  // namespace devctrl
