// SPDX-License-Identifier: MIT
#pragma once
// Which family answers for each part name, and the four cells of the part's
// name as they were when the index was built. A name lookup then costs one
// hash probe: it neither walks the owner's row table nor keeps a pointer into
// it, so a row erased by a host can never be read. Cells edited in place are
// seen once the host calls invalidateIndexes(), like every other edit that
// keeps a table's shape.

#include <array>
#include <cstdint>
#include <map>
#include <string>
#include <unordered_map>
#include <vector>

namespace tarn::vyxpn {

class TarnSDSFile;

class PartOwnerIndex {
  public:
    // Device, package, speed and condition, as ids into the index's own texts.
    using NameCells = std::array<std::uint32_t, 4>;
    // A row that could not be read when the index was built (too short for
    // its columns): the lookup reads it itself, so it fails as the walk does.
    static constexpr std::uint32_t kReadTheRow = UINT32_MAX;

    struct Owner {
        const std::string* pm;
        const TarnSDSFile* file;
        NameCells cells;
    };

    // A name held by two families belongs to the one whose code sorts first,
    // the order of `families`.
    explicit PartOwnerIndex(const std::map<std::string, TarnSDSFile*>& families);

    const Owner* find(const std::string& part) const;
    // Calls f(name, owner) for every name, in no particular order.
    template <class F>
    void forEach(F&& f) const {
        for (const auto& [name, owner] : m_owners)
            f(name, owner);
    }
    const std::string& text(std::uint32_t id) const { return m_texts[id]; }

  private:
    std::unordered_map<std::string, Owner> m_owners;
    // Each distinct cell once: a family has few devices, packages, speeds and
    // conditions, however many parts.
    std::vector<std::string> m_texts;
};

}  // namespace tarn::vyxpn
