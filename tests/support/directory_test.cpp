#include "tests/support/directory_test.h"

#include <strings.h>

#include <algorithm>
#include <clocale>
#include <cstdlib>
#include <fstream>
#include <sstream>

#include "tests/support/list_check.h"

using NS_DIRECTORY::CContactLocalManager;

namespace {

template <class... Values>
std::string Joined(const Values&... values)
{
    std::ostringstream text;
    (text << ... << values);
    return text.str();
}

std::string File(const std::string& strRoot, const std::string& strEntries)
{
    const std::string strBody =
        strEntries.empty() ? " />\n" : Joined(">\n", strEntries, "</", strRoot, ">\n");
    return Joined("<?xml version=\"1.0\" encoding=\"utf-8\"?>\n<", strRoot, strBody);
}

// "name id" of each record.
template <class T>
Texts NamesAndIds(const QZList<T*>& list, int T::*pId)
{
    return TextsOf(list, [pId](const T* pRecord) {
        return Joined(pRecord->m_strDisplayName.c_str(), ' ', pRecord->*pId);
    });
}

bool IsAscending(const Texts& names, int nFirst)
{
    const auto wrong = [](auto& a, auto& b) { return strcasecmp(a.c_str(), b.c_str()) >= 0; };
    return std::adjacent_find(names.begin() + nFirst, names.end(), wrong) == names.end();
}

}  // namespace

std::string GroupFile(const GroupRows& rows)
{
    GroupRows all{{"All Contacts", "", true}, {"Blacklist", "", true}};
    all.insert(all.end(), rows.begin(), rows.end());
    std::string strEntries;
    for (const GroupRow& row : all) {
        strEntries += Joined("\t<group display_name=\"", row.m_strName, "\" ring=\"", row.m_strRing,
                             "\" read_only=\"", row.m_bReadOnly, "\" />\n");
    }
    return File("root_group", strEntries);
}

std::string ContactFile(const ContactRows& rows)
{
    std::string strEntries;
    for (const ContactRow& row : rows) {
        const std::string strPhoto = Joined("default_photo=\"", row.m_strPhoto,
                                            "\" selected_photo=\"", row.m_nSelectedPhoto, "\" ");
        strEntries += Joined("\t<contact display_name=\"", row.m_strName, "\" office_number=\"",
                             row.m_strOffice, "\" mobile_number=\"", row.m_strMobile,
                             "\" other_number=\"", row.m_strOther, "\" line=\"", row.m_nLine,
                             "\" ring=\"", row.m_strRing, "\" group_id_name=\"", row.m_strGroup,
                             "\" ", g_device.m_bColorful ? strPhoto : "", "name_index=\"\" />\n");
    }
    return File("root_contact", strEntries);
}

NS_DIRECTORY::ContactGroupData Group(const GroupRow& row)
{
    return {row.m_strName.c_str(), row.m_strRing.c_str()};
}

// clang-format off
NS_DIRECTORY::ContactGeneralItemData Contact(const ContactRow& row)
{
    return {row.m_strName.c_str(), row.m_strGroup.c_str(), row.m_strOffice.c_str(), row.m_strMobile.c_str(),
            row.m_strOther.c_str(), row.m_strPhoto.c_str(), row.m_strRing.c_str(), row.m_nLine, row.m_nSelectedPhoto};
}
// clang-format on

std::string Text(const CContactLocalManager::GroupData& data)
{
    return Joined(data.m_nId, '|', data.m_strDisplayName.c_str(), '|', data.m_strRing.c_str(), '|',
                  data.m_bReadOnly, '\n');
}

// clang-format off
std::string Text(const CContactLocalManager::ItemData& data)
{
    const NS_DIRECTORY::ContactGeneralItemData shared{
        data.m_strDisplayName, data.m_strKeptGroupName, data.m_strOfficeNumber, data.m_strMobileNumber,
        data.m_strOtherNumber, data.m_strDefaultPhoto, data.m_strRing, data.m_nLine, data.m_nSelectedPhoto};
    return Joined(data.m_nGroupId, '|', data.m_strNameIndex.c_str(), '|', Text(shared));
}
// clang-format on

