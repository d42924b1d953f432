// DirectoryTest: each test has a data folder of its own and a fresh device. At its end the
// directory, where one is up, is checked and released.

#ifndef NSDIRECTORY_TESTS_SUPPORT_DIRECTORY_TEST_H
#define NSDIRECTORY_TESTS_SUPPORT_DIRECTORY_TEST_H

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "directory/contact_local_manager.h"
#include "tests/support/fake_device.h"
#include "tests/support/file_calls.h"

inline constexpr char GROUP_FILE[] = "config/data/contact_group_list.xml";
inline constexpr char CONTACT_FILE[] = "config/data/contact_list.xml";
inline constexpr char EXPORT_FILE[] = "config/data/contact_xported.xml";

using String = qz::basic_string<char>;
using Texts = std::vector<std::string>;  // names or paths

// What the files hold of a group and of a contact, as it stands between the quotes.
struct GroupRow
{
    std::string m_strName, m_strRing = "";
    bool m_bReadOnly = false;
};

struct ContactRow
{
    std::string m_strName, m_strGroup = "All Contacts";
    std::string m_strMobile = "", m_strOffice = "", m_strOther = "", m_strRing = "";
    int m_nLine = 0;
    std::string m_strPhoto = "";
    int m_nSelectedPhoto = 0;
};

using GroupRows = std::vector<GroupRow>;
using ContactRows = std::vector<ContactRow>;

// Whole files as saved with these entries; the group file has the fixed groups in front, and the
// screen of the moment decides on the photos.
std::string GroupFile(const GroupRows& rows);
std::string ContactFile(const ContactRows& rows);

NS_DIRECTORY::ContactGroupData Group(const GroupRow& row);
NS_DIRECTORY::ContactGeneralItemData Contact(const ContactRow& row);

// Every field of a record in one line.
std::string Text(const NS_DIRECTORY::CContactLocalManager::GroupData& data);
std::string Text(const NS_DIRECTORY::CContactLocalManager::ItemData& data);
std::string Text(const NS_DIRECTORY::ContactGeneralItemData& data);

void WriteFile(const std::string& strPath, const std::string& strText);
std::string ReadFile(const std::string& strPath);  // "(no file)" where there is none

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

template <class T>
Texts Names(const QZList<T>& list)
{
    return TextsOf(list, [](const T& entry) {
        if constexpr (std::is_pointer_v<T>) {
            return entry->m_strDisplayName.c_str();
        } else {
            return entry.m_strDisplayName.c_str();
        }
    });
}

QZList<String> NameList(const Texts& names);

class DirectoryTest : public testing::Test
{
  protected:
    void SetUp() override;
    void TearDown() override;

    static NS_DIRECTORY::CContactLocalManager& Directory();

    // Start over: on files with these entries, or on the files that lie there.
    static void Start(const GroupRows& groups, const ContactRows& contacts);
    static void Restart();

    static std::string Memory();  // all that the directory holds
    static std::string State();   // the same and its two files

    // "name id" of each group, "name group" of each contact, by the group's id.
    static Texts Groups();
    static Texts Contacts();

    static void ExpectSound();  // what holds of every directory between two calls

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
    std::filesystem::path m_pathBefore, m_pathFolder;
};

#endif  // NSDIRECTORY_TESTS_SUPPORT_DIRECTORY_TEST_H
