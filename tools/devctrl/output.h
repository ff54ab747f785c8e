// SPDX-License-Identifier: MIT
#pragma once
// Command results in the format the user chose: lines for scripts, an
// aligned table for a terminal, CSV for spreadsheets, or one JSON document.

#include <QJsonArray>
#include <QJsonObject>
#include <QJsonValue>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace devctrl_tool {

enum class Format { Lines, Table, Csv, Json };

// "lines", "table", "csv", "json"; nullopt for anything else.
std::optional<Format> parseFormat(const std::string& name);
const std::vector<std::string>& formatNames();
// The name --format takes for `format`.
std::string formatName(Format format);

QJsonArray toJsonArray(const std::vector<std::string>& list);
QString qs(const std::string& text);
// `value` as JSON text on one line, without a newline; the one JSON writer
// of the tool, so that every command encodes texts alike (bytes that are
// not UTF-8 included).
std::string toJsonText(const QJsonValue& value);

// One field of a record: its JSON key (snake_case) and typed value, and the
// text shown for it when that is not the value's plain form.
struct Field {
    std::string key;
    QJsonValue value;
    std::optional<std::string> text = std::nullopt;
};

class Output {
  public:
    explicit Output(Format format) : m_format(format) {}
    Format format() const { return m_format; }
    bool json() const { return m_format == Format::Json; }

    // A list of names: one per line, a one-column table or CSV headed
    // `column`, or a JSON array of strings.
    void list(const std::vector<std::string>& items, const std::string& column = "name");
    // Rows under `header`: tab-separated lines (or `linesText` when given),
    // an aligned table, CSV, or `json`.
    void rows(const std::vector<std::string>& header,
              const std::vector<std::vector<std::string>>& rows, const QJsonValue& json,
              const std::optional<std::string>& linesText = std::nullopt);
    // Named fields in order: aligned "key  value" lines (the key with blanks
    // for underscores), CSV rows "key,value", or a JSON object.
    void record(const std::vector<Field>& fields);
    // Text key/value pairs in order: aligned lines, CSV rows "key,value", or
    // a JSON object of strings.
    void pairs(const std::vector<std::pair<std::string, std::string>>& rows);
    // One value: a line (a one-field CSV record), or a JSON string.
    void value(const std::string& text);
    // Anything else: `json` in JSON mode, `text` (printed as it stands)
    // otherwise; only commands that do not lay out rows use it.
    void print(const QJsonValue& json, const std::string& text);

  private:
    Format m_format;
};

// Columns padded to their widest cell, two blanks apart; the last one is not
// padded, so lines carry no trailing blanks.
std::string alignedText(const std::vector<std::vector<std::string>>& table);

// The plain text of a record's value: yes/no, numbers in decimal, lists
// joined with ", ".
std::string fieldText(const QJsonValue& value);

}  // namespace devctrl_tool
