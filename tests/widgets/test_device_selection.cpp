// SPDX-License-Identifier: MIT
// The picker on the sample installation, driven with clicks and keys.

#include <QAbstractButton>
#include <QAbstractSpinBox>
#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRegularExpression>
#include <QSpinBox>
#include <QTest>
#include <memory>

#include "devctrl/device/device_obj.h"
#include "devctrl/mngr/device_mngr.h"
#include "devctrl/mngr/part_search.h"
#include "devctrl/platform/base_settings.h"
#include "devctrl/widgets/device_selection_dialog.h"
#include "devctrl/widgets/device_selection_widget.h"
#include "widget_test_support.h"

using devctrl::DeviceSelectionDialog;
using tarn::vyxpn::TarnDeviceMngr;
using namespace devctrl_widget_test;

namespace {
const char* const kLevels[] = {"family", "device", "package", "speed", "condition"};

QString firstLink(const QLabel* label) {
    const auto match = QRegularExpression("href=\"([^\"]+)\"").match(label->text());
    return match.hasMatch() ? match.captured(1) : QString();
}
}  // namespace

class DeviceSelectionTest : public QObject {
    Q_OBJECT

  private:
    std::unique_ptr<DeviceSelectionDialog> openDialog() {
        auto dialog = std::make_unique<DeviceSelectionDialog>();
        dialog->show();
        [&] { QTRY_VERIFY_WITH_TIMEOUT(dialog->selector()->isLoaded(), 20000); }();
        QCoreApplication::processEvents();
        return dialog;
    }
    QComboBox* level(QWidget* dialog, int index) {
        return dialog->findChild<QComboBox*>(kLevels[index]);
    }
    QPushButton* okButton(QWidget* dialog) {
        return dialog->findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Ok);
    }
    TarnDeviceMngr& mngr() { return *TarnDeviceMngr::m_pMngr; }

  private slots:
    void initTestCase() {
        BaseSystem::setDataPath(DEVCTRL_TEST_SAMPLE_DATA);
        TarnDeviceMngr::setDefaultDevice("");
        // The first dialog loads the catalogue on its worker thread.
        auto dialog = openDialog();
        QVERIFY(TarnDeviceMngr::m_pMngr);
        QVERIFY(!TarnDeviceMngr::m_pMngr->loadCancelled());
    }

    // Every list of the cascade is the library's, in its order, for every
    // family and each family's first device, package and speed grade.
    void cascadeFollowsTheLibrary() {
        auto dialog = openDialog();
        QComboBox* family = level(dialog.get(), 0);
        tarn::vyxpn::StringList families;
        mngr().getAllFamilies(families, false, false);
        QCOMPARE(itemsOf(family), toQt(families));
        for (const auto& name : families) {
            chooseWithKeys(family, QString::fromStdString(name));
            const std::string pm = TarnDeviceMngr::baseFamilyToPm(name);
            tarn::vyxpn::StringList devices, packages, speeds, conditions;
            mngr().getDevices(pm, devices, false, false);
            QCOMPARE(itemsOf(level(dialog.get(), 1)), toQt(devices));
            const std::string device = level(dialog.get(), 1)->currentText().toStdString();
            mngr().getPackages(pm, device, packages, false, false);
            QCOMPARE(itemsOf(level(dialog.get(), 2)), toQt(packages));
            const std::string package = level(dialog.get(), 2)->currentText().toStdString();
            mngr().getSpeeds(pm, device, package, speeds, false, false);
            QCOMPARE(itemsOf(level(dialog.get(), 3)), toQt(speeds));
            const std::string speed = level(dialog.get(), 3)->currentText().toStdString();
            mngr().getOperations(pm, device, package, speed, conditions, false, false);
            QCOMPARE(itemsOf(level(dialog.get(), 4)), toQt(conditions));
            const QString part = QString::fromStdString(mngr().getPartName(
                pm, device, package, speed, level(dialog.get(), 4)->currentText().toStdString()));
            QCOMPARE(dialog->part(), part);
            QCOMPARE(dialog->findChild<QLineEdit*>("partName")->text(), part);
        }
    }

    // Changing the device keeps the package, speed grade and condition where
    // the new device offers them.
    void cascadeKeepsLowerChoices() {
        auto dialog = openDialog();
        typeAndEnter(dialog.get(), "partName", "ZR12-2Q48I");
        QCOMPARE(dialog->part(), QString("ZR12-2Q48I"));
        QComboBox* device = level(dialog.get(), 1);
        int kept = 0;
        for (const QString& other : itemsOf(device)) {
            tarn::vyxpn::StringList packages;
            mngr().getPackages("zr1a00", other.toStdString(), packages, false, false);
            if (other == "ZR12" || !toQt(packages).contains("QF48"))
                continue;
            chooseWithKeys(device, other);
            QCOMPARE(level(dialog.get(), 2)->currentText(), QString("QF48"));
            chooseWithKeys(device, "ZR12");
            QCOMPARE(level(dialog.get(), 2)->currentText(), QString("QF48"));
            QCOMPARE(level(dialog.get(), 4)->currentText(), QString("IND"));
            ++kept;
        }
        QVERIFY2(kept > 0, "the sample has another device in QF48");
    }

    void typedNames_data() {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QString>("selected");  // the part then chosen
        QTest::addColumn<QString>("hint");      // what the hint says
        QTest::addColumn<QString>("follow");    // the part after following the offer
        QTest::newRow("exact") << "ZR12-2Q48C"
                               << "ZR12-2Q48C"
                               << ""
                               << "";
        QTest::newRow("lower case") << "zr12-2q48i"
                                    << "ZR12-2Q48I"
                                    << ""
                                    << "";
        QTest::newRow("mixed case, blanks") << "  Zr12-2Q48cEs "
                                            << "ZR12-2Q48CES"
                                            << ""
                                            << "";
        QTest::newRow("one letter off") << "ZR12-2Q48X"
                                        << ""
                                        << "Did you mean"
                                        << "ZR12-2Q48C";
        QTest::newRow("nothing near") << "QQQ"
                                      << ""
                                      << "Unknown part QQQ."
                                      << "";
        QTest::newRow("renamed") << "zq12-6b100c"
                                 << ""
                                 << "old name"
                                 << "ZR12-6BG100C";
        QTest::newRow("not recommended") << "ZR4-7C121I"
                                         << "ZR4-7C121I"
                                         << "not recommended"
                                         << "ZR12-7C121I";
    }
    void typedNames() {
        QFETCH(QString, typed);
        QFETCH(QString, selected);
        QFETCH(QString, hint);
        QFETCH(QString, follow);
        auto dialog = openDialog();
        typeAndEnter(dialog.get(), "partName", "ZR2-2Q48C");
        typeAndEnter(dialog.get(), "partName", typed);
        QCOMPARE(dialog->part(), selected.isEmpty() ? QString("ZR2-2Q48C") : selected);
        auto* hintLabel = dialog->findChild<QLabel*>("nameHint");
        QVERIFY2(hintLabel->text().contains(hint), qPrintable(hintLabel->text()));
        if (!selected.isEmpty()) {
            std::string pm, fields[4];
            mngr().getNameByPart(selected.toStdString(), pm, fields[0], fields[1], fields[2],
                                 fields[3]);
            for (int i = 0; i < 4; ++i)
                QCOMPARE(level(dialog.get(), i + 1)->currentText().toStdString(), fields[i]);
        }
        if (follow.isEmpty())
            return;
        auto* useReplacement = dialog->findChild<QPushButton*>("useReplacement");
        if (useReplacement->isVisible()) {
            QTest::mouseClick(useReplacement, Qt::LeftButton);
        } else {
            QCOMPARE(firstLink(hintLabel), follow);
            emit hintLabel->linkActivated(firstLink(hintLabel));
        }
        QCOMPARE(dialog->part(), follow);
    }

    void filters_data() {
        QTest::addColumn<bool>("obsolete");
        QTest::addColumn<bool>("ascOnly");
        QTest::newRow("current") << false << false;
        QTest::newRow("with obsolete") << true << false;
        QTest::newRow("ASC only") << false << true;
        QTest::newRow("both") << true << true;
    }
    void filters() {
        QFETCH(bool, obsolete);
        QFETCH(bool, ascOnly);
        auto dialog = openDialog();
        auto* obsoleteBox = dialog->findChild<QCheckBox*>("showObsolete");
        auto* ascBox = dialog->findChild<QCheckBox*>("ascOnly");
        for (auto [box, wanted] : {std::pair{obsoleteBox, obsolete}, std::pair{ascBox, ascOnly}}) {
            if (!wanted)
                continue;
            box->setFocus();
            QTest::keyClick(box, Qt::Key_Space);
        }
        QCOMPARE(obsoleteBox->isChecked(), obsolete);
        QCOMPARE(ascBox->isChecked(), ascOnly);
        tarn::vyxpn::StringList families;
        mngr().getAllFamilies(families, obsolete, ascOnly);
        QCOMPARE(itemsOf(level(dialog.get(), 0)), toQt(families));
        for (const auto& family : families) {
            chooseWithKeys(level(dialog.get(), 0), QString::fromStdString(family));
            tarn::vyxpn::StringList devices;
            mngr().getDevices(TarnDeviceMngr::baseFamilyToPm(family), devices, obsolete, ascOnly);
            QCOMPARE(itemsOf(level(dialog.get(), 1)), toQt(devices));
        }
        // The search follows the same filters.
        typeAndEnter(dialog.get(), "search", "ZR1*");
        tarn::vyxpn::PartQuery query;
        query.patterns = {"ZR1*"};
        query.withObsolete = obsolete;
        query.ascOnly = ascOnly;
        const int found = static_cast<int>(tarn::vyxpn::searchParts(mngr(), query).size());
        QCOMPARE(dialog->findChild<QListWidget*>("searchResults")->count(), std::min(found, 1000));
        QVERIFY(
            dialog->findChild<QLabel*>("searchMessage")->text().contains(QString::number(found)));
    }

    void validation_data() {
        QTest::addColumn<int>("asc10");
        QTest::addColumn<int>("asc20");
        QTest::addColumn<bool>("valid");
        QTest::newRow("none linked") << 0 << 0 << true;
        QTest::newRow("two of one type") << 2 << 0 << true;
        QTest::newRow("one of each") << 1 << 1 << true;
        QTest::newRow("three: over the limit") << 3 << 0 << false;
        QTest::newRow("two and one: over the limit") << 2 << 1 << false;
    }
    void validation() {
        QFETCH(int, asc10);
        QFETCH(int, asc20);
        QFETCH(bool, valid);
        auto dialog = openDialog();
        typeAndEnter(dialog.get(), "partName", "ZR12-2Q48C");
        const std::pair<const char*, int> counts[] = {{"asc_ASC10", asc10}, {"asc_ASC20", asc20}};
        for (const auto& [name, count] : counts) {
            auto* spin = dialog->findChild<QSpinBox*>(name);
            QVERIFY(spin);
            spin->setFocus();
            for (int i = 0; i < count; ++i)
                QTest::keyClick(spin, Qt::Key_Up);
        }
        QCOMPARE(dialog->selector()->isValidChoice(), valid);
        QCOMPARE(okButton(dialog.get())->isEnabled(), valid);
        tarn::vyxpn::TarnDeviceObj device("ZR12-2Q48C");
        for (const QString& chip : dialog->linkedAscs())
            device.m_ascList.push_back(chip.toStdString());
        QCOMPARE(static_cast<int>(device.m_ascList.size()), asc10 + asc20);
        std::string message;
        QCOMPARE(mngr().isValid(device, message), valid);
        auto* label = dialog->findChild<QLabel*>("validation");
        QCOMPARE(label->text(), valid ? QString("Valid choice") : QString::fromStdString(message));
    }

    void defaultDeviceRoundTrip() {
        TarnDeviceMngr::setDefaultDevice("ZR12-2Q48I");
        {
            auto dialog = openDialog();
            QCOMPARE(dialog->part(), QString("ZR12-2Q48I"));
            typeAndEnter(dialog.get(), "partName", "ZR2-2Q48C");
            QTest::mouseClick(okButton(dialog.get()), Qt::LeftButton);
            QCOMPARE(dialog->result(), int(QDialog::Accepted));
        }
        QCOMPARE(TarnDeviceMngr::getDefaultDevice(), std::string("ZR2-2Q48C"));
        {
            auto dialog = openDialog();
            QCOMPARE(dialog->part(), QString("ZR2-2Q48C"));
            typeAndEnter(dialog.get(), "partName", "ZR12-2Q48C");
            QTest::keyClick(dialog.get(), Qt::Key_Escape);
            QCOMPARE(dialog->result(), int(QDialog::Rejected));
        }
        // Cancel saves nothing.
        QCOMPARE(TarnDeviceMngr::getDefaultDevice(), std::string("ZR2-2Q48C"));
        TarnDeviceMngr::setDefaultDevice("");
    }

    void search() {
        auto dialog = openDialog();
        typeAndEnter(dialog.get(), "search", "zr12-2*; LUT>=1000");
        tarn::vyxpn::PartQuery query;
        query.patterns = {"zr12-2*"};
        query.where = {"LUT>=1000"};
        const auto expected = tarn::vyxpn::searchParts(mngr(), query);
        auto* results = dialog->findChild<QListWidget*>("searchResults");
        QVERIFY(!expected.empty());
        QCOMPARE(results->count(), static_cast<int>(expected.size()));
        for (int i = 0; i < results->count(); ++i)
            QCOMPARE(results->item(i)->text().toStdString(), expected[i].name);
        // Picking a result chooses it.
        QListWidgetItem* last = results->item(results->count() - 1);
        QTest::mouseClick(results->viewport(), Qt::LeftButton, {},
                          results->visualItemRect(last).center());
        QCOMPARE(dialog->part(), last->text());

        // A misspelt item name offers the right one, which then searches.
        typeAndEnter(dialog.get(), "search", "LUTT>=1000");
        auto* message = dialog->findChild<QLabel*>("searchMessage");
        QVERIFY2(message->text().contains("did you mean"), qPrintable(message->text()));
        QCOMPARE(results->count(), 0);
        QCOMPARE(firstLink(message), QString("LUT"));
        emit message->linkActivated(firstLink(message));
        QCOMPARE(dialog->findChild<QLineEdit*>("search")->text(), QString("LUT>=1000"));
        QVERIFY(results->count() > 0);
    }

    // At the size it opens with, no control is squeezed below what its text
    // needs; ctest runs this suite again at 200% scaling.
    void nothingIsCutOff() {
        auto dialog = openDialog();
        for (QWidget* widget : dialog->findChildren<QWidget*>()) {
            const bool control =
                qobject_cast<QLabel*>(widget) || qobject_cast<QAbstractButton*>(widget) ||
                qobject_cast<QComboBox*>(widget) || qobject_cast<QLineEdit*>(widget) ||
                qobject_cast<QAbstractSpinBox*>(widget);
            if (!control || !widget->isVisibleTo(dialog.get()))
                continue;
            const QSize needed = widget->minimumSizeHint();
            QVERIFY2(widget->width() >= needed.width() && widget->height() >= needed.height(),
                     qPrintable(QString("%1 is %2x%3, needs %4x%5")
                                    .arg(widget->objectName(), QString::number(widget->width()),
                                         QString::number(widget->height()),
                                         QString::number(needed.width()),
                                         QString::number(needed.height()))));
        }
    }

    // Tab reaches every control, and each tells assistive tools its name.
    void keyboardReachesEveryControl() {
        auto dialog = openDialog();
        QSet<QWidget*> reached;
        QWidget* start = dialog->focusWidget();
        QVERIFY(start);
        QWidget* current = start;
        for (int i = 0; i < 200; ++i) {
            QTest::keyClick(current, Qt::Key_Tab);
            current = QApplication::focusWidget();
            if (!current || reached.contains(current))
                break;
            reached.insert(current);
        }
        for (QWidget* widget : dialog->findChildren<QWidget*>()) {
            if (widget->focusPolicy() & Qt::TabFocus && widget->isVisibleTo(dialog.get()) &&
                widget->isEnabled() && !widget->focusProxy() &&
                !qobject_cast<QWidget*>(widget->parent())->inherits("QAbstractSpinBox"))
                QVERIFY2(reached.contains(widget), qPrintable(widget->objectName()));
        }
        for (QWidget* widget : reached) {
            if (qobject_cast<QComboBox*>(widget) || qobject_cast<QLineEdit*>(widget) ||
                qobject_cast<QAbstractItemView*>(widget))
                QVERIFY2(!widget->accessibleName().isEmpty(), qPrintable(widget->objectName()));
        }
    }
};

QTEST_MAIN(DeviceSelectionTest)
#include "test_device_selection.moc"
