// SPDX-License-Identifier: MIT
#include "chosen_part_output.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include "devctrl/device/device_obj.h"
#include "devctrl/mngr/device_mngr.h"

namespace {
tarn::vyxpn::TarnDeviceObj deviceOf(const QString& part, const QStringList& linkedAscs) {
    tarn::vyxpn::TarnDeviceObj device(part.toStdString());
    for (const QString& chip : linkedAscs)
        device.m_ascList.push_back(chip.toStdString());
    return device;
}
}  // namespace

QString chosenPartText(const QString& part, const QStringList& linkedAscs) {
    return QString::fromStdString(deviceOf(part, linkedAscs).toString(false));
}

QString chosenPartJson(const QString& part, const QStringList& linkedAscs) {
    using tarn::vyxpn::TarnDeviceMngr;
    std::string pm, device, package, speed, condition;
    TarnDeviceMngr::getInstance()->getNameByPart(part.toStdString(), pm, device, package, speed,
                                                 condition);
    QJsonObject counts;
    for (const auto& [chip, count] : deviceOf(part, linkedAscs).getAscMap())
        counts.insert(QString::fromStdString(chip), count);
    const QJsonObject json{
        {"part", part},
        {"pm", QString::fromStdString(pm)},
        {"family", QString::fromStdString(TarnDeviceMngr::basePmToFamily(pm))},
        {"device", QString::fromStdString(device)},
        {"package", QString::fromStdString(package)},
        {"speed", QString::fromStdString(speed)},
        {"condition", QString::fromStdString(condition)},
        {"linkedAscs", counts},
    };
    return QString::fromUtf8(QJsonDocument(json).toJson(QJsonDocument::Indented));
}
