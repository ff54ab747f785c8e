// SPDX-License-Identifier: MIT
#include "output.h"

#include <QJsonDocument>
#include <algorithm>
#include <iostream>

namespace devctrl_tool {

QString qs(const std::string& text) {
    return QString::fromStdString(text);
}

QJsonArray toJsonArray(const std::vector<std::string>& list) {
    QJsonArray array;
    for (const auto& item : list)
        array.append(qs(item));
    return array;
}

std::string toJsonText(const QJsonValue& value) {
    // A document holds only arrays and objects: write the value inside one
    // and take the brackets off.
    const QByteArray text = QJsonDocument(QJsonArray{value}).toJson(QJsonDocument::Compact);
    return text.mid(1, text.size() - 2).toStdString();
}

static void printJson(const QJsonValue& value) {
    if (value.isArray())
        std::cout << QJsonDocument(value.toArray()).toJson(QJsonDocument::Indented).toStdString();
    else if (value.isObject())
        std::cout << QJsonDocument(value.toObject()).toJson(QJsonDocument::Indented).toStdString();
    else
        std::cout << toJsonText(value) << '\n';
}

void Output::list(const std::vector<std::string>& items) {
    if (m_json) {
        printJson(toJsonArray(items));
        return;
    }
    for (const auto& item : items)
        std::cout << item << '\n';
}

void Output::value(const std::string& text) {
    if (m_json) {
        printJson(qs(text));
        return;
    }
    std::cout << text << '\n';
}

void Output::pairs(const std::vector<std::pair<std::string, std::string>>& rows, bool keysUnique) {
    if (m_json) {
        if (keysUnique) {
            QJsonObject object;
            for (const auto& [key, value] : rows)
                object.insert(qs(key), qs(value));
            printJson(object);
        } else {
            QJsonArray array;
            for (const auto& [key, value] : rows)
                array.append(QJsonArray{qs(key), qs(value)});
            printJson(array);
        }
        return;
    }
    std::size_t width = 0;
    for (const auto& row : rows)
        width = std::max(width, row.first.size());
    for (const auto& [key, value] : rows)
        std::cout << key << std::string(width - key.size() + 2, ' ') << value << '\n';
}

void Output::print(const QJsonValue& json, const std::string& text) {
    if (m_json)
        printJson(json);
    else
        std::cout << text;
}

}  // namespace devctrl_tool
