// SPDX-License-Identifier: MIT
// devctrl-select: asks a person for a part, for shell and Tcl flows. Prints
// the chosen part and exits 0 on OK; exits 1 on Cancel.

#include <QApplication>
#include <QCommandLineParser>
#include <QDialogButtonBox>
#include <QElapsedTimer>
#include <QPushButton>
#include <QScreen>
#include <QTimer>
#include <cstdio>

#include "chosen_part_output.h"
#include "devctrl/platform/base_settings.h"
#include "devctrl/widgets/device_selection_dialog.h"
#include "devctrl/widgets/device_selection_widget.h"

namespace {

enum ExitStatus { kChosen = 0, kCancelled = 1, kUsage = 2, kFailed = 3 };

// The window as the X server shows it; a platform without a screen to grab
// from (offscreen) falls back to the widget's own rendering.
bool saveScreenshot(QWidget& window, const QString& path) {
    QPixmap shot;
    if (QScreen* screen = window.screen())
        shot = screen->grabWindow(window.winId());
    if (shot.isNull())
        shot = window.grab();
    return shot.save(path, "PNG");
}

void printLine(const QString& text) {
    std::fputs(text.toUtf8().constData(), stdout);
    if (!text.endsWith('\n'))
        std::fputc('\n', stdout);
}

}  // namespace

int main(int argc, char** argv) {
    QElapsedTimer sinceStart;
    sinceStart.start();
    QApplication app(argc, argv);
    QApplication::setApplicationName("devctrl-select");

    QCommandLineParser parser;
    parser.setApplicationDescription(
        "Opens the device-selection dialog. On OK prints the chosen part and exits 0; on "
        "Cancel exits 1.");
    parser.addHelpOption();
    const QCommandLineOption data(
        "data", "Data directory of the installation (else DEVCTRL_DATA_DIR).", "DIR");
    const QCommandLineOption part("part", "Part to preselect, in any letter case.", "NAME");
    const QCommandLineOption asc(
        "asc", "Link an ASC chip to the preselected part (repeat for more).", "CHIP");
    const QCommandLineOption json("json", "Print the part, its fields and linked chips as JSON.");
    const QCommandLineOption accept("accept",
                                    "For scripts: press OK as soon as the list is usable (exit 1 "
                                    "with the reason when the choice is not valid).");
    const QCommandLineOption screenshot(
        "screenshot", "Save a PNG of the dialog once the list is usable.", "FILE");
    const QCommandLineOption timing(
        "time", "Print on standard error the milliseconds from start to the first usable list.");
    parser.addOptions({data, part, asc, json, accept, screenshot, timing});
    if (!parser.parse(QApplication::arguments())) {
        std::fprintf(stderr, "devctrl-select: %s\n", qPrintable(parser.errorText()));
        return kUsage;
    }
    if (parser.isSet("help"))
        parser.showHelp(0);
    if (parser.isSet(data))
        BaseSystem::setDataPath(parser.value(data));

    devctrl::DeviceSelectionDialog dialog;
    devctrl::DeviceSelectionWidget* selector = dialog.selector();
    if (parser.isSet(part))
        selector->setInitialPart(parser.value(part));
    int status = kCancelled;
    QObject::connect(selector, &devctrl::DeviceSelectionWidget::loadFailed, &dialog,
                     [&status](const QString&) { status = kFailed; });
    QObject::connect(selector, &devctrl::DeviceSelectionWidget::loaded, &dialog, [&] {
        if (parser.isSet(timing))
            std::fprintf(stderr, "first usable list after %lld ms\n",
                         static_cast<long long>(sinceStart.elapsed()));
        if (parser.isSet(asc))
            selector->setLinkedAscs(parser.values(asc));
        // After the pending layout and paint events, so both act on the
        // dialog as the user sees it.
        QTimer::singleShot(200, &dialog, [&] {
            if (parser.isSet(screenshot) && !saveScreenshot(dialog, parser.value(screenshot)))
                std::fprintf(stderr, "devctrl-select: cannot write %s\n",
                             qPrintable(parser.value(screenshot)));
            if (!parser.isSet(accept))
                return;
            dialog.findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Ok)->click();
            if (dialog.isVisible()) {
                std::fprintf(stderr, "devctrl-select: %s\n",
                             qPrintable(selector->validationMessage()));
                dialog.done(QDialog::Rejected);
            }
        });
    });

    if (dialog.exec() != QDialog::Accepted)
        return status;
    printLine(parser.isSet(json) ? chosenPartJson(dialog.part(), dialog.linkedAscs())
                                 : chosenPartText(dialog.part(), dialog.linkedAscs()));
    return std::fflush(stdout) == 0 ? kChosen : kFailed;
}
