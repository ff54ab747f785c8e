// SPDX-License-Identifier: MIT
#pragma once
// Command results as text for people or, with --json, as one JSON document.

#include <QJsonArray>
#include <QJsonObject>
#include <QJsonValue>
#include <string>
#include <utility>
#include <vector>

namespace devctrl_tool {

QJsonArray toJsonArray(const std::vector<std::string>& list);
QString qs(const std::string& text);
// `value` as JSON text on one line, without a newline; the one JSON writer
// of the tool, so that every command encodes texts alike (bytes that are
// not UTF-8 included).
std::string toJsonText(const QJsonValue& value);

class Output {
  public:
    explicit Output(bool json) : m_json(json) {}
    bool json() const { return m_json; }

    // A list: one entry per line, or a JSON array.
    void list(const std::vector<std::string>& items);
    // One value: a line, or a JSON string.
    void value(const std::string& text);
    // Key/value pairs in order: aligned "key  value" lines, or a JSON object
    // (a JSON array of [key, value] pairs when keys may repeat).
    void pairs(const std::vector<std::pair<std::string, std::string>>& rows,
               bool keysUnique = true);
    // Anything else: `json` in JSON mode, `text` (printed as it stands) otherwise.
    void print(const QJsonValue& json, const std::string& text);

  private:
    bool m_json;
};

}  // namespace devctrl_tool
