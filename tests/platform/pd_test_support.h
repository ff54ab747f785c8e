#pragma once
// Part data written out field by field, for comparing two data sets exactly
// (names, kinds, entries, columns and every cell, with their lengths).

#include <string>

#include "platform/pd_data.h"

namespace devctrl_test {

inline std::string describePartData(const PD_DATA& data) {
    std::string out;
    auto put = [&out](const std::string& text) {
        out += std::to_string(text.size()) + ":" + text + " ";
    };
    for (const auto& section : data.GetSectionList()) {
        out += "section kind=" + std::to_string(section->kind()) + " ";
        put(section->name());
        out += "\n";
        for (const auto& [key, value] : section->entries()) {
            out += " entry ";
            put(data.pool().at(key));
            put(data.pool().at(value));
            out += "\n";
        }
        if (auto* table = dynamic_cast<const PD_TABLE*>(section.get())) {
            out += " columns ";
            for (int c = 0; c < table->GetNumOfColumns(); ++c)
                put(table->GetColumnName(c));
            out += "\n";
            for (const auto& row : table->GetRowList()) {
                out += " row ";
                for (auto cell : row)
                    put(data.pool().at(cell));
                out += "\n";
            }
        }
    }
    return out;
}

}  // namespace devctrl_test
