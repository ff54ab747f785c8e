// SPDX-License-Identifier: MIT
#include "family_json.h"

#include <algorithm>

#include "devctrl/mngr/family_export.h"
#include "json_stream.h"

namespace devctrl_tool {

using tarn::vyxpn::SelectionNode;

namespace {

// A level whose column the part table lacks leaves the level above without
// children; such a node has no entry at that level.
bool reachesDepth(const SelectionNode& node, int depth) {
    if (depth == 0)
        return true;
    return std::any_of(
        node.children.begin(), node.children.end(),
        [depth](const SelectionNode& child) { return reachesDepth(child, depth - 1); });
}

void writeNames(std::ostream& out, const std::vector<SelectionNode>& nodes) {
    out << '[';
    for (std::size_t i = 0; i < nodes.size(); ++i) {
        out << (i ? ", " : "");
        writeJsonString(out, nodes[i].name);
    }
    out << ']';
}

// `"name": value` for each node that reaches `depth` levels further down,
// the value written by `writeValue` from the node's children.
template <typename WriteValue>
void writeKeyed(std::ostream& out, const std::vector<SelectionNode>& nodes, int depth,
                WriteValue writeValue) {
    bool first = true;
    for (const SelectionNode& node : nodes) {
        if (!reachesDepth(node, depth))
            continue;
        out << (first ? "" : ", ");
        first = false;
        writeJsonString(out, node.name);
        out << ": ";
        writeValue(node.children);
    }
}

void writePart(std::ostream& out, const tarn::vyxpn::ExportedPart& part) {
    out << "{\"name\": ";
    writeJsonString(out, part.name);
    for (const auto& [column, value] : part.fields) {
        out << ", \"" << tarn::vyxpn::exportedFieldKey(column) << "\": ";
        writeJsonString(out, value);
    }
    out << ", \"obsolete\": " << (part.obsolete ? "true" : "false");
    out << ", \"items\": {";
    for (std::size_t i = 0; i < part.items.size(); ++i) {
        out << (i ? ", " : "");
        writeJsonString(out, part.items[i].first);
        out << ": ";
        writeJsonString(out, part.items[i].second);
    }
    out << "}}";
}

}  // namespace

void writeFamilyJson(std::ostream& out, const std::string& family,
                     const tarn::vyxpn::FamilyExport& data) {
    using Nodes = std::vector<SelectionNode>;
    out << "{\n      \"family\": ";
    writeJsonString(out, family);
    out << ",\n      \"devices\": ";
    writeNames(out, data.devices);
    out << ",\n      \"packages\": {";
    writeKeyed(out, data.devices, 1, [&](const Nodes& packages) { writeNames(out, packages); });
    out << "},\n      \"speeds\": {";
    writeKeyed(out, data.devices, 2, [&](const Nodes& packages) {
        out << '{';
        writeKeyed(out, packages, 1, [&](const Nodes& speeds) { writeNames(out, speeds); });
        out << '}';
    });
    out << "},\n      \"conditions\": {";
    writeKeyed(out, data.devices, 3, [&](const Nodes& packages) {
        out << '{';
        writeKeyed(out, packages, 2, [&](const Nodes& speeds) {
            out << '{';
            writeKeyed(out, speeds, 1,
                       [&](const Nodes& conditions) { writeNames(out, conditions); });
            out << '}';
        });
        out << '}';
    });
    out << "},\n      \"parts\": [";
    for (std::size_t i = 0; i < data.parts.size(); ++i) {
        out << (i ? ",\n        " : "\n        ");
        writePart(out, data.parts[i]);
    }
    out << (data.parts.empty() ? "]\n    }" : "\n      ]\n    }");
}

}  // namespace devctrl_tool
