// SPDX-License-Identifier: MIT
#pragma once
// The part's data report (its resources, with those of its ASC chips) and
// the tool settings the back-end flow reads for it.

#include <QTreeWidget>

namespace tarn::vyxpn {
class TarnDeviceObj;
}

namespace devctrl {

class PartPropertiesView : public QTreeWidget {
    Q_OBJECT
  public:
    explicit PartPropertiesView(QWidget* parent = nullptr);
    // Shows `device` (its part and linked chips); an empty part clears.
    void showDevice(tarn::vyxpn::TarnDeviceObj& device);
};

}  // namespace devctrl
