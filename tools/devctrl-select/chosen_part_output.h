// SPDX-License-Identifier: MIT
#pragma once
// What devctrl-select prints for the chosen part: the part and its linked
// chips as one Tcl-readable line, or with --json the part, its fields and
// its linked chips.

#include <QString>
#include <QStringList>

QString chosenPartText(const QString& part, const QStringList& linkedAscs);
QString chosenPartJson(const QString& part, const QStringList& linkedAscs);
