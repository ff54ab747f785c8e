// SPDX-License-Identifier: MIT
#pragma once
// The ASC chips of one part as the commands show them: the chips on board and
// the types that may be linked, each either read from the data or absent.

#include <QJsonValue>
#include <map>
#include <string>
#include <vector>

namespace tarn::vyxpn {
class TarnDeviceMngr;
}

namespace devctrl_tool {

struct PartAscs {
    // False when the part's data has no usable entry for the list.
    bool hasOnBoard = false;
    std::map<std::string, int> onBoard;
    bool hasLinkable = false;
    std::vector<std::string> linkable;

    static PartAscs of(tarn::vyxpn::TarnDeviceMngr& mngr, const std::string& part);

    // "ASC20 x2, ASC40 x1", "none" or "no data".
    std::string onBoardText() const;
    // "ASC10, ASC20", "none" or "no data".
    std::string linkableText() const;
    // {"ASC20": 2} / ["ASC10"], or null without data.
    QJsonValue onBoardJson() const;
    QJsonValue linkableJson() const;
};

}  // namespace devctrl_tool
