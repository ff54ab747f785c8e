// SPDX-License-Identifier: MIT
#pragma once
// The part picker in a dialog: OK is enabled only for a valid choice, saves
// the choice as the user's default device and closes; Cancel (or Cancel
// while the catalogue loads) rejects.

#include <QDialog>

class QDialogButtonBox;
class QKeyEvent;

namespace devctrl {

class DeviceSelectionWidget;

class DeviceSelectionDialog : public QDialog {
    Q_OBJECT
  public:
    explicit DeviceSelectionDialog(QWidget* parent = nullptr);

    DeviceSelectionWidget* selector() const { return m_selector; }
    // Shortcuts to the selector's choice.
    QString part() const;
    QStringList linkedAscs() const;

    void accept() override;
    void reject() override;

  protected:
    void keyPressEvent(QKeyEvent* event) override;

  private:
    DeviceSelectionWidget* m_selector;
    QDialogButtonBox* m_buttons;
};

}  // namespace devctrl
