// SPDX-License-Identifier: MIT
#include "asc_summary.h"

#include <QJsonArray>
#include <QJsonObject>

#include "devctrl/mngr/device_mngr.h"
#include "output.h"

namespace devctrl_tool {

PartAscs PartAscs::of(tarn::vyxpn::TarnDeviceMngr& mngr, const std::string& part) {
    PartAscs ascs;
    ascs.hasOnBoard = mngr.getInternalASCs(part, ascs.onBoard);
    ascs.hasLinkable = mngr.getSupportedASCs(part, ascs.linkable);
    return ascs;
}

std::string PartAscs::onBoardText() const {
    if (!hasOnBoard)
        return "no data";
    if (onBoard.empty())
        return "none";
    std::string text;
    for (const auto& [asc, count] : onBoard) {
        if (!text.empty())
            text += ", ";
        text += asc + " x" + std::to_string(count);
    }
    return text;
}

std::string PartAscs::linkableText() const {
    if (!hasLinkable)
        return "no data";
    if (linkable.empty())
        return "none";
    std::string text;
    for (const auto& asc : linkable) {
        if (!text.empty())
            text += ", ";
        text += asc;
    }
    return text;
}

QJsonValue PartAscs::onBoardJson() const {
    if (!hasOnBoard)
        return QJsonValue();
    QJsonObject counts;
    for (const auto& [asc, count] : onBoard)
        counts.insert(qs(asc), count);
    return counts;
}

QJsonValue PartAscs::linkableJson() const {
    if (!hasLinkable)
        return QJsonValue();
    return toJsonArray(linkable);
}

}  // namespace devctrl_tool
