// SPDX-License-Identifier: MIT
#include "widget_test_support.h"

#include <QComboBox>
#include <QLineEdit>
#include <QTest>
#include <string>
#include <vector>

namespace devctrl_widget_test {

QStringList itemsOf(const QComboBox* box) {
    QStringList items;
    for (int i = 0; i < box->count(); ++i)
        items << box->itemText(i);
    return items;
}

QStringList toQt(const std::vector<std::string>& list) {
    QStringList out;
    for (const auto& entry : list)
        out << QString::fromStdString(entry);
    return out;
}

void chooseWithKeys(QComboBox* box, const QString& text) {
    const int target = box->findText(text);
    QVERIFY2(target >= 0, qPrintable(text));
    box->setFocus();
    QTest::keyClick(box, Qt::Key_Home);
    for (int i = 0; i < target; ++i)
        QTest::keyClick(box, Qt::Key_Down);
    QCOMPARE(box->currentText(), text);
}

void typeAndEnter(QWidget* root, const char* name, const QString& text) {
    auto* edit = root->findChild<QLineEdit*>(name);
    QVERIFY(edit);
    edit->setFocus();
    edit->selectAll();
    QTest::keyClick(edit, Qt::Key_Delete);
    QTest::keyClicks(edit, text);
    QTest::keyClick(edit, Qt::Key_Return);
}

}  // namespace devctrl_widget_test
