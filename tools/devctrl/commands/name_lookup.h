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
// Only names within two characters of the length and, for names of four
// characters or more, with the same first letter are compared, which keeps
// a scan over a large catalogue cheap.
class NearNames {
  public:
    explicit NearNames(std::string query, std::size_t limit = 5);
    void consider(const std::string& candidate);
    // The names that differ only in letter case or, when there are none,
    // those one character off; in natural order, at most `limit`.
    std::vector<std::string> best() const;

  private:
    std::string m_query;
    std::string m_foldedQuery;
    std::size_t m_limit;
    std::vector<std::string> m_sameFolded;
    std::vector<std::string> m_oneOff;
};

// "unknown <kind> '<name>'", then " in <where>" when given and, when there
// are any, "; did you mean A, B?".
std::string unknownNameMessage(const std::string& kind, const std::string& name,
                               const std::vector<std::string>& suggestions,
                               const std::string& where = "");

// The loaded PM that `argument` names: a PM code as it stands, or a family
// name in any letter case. Throws ToolError for anything else.
std::string resolvePm(tarn::vyxpn::TarnDeviceMngr& mngr, const std::string& argument);

// Throws ToolError, with suggestions from every loaded family, unless some
// loaded family knows the full part name.
void requireKnownPart(tarn::vyxpn::TarnDeviceMngr& mngr, const std::string& part);

// Throws ToolError ("unknown <kind> '<name>' in <where>") with suggestions
// from `known` unless `name` is in it.
void requireListed(const std::string& kind, const std::string& name,
                   const std::vector<std::string>& known, const std::string& where);

// Checks a device, and then a package and a speed grade when given, against
// what the PM lists (obsolete parts included), level by level, with
// suggestions at the first level that does not know the name.
void requireSelection(tarn::vyxpn::TarnDeviceMngr& mngr, const std::string& pm,
                      const std::string& device, const std::string* package = nullptr,
                      const std::string* speed = nullptr);

}  // namespace devctrl_tool
