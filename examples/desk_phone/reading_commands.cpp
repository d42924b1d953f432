// What the telephone shows of its directory without changing it.

#include <algorithm>
#include <array>
#include <climits>
#include <cstdio>
#include <fstream>
#include <iostream>

#include "desk_phone/call_window.h"
#include "desk_phone/contact_fields.h"
#include "desk_phone/export_path.h"
#include "desk_phone/phone.h"
#include "desk_phone/results.h"
#include "desk_phone/screen.h"
#include "directory/data_files.h"

namespace desk_phone {

namespace {

using NS_DIRECTORY::CContactLocalManager;
using NS_DIRECTORY::ContactGeneralItemData;
using NS_DIRECTORY::ContactGeneralItemListData;
using NS_DIRECTORY::ContactGroupData;
using NS_DIRECTORY::ContactGroupSimpleListData;

constexpr int PAGE = 10;
constexpr int FILE_LINES = 5;
constexpr const char* FILES[] = {NS_DIRECTORY::GROUP_FILE_PATH, NS_DIRECTORY::CONTACT_FILE_PATH};

std::string Counted(int nCount, const std::string& strOne)
{
    return std::to_string(nCount) + " " + strOne + (nCount == 1 ? "" : "s");
}

int CountContacts(const CContactLocalManager& directory, int nGroupId)
{
    ContactGeneralItemListData page;
    (void)directory.GetContactListById(&page, nGroupId);  // an id of no group leaves 0
    return page.m_nTotalCount;
}

void PrintPage(const ContactGeneralItemListData& page)
{
    CTable table;
    table.AddColumn("Place", 5, true);
    table.AddColumn("Name", 12);
    table.AddColumn("Number", 14);
    table.AddColumn("Group", 8);
    table.AddColumn("Ring", 8);
    int nPlace = page.m_nIndexFrom;
    for (auto pos = page.m_listData.begin(); pos != page.m_listData.end(); pos = pos->next) {
        const ContactGeneralItemData& contact = pos->value;
        table.AddRow({std::to_string(++nPlace), contact.m_strDisplayName.c_str(),
                      FirstNumber(contact), contact.m_strGroupName.c_str(),
                      contact.m_strRing.c_str()});
    }
    table.Print();
}

void PrintFile(const std::string& strPath, int nLines)
{
    std::ifstream file(strPath, std::ios::binary | std::ios::ate);
    if (!file) {
        PrintText(strPath + ": not there");
        return;
    }
    PrintText(strPath + ": " + Counted(static_cast<int>(file.tellg()), "byte"));
    file.seekg(0);
    std::string strLine;
    for (; nLines != 0 && std::getline(file, strLine); --nLines) {
        std::replace(strLine.begin(), strLine.end(), '\t', ' ');
        PrintCut(strLine);
    }
}

}  // namespace

void Call(PhoneData& phone, const Words& words)
{
    PrintCall(phone.m_directory, phone.m_search.NumberOfCaller(words[1]), words[1]);
}

void ListGroups(PhoneData& phone, const Words&)
{
    ContactGroupSimpleListData page;
    page.m_nCountToGet = INT_MAX;
    (void)phone.m_directory.GetGroupSimpleList(&page);  // it refuses null only
    CTable table;
    table.AddColumn("Group", 12);
    table.AddColumn("Contacts", 8, true);
    table.AddColumn("Ring", 8);
    for (auto pos = page.m_listData.begin(); pos != page.m_listData.end(); pos = pos->next) {
        ContactGroupData group;
        (void)phone.m_directory.GetGroupDataByID(&group, pos->value.m_nId);  // it was just listed
        table.AddRow({group.m_strDisplayName.c_str(),
                      std::to_string(CountContacts(phone.m_directory, pos->value.m_nId)),
                      group.m_strRing.c_str()});
    }
    table.Print();
}

void ListContacts(PhoneData& phone, const Words& words)
{
    ContactGeneralItemListData page;
    page.m_nIndexFrom = words.size() > 2 ? ToNumber(words[2], 1, "FROM") - 1 : 0;
    page.m_nCountToGet = words.size() > 3 ? ToNumber(words[3], 1, "COUNT") : PAGE;
    if (phone.m_directory.GetContactList(&page, ToText(words[1])) != NS_DIRECTORY::DIR_RET_OK) {
        PrintText("There is no group " + words[1] + ".");
        return;
    }
    const int nShown = static_cast<int>(page.m_listData.size());
    if (nShown == 0) {
        PrintText(words[1] + ": " + Counted(page.m_nTotalCount, "contact") + ", none on this page");
        return;
    }
    PrintText(words[1] + ": " + std::to_string(page.m_nIndexFrom + 1) + " to " +
              std::to_string(page.m_nIndexFrom + nShown) + " of " +
              Counted(page.m_nTotalCount, "contact"));
    PrintPage(page);
}

void Show(PhoneData& phone, const Words& words)
{
    ContactGeneralItemData contact;
    if (phone.m_directory.GetContactDataByName(&contact, ToText(words[1])) !=
        NS_DIRECTORY::DIR_RET_OK) {
        PrintText("There is no contact " + Quoted(words[1]) +
                  ". Names are spelled as they are stored; parts of them are found by: find");
        return;
    }
    PrintContact(contact);
}

void Export(PhoneData& phone, const Words& words)
{
    const bool bOwnPlace = words.size() == 1 || words[1].empty();
    const std::string strPath = bOwnPlace ? NS_DIRECTORY::EXPORT_FILE_PATH : words[1];
    RequireExportPath(strPath, phone.m_strCopyFolder);
    const int nResult = phone.m_directory.ExportContactAndGroup(ToText(strPath));
    const bool bExported = IsExported(strPath);
    phone.m_bFailed = phone.m_bFailed || !bExported;
    PrintResult(nResult, "DIR_RET_OK",
                bExported ? "exported to " + strPath
                          : "answered as done, but it is not written: " + strPath);
}

void ShowFiles(PhoneData&, const Words& words)
{
    const int nLines = words.size() > 1 ? ToNumber(words[1], 0, "LINES") : FILE_LINES;
    for (const char* pPath : FILES) {
        PrintFile(pPath, nLines);
    }
}

void ShowSummary(PhoneData& phone, const Words&)
{
    const CContactLocalManager& directory = phone.m_directory;
    const auto OfMost = [](int nCount, int nMost) {
        return std::to_string(nCount) + " of " + std::to_string(nMost);
    };
    std::array<char, 32> time{};
    (void)std::snprintf(time.data(), time.size(), "%.1f ms", phone.m_dLoadMilliseconds);
    PrintPairs(
        {{"Contacts", OfMost(directory.GetCurrentContactCount(), directory.GetMaxContactCount())},
         {"Groups", OfMost(directory.GetCurrentGroupCount(), directory.GetMaxGroupCount())},
         {"Blacklisted", OfMost(directory.GetCurrentBlackCount(), directory.GetMaxBlackCount())},
         {"Load time", time.data()}});
}

}  // namespace desk_phone
