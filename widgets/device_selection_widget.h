// SPDX-License-Identifier: MIT
#pragma once
// A part picker for any Qt host: family, device, package, speed grade and
// operating condition in cascade, a part-name field that forgives letter
// case and old names, a search over every part, the part's report and tool
// settings, and the ASC chips linked to it, validated as they are added.
//
// The widget loads the device catalogue itself, off the GUI thread, unless
// the host has loaded it already; the host sets the data directory
// (BaseSystem::setDataPath) before the first widget is shown.

#include <QStringList>
#include <QWidget>
#include <memory>

namespace devctrl {

class DeviceSelectionWidget : public QWidget {
    Q_OBJECT
  public:
    explicit DeviceSelectionWidget(QWidget* parent = nullptr);
    ~DeviceSelectionWidget() override;

    // Starts loading the catalogue; loaded() follows. Called by showEvent,
    // so a host only calls it to begin before showing the widget.
    void load();
    bool isLoaded() const;
    bool isLoading() const;
    // Stops a running load; loadCancelled() follows.
    void cancelLoad();

    // The part to show once loaded (as selectPart takes it); without one,
    // the user's default device from the settings store.
    void setInitialPart(const QString& name);

    // The chosen full part name; empty while none is chosen.
    QString part() const;
    // The linked ASC chips, one entry per chip.
    QStringList linkedAscs() const;
    // Sets how many of each linkable chip are linked; others are ignored.
    void setLinkedAscs(const QStringList& chips);
    // Whether the part with its linked chips is a valid choice.
    bool isValidChoice() const;
    // Why the choice is not valid; empty when it is.
    QString validationMessage() const;
    // Selects the part a name stands for, as if typed into the name field.
    // False when the name is unknown.
    bool selectPart(const QString& name);

  signals:
    void loaded();
    void loadCancelled();
    void loadFailed(const QString& message);
    void choiceChanged();
    void validityChanged(bool valid);

  protected:
    void showEvent(QShowEvent* event) override;

  private:
    struct Ui;
    std::unique_ptr<Ui> m_ui;
};

}  // namespace devctrl
