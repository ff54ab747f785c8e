// SPDX-License-Identifier: MIT
#pragma once
// The ASC chips of a part: those on board, and a count for each chip type the
// part may link, with the running totals.

#include <QGroupBox>
#include <QStringList>
#include <map>
#include <string>

class QLabel;
class QSpinBox;
class QFormLayout;

namespace devctrl {

class AscLinkPanel : public QGroupBox {
    Q_OBJECT
  public:
    explicit AscLinkPanel(QWidget* parent = nullptr);

    // Shows the chips of `part` (empty: none), keeping the counts of chip
    // types the new part may link too.
    void showPart(const std::string& part);
    // One entry per linked chip, chip types in the order the part lists them.
    QStringList linkedChips() const;
    void setLinkedChips(const QStringList& chips);

  signals:
    void linksChanged();

  private:
    void updateTotals();

    QLabel* m_onBoard;
    QLabel* m_totals;
    QFormLayout* m_links;
    std::map<std::string, QSpinBox*> m_counts;
    std::vector<std::string> m_order;
    int m_onBoardCount = 0;
    int m_maximum = 0;
};

}  // namespace devctrl
