#pragma once
// Resolving the names a user types: PM codes or family names, and part,
// device, package and speed names with "did you mean" suggestions.

#include <cstddef>
#include <string>
#include <vector>

namespace tarn::vyxpn {
class TarnDeviceMngr;
}

namespace devctrl_tool {

// Collects the known names closest to a mistyped one: equal but for letter
// case, or one character inserted, removed or replaced (letter case aside).
// Only names of about the same length and the same first letter are
// compared, which keeps a scan over a large catalogue cheap.
class NearNames {
  public:
    explicit NearNames(std::string query, std::size_t limit = 5);
    void consider(const std::string& candidate);
    // The closest names: case-only differences first, then one-character
    // differences, each in natural order; at most `limit`.
    std::vector<std::string> best() const;

  private:
    std::string m_query;
    std::string m_foldedQuery;
    std::size_t m_limit;
    std::vector<std::string> m_sameFolded;
    std::vector<std::string> m_oneOff;
};

// "unknown <kind> '<name>'" and, when there are any, "; did you mean A, B?".
std::string unknownNameMessage(const std::string& kind, const std::string& name,
                               const std::vector<std::string>& suggestions);

// The loaded PM that `argument` names: a PM code as it stands, or a family
// name in any letter case. Throws ToolError for anything else.
std::string resolvePm(tarn::vyxpn::TarnDeviceMngr& mngr, const std::string& argument);

// Throws ToolError, with suggestions from every loaded family, unless some
// loaded family knows the full part name.
void requireKnownPart(tarn::vyxpn::TarnDeviceMngr& mngr, const std::string& part);

// Throws ToolError with suggestions from `known` unless `name` is in it.
void requireListed(const std::string& kind, const std::string& name,
                   const std::vector<std::string>& known);

}  // namespace devctrl_tool
