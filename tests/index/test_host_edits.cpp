// SPDX-License-Identifier: MIT
// A host edits the public tables between queries without telling anyone.
// Whatever it does, no query may read freed memory (the sanitizer build runs
// this); the edits the library notices must give the walk's answers at once;
// for the others, invalidateIndexes() must be enough.

#include <gtest/gtest.h>

#include <functional>
#include <set>

#include "devctrl/util/string_list.h"
#include "index/library_lists.h"
#include "index/reference_walks.h"
#include "sds/selection_fixture.h"
#include "support/table_cell.h"

using namespace tarn::vyxpn;
using devctrl_test::cellOf;
using tarn::vyxpn::StringList;
namespace ref = devctrl_test::ref;
using ref::Cells;

namespace {

const auto& kFilters = devctrl_test::kFilterSettings;

// What a call gave, or that it threw: the walk throws on a row too short for
// a column, and so must the library.
std::string outcome(const std::function<StringList()>& call) {
    try {
        std::string text;
        for (const std::string& value : call())
            text += value + "|";
        return text;
    } catch (const std::exception&) {
        return "<throws>";
    }
}

// The walk, and what the library does when the part table lacks a column
// the list needs: it leaves the list as it was.
StringList walkList(const TarnSDSFile& file, PartListKind kind, const Cells& c, bool obsolete,
                    bool asc) {
    static const char* const kColumns[] = {"Device", "Package", "Speed", "Condition"};
    const TarnSDSFileSection& table = file.m_genericDevices;
    bool columns = table.columnOf("Status") >= 0;
    for (int k = 0; k <= static_cast<int>(kind); ++k)
        columns = columns && table.columnOf(kColumns[k]) >= 0;
    return columns ? ref::familyList(file, kind, c, obsolete, asc) : StringList{"stale"};
}

// Every part name, and every set of leading cells, any family held at any
// time: queries about what an edit removed matter most.
struct Subjects {
    std::set<std::string> names{"NO-SUCH-PART"};
    std::set<Cells> cells{{"", "", "", ""}};

    void add(const TarnDeviceMngr& mngr) {
        for (const auto& entry : mngr.getFamilyFiles()) {
            const auto columns = ref::nameColumns(*entry.second);
            for (const auto& [part, row] : entry.second->m_genericDevices.m_datas) {
                names.insert(part);
                Cells prefix;
                for (std::size_t k = 0; k < 4 && columns[k] >= 0 && columns[k] < int(row.size());
                     ++k) {
                    prefix[k] = row[columns[k]];
                    cells.insert(prefix);
                }
            }
        }
    }
};

// Every indexed query, each as "<what>: <answer>", from the library or, with
// `walk`, from the plain walks over the tables.
StringList answers(TarnDeviceMngr& mngr, const Subjects& subjects, bool walk) {
    StringList out;
    for (const std::string& part : subjects.names)
        out.push_back("name " + part + ": " + outcome([&]() -> StringList {
                          if (walk)
                              return ref::nameByPart(mngr, part);
                          StringList f(5);
                          if (!mngr.getNameByPart(part, f[0], f[1], f[2], f[3], f[4]))
                              return {};
                          return f;
                      }));
    for (const auto& [pm, file] : mngr.getFamilyFiles()) {
        for (const Cells& c : subjects.cells)
            out.push_back(pm + " part name " + c[0] + c[1] + c[2] + c[3] + ": " +
                          outcome([&, pm = pm]() -> StringList {
                              return {walk ? ref::partName(mngr, pm, c)
                                           : mngr.getPartName(pm, c[0], c[1], c[2], c[3])};
                          }));
        for (const auto& [obsolete, asc] : kFilters) {
            const std::string filters = " " + std::to_string(obsolete) + std::to_string(asc);
            out.push_back(pm + " all parts" + filters + ": " +
                          outcome([&, f = file]() -> StringList {
                              if (walk)
                                  return ref::allParts(*f, obsolete, asc);
                              StringList list;
                              f->getAllParts(list, obsolete, asc);
                              return list;
                          }));
            for (int k = 0; k < 4; ++k) {
                const auto kind = static_cast<PartListKind>(k);
                for (const Cells& c : subjects.cells) {
                    if (!c[k].empty() || (k > 0 && c[k - 1].empty()))
                        continue;  // only prefixes of exactly k cells
                    out.push_back(pm + " list " + std::to_string(k) + " " + c[0] + c[1] + c[2] +
                                  filters + ": " + outcome([&, f = file]() -> StringList {
                                      return walk ? walkList(*f, kind, c, obsolete, asc)
                                                  : devctrl_test::libraryList(*f, kind, c, obsolete,
                                                                              asc);
                                  }));
                }
            }
        }
    }
    return out;
}

void expectWalkAnswers(TarnDeviceMngr& mngr, const Subjects& subjects, const std::string& when) {
    const StringList library = answers(mngr, subjects, false),
                     walked = answers(mngr, subjects, true);
    ASSERT_EQ(library.size(), walked.size());
    for (std::size_t i = 0; i < library.size(); ++i)
        EXPECT_EQ(library[i], walked[i]) << when;
}

// Two families holding the same names; the second, whose PM sorts later,
// owns a name only once the first loses it, and gives it another ASC
// capacity, so that an edit of one family changes the other's ASC lists.
struct TwoFamilies {
    TarnDeviceMngr mngr;
    TarnSDSFile& first = *devctrl_test::makeSelectionFamily(mngr, "zr1a00");
    TarnSDSFile& second = *devctrl_test::makeSelectionFamily(mngr, "zr2a00");
    TwoFamilies() {
        for (auto& entry : second.m_genericDevices.m_datas) {
            std::string& asc = cellOf(second.m_genericDevices, entry.first, "ASCMaxNum");
            asc = asc == "0" ? "4" : "0";
        }
    }
    std::map<std::string, std::vector<std::string>>& rows() {
        return first.m_genericDevices.m_datas;
    }
};

struct Edit {
    const char* what;
    std::function<void(TwoFamilies&)> apply;
    bool noticed;  // by the next query, without invalidateIndexes()
};

const Edit kEdits[] = {
    {"erase the first row", [](TwoFamilies& t) { t.rows().erase(t.rows().begin()); }, true},
    {"erase a middle row", [](TwoFamilies& t) { t.rows().erase("ZR4-12QF48C"); }, true},
    {"add a row",
     [](TwoFamilies& t) {
         t.rows()["ZR7-6QF48C"] = {"ZR7", "6", "QF48", "QF48C", "COM", "", "P", "1"};
     },
     true},
    {"clear every row", [](TwoFamilies& t) { t.rows().clear(); }, true},
    {"clear the whole part table", [](TwoFamilies& t) { t.first.m_genericDevices.clear(); }, true},
    {"clear every table of a family",
     [](TwoFamilies& t) {
         for (TarnSDSFileSection* table :
              {&t.first.m_genericDevices, &t.first.m_partSection, &t.first.m_packageSection,
               &t.first.m_deviceSection, &t.first.m_pmSection})
             table->clear();
     },
     true},
    {"refill with other rows, same count",
     [](TwoFamilies& t) {
         std::map<std::string, std::vector<std::string>> other;
         for (const auto& [part, row] : t.rows())
             other["ZS" + part.substr(2)] = row;
         t.rows() = other;
     },
     true},
    {"add an item that the Status lookup reads first",
     [](TwoFamilies& t) {
         t.first.m_partSection.m_items = {"Status"};
         t.first.m_partSection.m_datas["ZR12-6BG100C"] = {"O"};
     },
     true},
    {"replace a row by a new one",
     [](TwoFamilies& t) {
         t.rows()["ZR12-6QF48C"] =
             std::vector<std::string>{"ZR5", "8", "BG100", "BG100C", "COM", "", "P", "3"};
     },
     false},
    {"change a Status in place",
     [](TwoFamilies& t) { cellOf(t.first.m_genericDevices, "ZR4-6QF48C", "Status") = "P"; }, false},
    {"erase a middle row and add another",
     [](TwoFamilies& t) {
         t.rows().erase("ZR12-7BG100C");
         t.rows()["ZR4-7QF48C"] = {"ZR4", "7", "QF48", "QF48C", "COM", "", "P", "1"};
     },
     false},
};

}  // namespace

