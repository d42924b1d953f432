// DirectoryTest: each test has a data folder of its own and a fresh device. At its end the
// directory is checked and released.

#ifndef NSDIRECTORY_TESTS_SUPPORT_DIRECTORY_TEST_H
#define NSDIRECTORY_TESTS_SUPPORT_DIRECTORY_TEST_H

#include <gtest/gtest.h>
#include <strings.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>

#include "tests/support/list_check.h"
#include "tests/support/records.h"

inline constexpr char GROUP_FILE[] = "config/data/contact_group_list.xml";
inline constexpr char CONTACT_FILE[] = "config/data/contact_list.xml";
inline constexpr char EXPORT_FILE[] = "config/data/contact_xported.xml";

// -- Files ----------------------------------------------------------------------------------------

inline std::string Root(const std::string& strName, const std::string& strElements)
{
    return strElements.empty() ? Joined('<', strName, " />\n")
                               : Joined('<', strName, ">\n", strElements, "</", strName, ">\n");
}

// Root elements as the saves or the export write them; the screen of the moment decides on the
// photos.
template <class TRows>
std::string GroupRoot(const TRows& rows, bool bExport)
{
    std::string strElements;
    for (const auto& row : rows) {
        const std::string strMark = Attribute("read_only", row.m_bReadOnly ? "1" : "0");
        strElements +=
            Joined("\t<group", Attribute("display_name", row.m_strDisplayName.c_str()),
                   Attribute("ring", row.m_strRing.c_str()), bExport ? "" : strMark, " />\n");
    }
    return Root("root_group", strElements);
}
template <class TRows>
std::string ContactRoot(const TRows& rows, bool bExport)
{
    std::string strElements;
    for (const auto& row : rows) {
        strElements += "\t<contact";
        for (const Field& field : Fields()) {
            if (IsPhoto(field) && !g_device.m_bColorful) {
                continue;
            }
            if (field.m_pText != nullptr || !bExport) {
                strElements += Attribute(field.m_pAttribute, ValueOf(row, field));
            }
        }
        strElements += bExport ? " />\n" : " name_index=\"\" />\n";
    }
    return Root("root_contact", strElements);
}

// Whole files; that of the groups has the fixed ones in front.
inline constexpr char DECLARATION[] = "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n";
inline std::string GroupFile(const GroupRows& rows)
{
    GroupRows all{{"All Contacts", "", true}, {"Blacklist", "", true}};
    all.insert(all.end(), rows.begin(), rows.end());
    return DECLARATION + GroupRoot(all, false);
}
inline std::string ContactFile(const ContactRows& rows)
{
    return DECLARATION + ContactRoot(rows, false);
}

inline void WriteFile(const std::string& strPath, const std::string& strText)
{
    std::ofstream(strPath, std::ios::binary) << strText;
}
inline std::string ReadFile(const std::string& strPath)
{
    const std::ifstream file(strPath, std::ios::binary);
    return file ? Joined(file.rdbuf()) : "(no file)";
}

// -------------------------------------------------------------------------------------------------

class DirectoryTest : public testing::Test
{
  public:
    void SetUp() override
    {
        g_device = FakeDevice();
        std::string strFolder = std::filesystem::temp_directory_path() / "nsdirectory-XXXXXX";
        ASSERT_NE(mkdtemp(strFolder.data()), nullptr);
        m_pathFolder = strFolder;
        std::filesystem::current_path(m_pathFolder);
        std::filesystem::create_directories("config/data");
    }
    void TearDown() override
    {
        if (!HasFailure()) {  // else it was reported already, with the call
            ExpectSound();
        }
        Manager::ReleaseInstance();
        std::filesystem::current_path(m_pathBefore);
        std::filesystem::remove_all(m_pathFolder);
    }

    static Manager& Directory() { return *Manager::GetInstance(); }

    // Start over: on files with these entries, or on the files that are there.
    static void Start(const GroupRows& groups, const ContactRows& contacts)
    {
        WriteFile(GROUP_FILE, GroupFile(groups));
        WriteFile(CONTACT_FILE, ContactFile(contacts));
        Restart();
    }
    static void Restart()
    {
        Manager::ReleaseInstance();
        (void)Directory();
    }

    // "name id" of each group, "name group" of each contact, by the group's id.
    static Texts Groups()
    {
        return TextsOf(Directory().m_listGroup, [](auto* pGroup) {
            return Joined(pGroup->m_strDisplayName.c_str(), ' ', pGroup->m_nId);
        });
    }
    static Texts Contacts()
    {
        return TextsOf(Directory().m_listContact, [](auto* pItem) {
            return Joined(pItem->m_strDisplayName.c_str(), ' ', pItem->m_nGroupId);
        });
    }

    // All that it holds, as entries; with its files, as a text.
    static Entries AllEntries()
    {
        std::vector<Group> groups;
        std::vector<Item> items;
        const Manager& d = Directory();
        for (auto pos = d.m_listGroup.begin(); pos != d.m_listGroup.end(); pos = pos->next) {
            groups.push_back(*pos->value);
        }
        for (auto pos = d.m_listContact.begin(); pos != d.m_listContact.end(); pos = pos->next) {
            items.push_back(ItemOf(*pos->value));
        }
        return EntriesOf(groups, items);
    }
    static std::string State()
    {
        std::string strText = ReadFile(GROUP_FILE) + ReadFile(CONTACT_FILE);
        for (const Entry& entry : AllEntries()) {
            strText += entry.Text() + '\n';
        }
        return strText;
    }

    // What is wrong with a directory between two calls.
    static Texts Troubles()
    {
        const Manager& d = Directory();
        if (!IsSound(d.m_listGroup) || !IsSound(d.m_listContact)) {
            return {"the links of a list are broken"};
        }
        Texts troubles = Disorder(Names(d.m_listContact));
        Texts groups = Names(d.m_listGroup);
        groups.erase(groups.begin(), groups.begin() + std::min<long>(2, d.GetCurrentGroupCount()));
        for (const std::string& strTrouble : Disorder(groups)) {
            troubles.push_back(strTrouble);
        }
        const Texts ids = TextsOf(d.m_listContact, [](auto* p) { return Joined(p->m_nGroupId); });
        const auto nBlack = std::count(ids.begin(), ids.end(), Joined(GROUP_ID_BLACKLIST));
        if (d.GetCurrentBlackCount() != nBlack) {
            troubles.push_back(
                Joined("the black count is ", d.GetCurrentBlackCount(), " instead of ", nBlack));
        }
        if (d.m_bGroupDirty || d.m_bContactDirty) {
            troubles.emplace_back("a change is left unwritten");
        }
        return troubles;
    }
    static Texts Disorder(const Texts& names)
    {
        const auto wrong = [](auto& a, auto& b) { return strcasecmp(a.c_str(), b.c_str()) >= 0; };
        const auto pos = std::adjacent_find(names.begin(), names.end(), wrong);
        return pos == names.end() ? Texts{} : Texts{"out of order: " + *pos + ", " + pos[1]};
    }
    static void ExpectSound() { EXPECT_EQ(Troubles(), Texts{}); }

  private:
    std::filesystem::path m_pathBefore = std::filesystem::current_path(), m_pathFolder;
};

#endif  // NSDIRECTORY_TESTS_SUPPORT_DIRECTORY_TEST_H
