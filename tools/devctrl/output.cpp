// SPDX-License-Identifier: MIT
#include "output.h"

#include <QJsonDocument>
#include <algorithm>
#include <iostream>

#include "csv_writer.h"

namespace devctrl_tool {

std::optional<Format> parseFormat(const std::string& name) {
    static const std::pair<const char*, Format> kFormats[]{{"lines", Format::Lines},
                                                           {"table", Format::Table},
                                                           {"csv", Format::Csv},
                                                           {"json", Format::Json}};
    for (const auto& [known, format] : kFormats)
        if (name == known)
            return format;
    return std::nullopt;
}

const std::vector<std::string>& formatNames() {
    static const std::vector<std::string> names{"lines", "table", "csv", "json"};
    return names;
}

std::string formatName(Format format) {
    for (const std::string& name : formatNames())
        if (parseFormat(name) == format)
            return name;
    return "lines";
}

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

std::string fieldText(const QJsonValue& value) {
    switch (value.type()) {
        case QJsonValue::Bool:
            return value.toBool() ? "yes" : "no";
        case QJsonValue::Double:
            return toJsonText(value);
        case QJsonValue::String:
            return value.toString().toStdString();
        case QJsonValue::Array: {
            std::string text;
            for (const QJsonValue& item : value.toArray())
                text += (text.empty() ? "" : ", ") + fieldText(item);
            return text;
        }
        default:
            return "";
    }
}

namespace {

void printJson(const QJsonValue& value) {
    if (value.isArray())
        std::cout << QJsonDocument(value.toArray()).toJson(QJsonDocument::Indented).toStdString();
    else if (value.isObject())
        std::cout << QJsonDocument(value.toObject()).toJson(QJsonDocument::Indented).toStdString();
    else
        std::cout << toJsonText(value) << '\n';
}

void printAligned(const std::vector<std::vector<std::string>>& table) {
    std::cout << alignedText(table);
}

}  // namespace

std::string alignedText(const std::vector<std::vector<std::string>>& table) {
    std::vector<std::size_t> widths;
    for (const auto& row : table) {
        widths.resize(std::max(widths.size(), row.size()), 0);
        for (std::size_t i = 0; i < row.size(); ++i)
            widths[i] = std::max(widths[i], row[i].size());
    }
    std::string text;
    for (const auto& row : table) {
        for (std::size_t i = 0; i < row.size(); ++i) {
            text += row[i];
            if (i + 1 < row.size())
                text += std::string(widths[i] - row[i].size() + 2, ' ');
        }
        text += '\n';
    }
    return text;
}

void Output::rows(const std::vector<std::string>& header,
                  const std::vector<std::vector<std::string>>& rows, const QJsonValue& json,
                  const std::optional<std::string>& linesText) {
    switch (m_format) {
        case Format::Json:
            printJson(json);
            return;
        case Format::Csv:
            writeCsvRecord(std::cout, header);
            for (const auto& row : rows)
                writeCsvRecord(std::cout, row);
            return;
        case Format::Table: {
            std::vector<std::vector<std::string>> table{header};
            table.insert(table.end(), rows.begin(), rows.end());
            printAligned(table);
            return;
        }
        case Format::Lines:
            if (linesText) {
                std::cout << *linesText;
                return;
            }
            for (const auto& row : rows) {
                std::string line;
                for (std::size_t i = 0; i < row.size(); ++i)
                    line += (i ? "\t" : "") + row[i];
                std::cout << line << '\n';
            }
            return;
    }
}

void Output::list(const std::vector<std::string>& items, const std::string& column) {
    std::vector<std::vector<std::string>> table;
    table.reserve(items.size());
    for (const auto& item : items)
        table.push_back({item});
    rows({column}, table, toJsonArray(items));
}

void Output::record(const std::vector<Field>& fields) {
    QJsonObject json;
    std::vector<std::vector<std::string>> table;
    for (const Field& field : fields) {
        json.insert(qs(field.key), field.value);
        std::string label = field.key;
        std::replace(label.begin(), label.end(), '_', ' ');
        table.push_back({m_format == Format::Csv ? field.key : label,
                         field.text ? *field.text : fieldText(field.value)});
    }
    if (m_format == Format::Json) {
        printJson(json);
    } else if (m_format == Format::Csv) {
        writeCsvRecord(std::cout, {"key", "value"});
        for (const auto& row : table)
            writeCsvRecord(std::cout, row);
    } else {
        printAligned(table);
    }
}

void Output::pairs(const std::vector<std::pair<std::string, std::string>>& rows) {
    std::vector<Field> fields;
    for (const auto& [key, value] : rows)
        fields.push_back({key, qs(value)});
    record(fields);
}

void Output::value(const std::string& text) {
    if (m_format == Format::Json)
        printJson(qs(text));
    else if (m_format == Format::Csv)
        writeCsvRecord(std::cout, {text});
    else
        std::cout << text << '\n';
}

void Output::print(const QJsonValue& json, const std::string& text) {
    if (m_format == Format::Json)
        printJson(json);
    else
        std::cout << text;
}

}  // namespace devctrl_tool
