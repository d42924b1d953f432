// DirectoryTest: each test has a data folder of its own and a fresh device. At its end the
// directory, where one is up, is checked and released.

#ifndef NSDIRECTORY_TESTS_SUPPORT_DIRECTORY_TEST_H
#define NSDIRECTORY_TESTS_SUPPORT_DIRECTORY_TEST_H

#include <gtest/gtest.h>
#include <strings.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <map>
#include <sstream>

#include "directory/contact_local_manager.h"
#include "tests/support/fake_system.h"
#include "tests/support/list_check.h"

using namespace NS_DIRECTORY;
using String = qz::basic_string<char>;
using Manager = CContactLocalManager;

inline constexpr char GROUP_FILE[] = "config/data/contact_group_list.xml";
inline constexpr char CONTACT_FILE[] = "config/data/contact_list.xml";
inline constexpr char EXPORT_FILE[] = "config/data/contact_xported.xml";

template <class... Values>
std::string Joined(const Values&... values)
{
    std::ostringstream text;
    (text << ... << values);
    return text.str();
}

// -- Records, by the fields that a test cares for -------------------------------------------------

struct GroupRow : Manager::GroupData
{
    GroupRow(const std::string& strName, const std::string& strRing = "", bool bReadOnly = false)
        : GroupData{GROUP_ID_NONE, strName.c_str(), strRing.c_str(), bReadOnly}
    {}
    operator ContactGroupData() const { return {m_strDisplayName, m_strRing}; }
};
using GroupRows = std::vector<GroupRow>;

struct ContactRow : ContactGeneralItemData
{
    ContactRow(const std::string& strName, const std::string& strGroup = "All Contacts",
               const std::string& strMobile = "", const std::string& strOffice = "",
               const std::string& strOther = "", const std::string& strRing = "", int nLine = 0,
               const std::string& strPhoto = "", int nPhoto = 0)
        : ContactGeneralItemData{strName.c_str(),
                                 strGroup.c_str(),
                                 strOffice.c_str(),
                                 strMobile.c_str(),
                                 strOther.c_str(),
                                 strPhoto.c_str(),
                                 strRing.c_str(),
                                 nLine,
                                 nPhoto}
    {}
};
using ContactRows = std::vector<ContactRow>;

// The attributes of a contact in their order in the file, each a text or a number.
struct Field
{
    const char* m_pName;
    String ContactGeneralItemData::*m_pText;
    int ContactGeneralItemData::*m_pNumber = nullptr;
};
inline std::vector<Field> Fields(bool bColorful = g_device.m_bColorful)
{
    using Contact = ContactGeneralItemData;
    // clang-format off
    std::vector<Field> fields = {
        {"display_name", &Contact::m_strDisplayName}, {"office_number", &Contact::m_strOfficeNumber},
        {"mobile_number", &Contact::m_strMobileNumber}, {"other_number", &Contact::m_strOtherNumber},
        {"line", nullptr, &Contact::m_nLine}, {"ring", &Contact::m_strRing}, {"group_id_name", &Contact::m_strGroupName},
        {"default_photo", &Contact::m_strDefaultPhoto}, {"selected_photo", nullptr, &Contact::m_nSelectedPhoto}};
    // clang-format on
    fields.resize(bColorful ? 9 : 7);
    return fields;
}

// Every field of a record in one line.
inline std::string Text(const Manager::GroupData& g)
{
    return Joined(g.m_nId, '|', g.m_strDisplayName.c_str(), '|', g.m_strRing.c_str(), '|',
                  g.m_bReadOnly, '\n');
}
inline std::string Text(const ContactGeneralItemData& c)
{
    std::string strText;
    for (const auto& [pName, pText, pNumber] : Fields(true)) {
        strText += pText ? Joined((c.*pText).c_str(), '|') : Joined(c.*pNumber, '|');
    }
    return strText + '\n';
}
// clang-format off
inline std::string Text(const Manager::ItemData& c)
{
    const ContactGeneralItemData shared{
        c.m_strDisplayName, c.m_strKeptGroupName, c.m_strOfficeNumber, c.m_strMobileNumber, c.m_strOtherNumber,
        c.m_strDefaultPhoto, c.m_strRing, c.m_nLine, c.m_nSelectedPhoto};
    return Joined(c.m_nGroupId, '|', c.m_strNameIndex.c_str(), '|', Text(shared));
}
// clang-format on