std::string Text(const NS_DIRECTORY::ContactGeneralItemData& data)
{
    std::string strText;
    for (const String* pText : {&data.m_strDisplayName, &data.m_strGroupName,
                                &data.m_strOfficeNumber, &data.m_strMobileNumber,
                                &data.m_strOtherNumber, &data.m_strDefaultPhoto, &data.m_strRing}) {
        strText += Joined(pText->c_str(), '|');
    }
    return Joined(strText, data.m_nLine, '|', data.m_nSelectedPhoto, '\n');
}

void WriteFile(const std::string& strPath, const std::string& strText)
{
    std::ofstream(strPath, std::ios::binary) << strText;
}

std::string ReadFile(const std::string& strPath)
{
    const std::ifstream file(strPath, std::ios::binary);
    return file ? Joined(file.rdbuf()) : "(no file)";
}

QZList<String> NameList(const Texts& names)
{
    QZList<String> list;
    for (const std::string& strName : names) {
        list.push_back(strName.c_str());
    }
    return list;
}

void DirectoryTest::SetUp()
{
    g_device = FakeDevice();
    m_pathBefore = std::filesystem::current_path();
    std::string strFolder = std::filesystem::temp_directory_path() / "nsdirectory-XXXXXX";
    ASSERT_NE(mkdtemp(strFolder.data()), nullptr);
    m_pathFolder = strFolder;
    std::filesystem::current_path(m_pathFolder);
    std::filesystem::create_directories("config/data");
}

void DirectoryTest::TearDown()
{
    if (CContactLocalManager::m_pInst != nullptr) {
        ExpectSound();
    }
    CContactLocalManager::ReleaseInstance();
    std::setlocale(LC_ALL, "C");
    std::filesystem::current_path(m_pathBefore);
    std::filesystem::remove_all(m_pathFolder);
}

CContactLocalManager& DirectoryTest::Directory()
{
    return *CContactLocalManager::GetInstance();
}

void DirectoryTest::Start(const GroupRows& groups, const ContactRows& contacts)
{
    WriteFile(GROUP_FILE, GroupFile(groups));
    WriteFile(CONTACT_FILE, ContactFile(contacts));
    Restart();
}

void DirectoryTest::Restart()
{
    CContactLocalManager::ReleaseInstance();
    (void)Directory();
}

std::string DirectoryTest::Memory()
{
    const CContactLocalManager& d = Directory();
    std::string strText =
        Joined(d.m_nMaxGroupCount, '|', d.m_nMaxContactCount, '|', d.m_nMaxBlackCount, '|',
               d.m_nBlackCount, '|', d.m_bReloadByHttp, '|', d.m_bKeepGroupNames, '\n');
    const auto add = [&strText](auto* pRecord) { return strText += Text(*pRecord); };
    (void)TextsOf(d.m_listGroup, add);
    (void)TextsOf(d.m_listContact, add);
    return strText;
}

Texts DirectoryTest::Groups()
{
    return NamesAndIds(Directory().m_listGroup, &CContactLocalManager::GroupData::m_nId);
}

Texts DirectoryTest::Contacts()
{
    return NamesAndIds(Directory().m_listContact, &CContactLocalManager::ItemData::m_nGroupId);
}

std::string DirectoryTest::State()
{
    return Memory() + ReadFile(GROUP_FILE) + ReadFile(CONTACT_FILE);
}

void DirectoryTest::ExpectSound()
{
    const CContactLocalManager& d = Directory();
    ASSERT_TRUE(IsSound(d.m_listGroup) && IsSound(d.m_listContact));
    EXPECT_TRUE(IsAscending(Names(d.m_listGroup), std::min(d.GetCurrentGroupCount(), 2)))
        << Memory();
    EXPECT_TRUE(IsAscending(Names(d.m_listContact), 0)) << Memory();
    EXPECT_EQ(d.m_nBlackCount, d.MyGetContactCountByGroupId(NS_DIRECTORY::GROUP_ID_BLACKLIST));
    EXPECT_FALSE(d.m_bGroupDirty || d.m_bContactDirty);
}