TEST(HostEdits, NoticedOrAnnouncedEditsGiveTheWalksAnswers) {
    for (const Edit& edit : kEdits) {
        for (bool byManager : {false, true}) {
            SCOPED_TRACE(edit.what);
            TwoFamilies t;
            Subjects subjects;
            subjects.add(t.mngr);
            // Every index built before the edit.
            expectWalkAnswers(t.mngr, subjects, "before");
            edit.apply(t);
            subjects.add(t.mngr);
            if (edit.noticed) {
                expectWalkAnswers(t.mngr, subjects, "noticed");
                continue;
            }
            // Stale answers are allowed here, reads of freed rows are not.
            answers(t.mngr, subjects, false);
            if (byManager)
                t.mngr.invalidateIndexes();
            else
                t.first.invalidateIndexes();
            expectWalkAnswers(t.mngr, subjects, byManager ? "manager told" : "family told");
        }
    }
}

TEST(HostEdits, NameLookupsSeeCellsEditedInPlaceOnceTold) {
    // The owner index keeps copies of the name cells, never the row: a row
    // replaced or emptied in place is read as it is now once the host says so.
    TwoFamilies t;
    StringList list;
    t.first.getDevices(list, true, false);
    std::string pm, device, package, speed, condition;
    ASSERT_TRUE(t.mngr.getNameByPart("ZR4-6QF48C", pm, device, package, speed, condition));
    t.rows()["ZR4-6QF48C"] = {"ZR6", "9", "BG100", "BG100C", "IND", "", "P", "0"};
    t.first.invalidateIndexes();
    ASSERT_TRUE(t.mngr.getNameByPart("ZR4-6QF48C", pm, device, package, speed, condition));
    EXPECT_EQ(StringList({pm, device, package, speed, condition}),
              StringList({"zr1a00", "ZR6", "BG100", "9", "IND"}));
    // An emptied row: the lists and the name lookup answer from their copies
    // until told, without touching the row; then a row too short for its
    // columns makes them throw, as the walk does.
    t.first.getDevices(list, true, false);
    t.rows()["ZR4-6QF48C"].clear();
    EXPECT_NO_THROW(t.first.getDevices(list, true, false));
    t.mngr.invalidateIndexes();
    EXPECT_THROW(t.mngr.getNameByPart("ZR4-6QF48C", pm, device, package, speed, condition),
                 std::out_of_range);
    EXPECT_THROW(t.first.getDevices(list, true, false), std::out_of_range);

    // A part name looked up by its cells is never one whose row lost them.
    EXPECT_EQ(t.mngr.getPartName("zr1a00", "ZR12", "QF48", "6", "COM"), "ZR12-6QF48C");
    cellOf(t.first.m_genericDevices, "ZR12-6QF48C", "Device") = "ZR13";
    EXPECT_EQ(t.mngr.getPartName("zr1a00", "ZR12", "QF48", "6", "COM"), "");
    t.first.invalidateIndexes();
    EXPECT_EQ(t.mngr.getPartName("zr1a00", "ZR13", "QF48", "6", "COM"), "ZR12-6QF48C");
}
