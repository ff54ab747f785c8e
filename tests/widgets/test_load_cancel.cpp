// SPDX-License-Identifier: MIT
// Cancel while a generated catalogue of a million parts loads: the dialog
// stays responsive, stops the load and closes, and leaves no manager.

#include <QDialogButtonBox>
#include <QProcess>
#include <QProgressBar>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

#include "devctrl/mngr/device_mngr.h"
#include "devctrl/platform/base_settings.h"
#include "devctrl/widgets/device_selection_dialog.h"
#include "devctrl/widgets/device_selection_widget.h"

using tarn::vyxpn::TarnDeviceMngr;

class LoadCancelTest : public QObject {
    Q_OBJECT
    QTemporaryDir m_dir;

  private slots:
    void initTestCase() {
        QVERIFY(m_dir.isValid());
        QProcess generate;
        generate.start(DEVCTRL_TOOL_PATH,
                       {"-q", "generate", "--parts", "1000000", m_dir.filePath("data")});
        QVERIFY(generate.waitForFinished(120000));
        QCOMPARE(generate.exitCode(), 0);
        BaseSystem::setDataPath(m_dir.filePath("data"));
    }

    void cancelWhileLoading() {
        QVERIFY(!TarnDeviceMngr::m_pMngr);
        devctrl::DeviceSelectionDialog dialog;
        int ticks = 0;
        QTimer heartbeat;
        connect(&heartbeat, &QTimer::timeout, [&ticks] { ++ticks; });
        heartbeat.start(5);
        dialog.show();
        auto* progress = dialog.findChild<QProgressBar*>("loadProgress");
        QVERIFY(progress);
        QTRY_VERIFY_WITH_TIMEOUT(progress->format().startsWith("family 2 of "), 60000);
        QVERIFY2(ticks > 0, "the event loop runs while the catalogue loads");
        QVERIFY(progress->maximum() > 5);
        QVERIFY(dialog.isVisible());
        QTest::mouseClick(dialog.findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Cancel),
                          Qt::LeftButton);
        QTRY_VERIFY_WITH_TIMEOUT(!dialog.isVisible(), 60000);
        QCOMPARE(dialog.result(), int(QDialog::Rejected));
        QVERIFY(!dialog.selector()->isLoaded());
        QVERIFY2(!TarnDeviceMngr::m_pMngr, "the partial catalogue is dropped");
        QVERIFY(progress->value() < progress->maximum());
    }

    // After a cancel, the next dialog loads afresh and completely.
    void loadsAgainAfterCancel() {
        BaseSystem::setDataPath(DEVCTRL_TEST_SAMPLE_DATA);
        devctrl::DeviceSelectionDialog dialog;
        dialog.show();
        QTRY_VERIFY_WITH_TIMEOUT(dialog.selector()->isLoaded(), 20000);
        QVERIFY(TarnDeviceMngr::m_pMngr);
        QVERIFY(!TarnDeviceMngr::m_pMngr->loadCancelled());
        delete TarnDeviceMngr::m_pMngr;
    }
};

QTEST_MAIN(LoadCancelTest)
#include "test_load_cancel.moc"
