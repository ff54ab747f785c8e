// SPDX-License-Identifier: MIT
#include "asc_link_panel.h"

#include <QFormLayout>
#include <QLabel>
#include <QSignalBlocker>
#include <QSpinBox>
#include <QVBoxLayout>

#include "devctrl/mngr/device_mngr.h"

namespace devctrl {

namespace {
// More than any part takes, so that the user can go past the limit and read
// why that is refused rather than being stopped silently.
constexpr int kMostLinksOfOneType = 16;
}  // namespace

AscLinkPanel::AscLinkPanel(QWidget* parent) : QGroupBox(tr("ASC chips"), parent) {
    setObjectName("ascPanel");
    auto* layout = new QVBoxLayout(this);
    m_onBoard = new QLabel(this);
    m_onBoard->setObjectName("ascOnBoard");
    m_totals = new QLabel(this);
    m_totals->setObjectName("ascTotals");
    m_links = new QFormLayout;
    layout->addWidget(m_onBoard);
    layout->addLayout(m_links);
    layout->addWidget(m_totals);
}

void AscLinkPanel::showPart(const std::string& part) {
    const QStringList kept = linkedChips();
    while (m_links->rowCount() > 0)
        m_links->removeRow(0);
    m_counts.clear();
    m_order.clear();
    m_onBoardCount = 0;
    m_maximum = 0;
    auto* mngr = tarn::vyxpn::TarnDeviceMngr::m_pMngr;
    std::map<std::string, int> onBoard;
    if (mngr && !part.empty()) {
        mngr->getInternalASCs(part, onBoard);
        mngr->getSupportedASCs(part, m_order);
        m_maximum = mngr->getASCMaxNum(part);
    }
    QStringList onBoardText;
    for (const auto& [chip, count] : onBoard) {
        onBoardText << tr("%1 × %2").arg(QString::fromStdString(chip)).arg(count);
        m_onBoardCount += count;
    }
    m_onBoard->setText(
        tr("On board: %1").arg(onBoardText.isEmpty() ? tr("none") : onBoardText.join(", ")));
    for (const auto& chip : m_order) {
        auto* count = new QSpinBox(this);
        const QString name = QString::fromStdString(chip);
        count->setObjectName("asc_" + name);
        count->setRange(0, kMostLinksOfOneType);
        count->setAccessibleName(tr("Linked %1 chips").arg(name));
        connect(count, qOverload<int>(&QSpinBox::valueChanged), this, [this] {
            updateTotals();
            emit linksChanged();
        });
        m_links->addRow(tr("Link %1:").arg(name), count);
        m_counts[chip] = count;
    }
    setLinkedChips(kept);
    setEnabled(!m_order.empty() || m_onBoardCount > 0);
    updateTotals();
}

QStringList AscLinkPanel::linkedChips() const {
    QStringList chips;
    for (const auto& chip : m_order) {
        const int count = m_counts.at(chip)->value();
        for (int i = 0; i < count; ++i)
            chips << QString::fromStdString(chip);
    }
    return chips;
}

void AscLinkPanel::setLinkedChips(const QStringList& chips) {
    std::map<std::string, int> wanted;
    for (const QString& chip : chips)
        ++wanted[chip.toStdString()];
    for (auto& [chip, box] : m_counts) {
        QSignalBlocker block(box);
        box->setValue(wanted.count(chip) ? wanted[chip] : 0);
    }
    updateTotals();
}

void AscLinkPanel::updateTotals() {
    const int linked = linkedChips().size();
    m_totals->setText(tr("Linked: %1, on board: %2, at most %3 in all")
                          .arg(linked)
                          .arg(m_onBoardCount)
                          .arg(m_maximum));
}

}  // namespace devctrl
