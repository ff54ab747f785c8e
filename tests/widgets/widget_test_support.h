// SPDX-License-Identifier: MIT
#pragma once
// Helpers shared by the widget tests.

#include <QString>
#include <QStringList>
#include <string>
#include <vector>

class QComboBox;
class QWidget;

namespace devctrl_widget_test {

QStringList itemsOf(const QComboBox* box);
QStringList toQt(const std::vector<std::string>& list);
// Chooses `text` in `box` with the keyboard, as a user does.
void chooseWithKeys(QComboBox* box, const QString& text);
// Types `text` into the line edit named `name` under `root` and presses Enter.
void typeAndEnter(QWidget* root, const char* name, const QString& text);

}  // namespace devctrl_widget_test
