// SPDX-License-Identifier: MIT
#include "devctrl/widgets/device_selection_dialog.h"

#include <QDialogButtonBox>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QVBoxLayout>

#include "devctrl/mngr/device_mngr.h"
#include "devctrl/widgets/device_selection_widget.h"

namespace devctrl {

DeviceSelectionDialog::DeviceSelectionDialog(QWidget* parent) : QDialog(parent) {
    setWindowTitle(tr("Select Device"));
    m_selector = new DeviceSelectionWidget(this);
    m_buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    QPushButton* ok = m_buttons->button(QDialogButtonBox::Ok);
    ok->setEnabled(false);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(m_selector, 1);
    layout->addWidget(m_buttons);
    connect(m_buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(m_selector, &DeviceSelectionWidget::validityChanged, ok, &QPushButton::setEnabled);
    connect(m_selector, &DeviceSelectionWidget::loadCancelled, this, [this] { QDialog::reject(); });
    connect(m_selector, &DeviceSelectionWidget::loadFailed, this, [this](const QString& message) {
        QMessageBox::critical(this, windowTitle(),
                              tr("The device catalogue cannot be read:\n%1").arg(message));
        QDialog::reject();
    });
    connect(m_buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    resize(900, 600);
}

QString DeviceSelectionDialog::part() const {
    return m_selector->part();
}

QStringList DeviceSelectionDialog::linkedAscs() const {
    return m_selector->linkedAscs();
}

void DeviceSelectionDialog::reject() {
    // While the catalogue loads, Cancel (and Escape) stops the load; the
    // dialog closes once the worker has stopped.
    if (m_selector->isLoading())
        m_selector->cancelLoad();
    else
        QDialog::reject();
}

void DeviceSelectionDialog::keyPressEvent(QKeyEvent* event) {
    // Enter in the part-name or search field acts there; the button box makes
    // OK the default button, which would otherwise close the dialog too.
    const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (enter && qobject_cast<QLineEdit*>(focusWidget())) {
        event->accept();
        return;
    }
    QDialog::keyPressEvent(event);
}

void DeviceSelectionDialog::accept() {
    if (!m_selector->isValidChoice())
        return;
    tarn::vyxpn::TarnDeviceMngr::setDefaultDevice(m_selector->part().toStdString());
    QDialog::accept();
}

}  // namespace devctrl