// What text makes of each entry.
template <class T, class TText>
Texts TextsOf(const QZList<T>& list, TText text)
{
    Texts texts;
    for (auto pos = list.begin(); pos != list.end(); pos = pos->next) {
        texts.emplace_back(text(pos->value));
    }
    return texts;
}
template <class TRecord>
Texts Names(const QZList<TRecord*>& list)
{
    return TextsOf(list, [](const TRecord* p) { return p->m_strDisplayName.c_str(); });
}
inline QZList<String> NameList(const Texts& names)
{
    QZList<String> list;
    std::for_each(names.begin(), names.end(), [&](auto& str) { list.push_back(str.c_str()); });
    return list;
}

// -- Files ----------------------------------------------------------------------------------------

inline std::string Attribute(const char* pName, const std::string& strValue)
{
    static const std::map<char, std::string> ESCAPES{
        {'&', "&amp;"},  {'<', "&lt;"},   {'"', "&quot;"}, {'\1', "&#01;"},
        {'\t', "&#09;"}, {'\n', "&#10;"}, {'\r', "&#13;"}, {'\x1B', "&#27;"}};
    std::string strText = Joined(' ', pName, "=\"");
    for (const char c : strValue) {
        strText += ESCAPES.count(c) == 0 ? std::string(1, c) : ESCAPES.at(c);
    }
    return strText + '"';
}
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
        for (const auto& [pName, pText, pNumber] : Fields()) {
            strElements += pText      ? Attribute(pName, (row.*pText).c_str())
                           : !bExport ? Attribute(pName, std::to_string(row.*pNumber))
                                      : "";
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
        if (Manager::m_pInst != nullptr) {
            ExpectSound();
        }
        Manager::ReleaseInstance();
        std::filesystem::current_path(m_pathBefore);
        std::filesystem::remove_all(m_pathFolder);
    }

    static Manager& Directory() { return *Manager::GetInstance(); }

    // Start over: on files with these entries, or on the files that lie there.
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

    // All that the directory holds; and its two files too.
    static std::string Memory()
    {
        const Manager& d = Directory();
        std::string strText =
            Joined(d.m_nMaxGroupCount, '|', d.m_nMaxContactCount, '|', d.m_nMaxBlackCount, '|',
                   d.m_nBlackCount, '|', d.m_bReloadByHttp, '|', d.m_bKeepGroupNames, '\n');
        const auto add = [&strText](auto* pRecord) { return strText += Text(*pRecord); };
        (void)TextsOf(d.m_listGroup, add);
        (void)TextsOf(d.m_listContact, add);
        return strText;
    }
    static std::string State() { return Memory() + ReadFile(GROUP_FILE) + ReadFile(CONTACT_FILE); }

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

    // What holds of every directory between two calls.
    static void ExpectSound()
    {
        const Manager& d = Directory();
        ASSERT_TRUE(IsSound(d.m_listGroup) && IsSound(d.m_listContact));
        const Texts names = Names(d.m_listContact);
        const auto wrong = [](auto& a, auto& b) { return strcasecmp(a.c_str(), b.c_str()) >= 0; };
        EXPECT_EQ(std::adjacent_find(names.begin(), names.end(), wrong), names.end()) << Memory();
        EXPECT_EQ(d.m_nBlackCount, d.MyGetContactCountByGroupId(GROUP_ID_BLACKLIST));
        EXPECT_FALSE(d.m_bGroupDirty || d.m_bContactDirty);
    }

    // Runs an operation that must give this result and write these files in this order.
    template <class Operation>
    static void ExpectDone(int nResult, const Texts& written, Operation operation)
    {
        const FileCalls calls;
        EXPECT_EQ(operation(), nResult);
        EXPECT_EQ(calls.Written(), written);
        ExpectSound();
    }

    // Runs an operation that must give this result and change nothing, in memory or on disk.
    template <class Operation>
    static void ExpectRefused(int nResult, Operation operation)
    {
        const std::string strBefore = State();
        ExpectDone(nResult, {}, operation);
        EXPECT_EQ(State(), strBefore);
    }

  private:
    std::filesystem::path m_pathBefore = std::filesystem::current_path(), m_pathFolder;
};

#endif  // NSDIRECTORY_TESTS_SUPPORT_DIRECTORY_TEST_H
