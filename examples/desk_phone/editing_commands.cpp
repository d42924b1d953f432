// What changes the directory. Each answers with the result of the one operation that it calls, or
// with what the guard says of it.

#include "desk_phone/contact_fields.h"
#include "desk_phone/phone.h"
#include "desk_phone/results.h"
#include "desk_phone/screen.h"

namespace desk_phone {

namespace {

using NS_DIRECTORY::ContactGeneralItemData;
using NS_DIRECTORY::ContactGroupData;
using NameList = QZList<qz::basic_string<char>>;

constexpr char OK[] = "DIR_RET_OK";
constexpr char OK_ZERO[] = "DIR_RET_OK_ZERO";
constexpr char COUNTER[] = "counter";
constexpr char POSITION[] = "position";

NameList ToNameList(Words::const_iterator pos, Words::const_iterator end)
{
    NameList names;
    for (; pos != end; ++pos) {
        names.push_back(ToText(*pos));
    }
    return names;
}

void RequireName(const std::string& strName)
{
    if (strName.empty()) {
        throw CWrongInput("An empty name is not taken: no lookup would find it.");
    }
}

bool IsFixed(int nGroupId)
{
    return nGroupId == NS_DIRECTORY::GROUP_ID_ALL || nGroupId == NS_DIRECTORY::GROUP_ID_BLACKLIST;
}

// The group of that name as it is; an empty one where there is none.
ContactGroupData ReadGroup(const PhoneData& phone, const std::string& strName)
{
    ContactGroupData group;
    const int nId = phone.m_directory.GetGroupIdByGroupName(ToText(strName));
    (void)phone.m_directory.GetGroupDataByID(&group, nId);  // a missing group is refused later
    return group;
}

}  // namespace

void AddContact(PhoneData& phone, const Words& words)
{
    ContactGeneralItemData contact;
    contact.m_strDisplayName = ToText(words[1]);
    // Without any groups the name stays empty, and the add is refused.
    (void)phone.m_directory.GetGroupNameByIndex(0, contact.m_strGroupName);
    TakeFields(words, 2, contact);
    RequireName(contact.m_strDisplayName.c_str());
    const int nResult = Edit(phone, [&](auto& directory) {
        return directory.AddContact(contact.m_strGroupName, contact);
    });
    PrintResult(nResult, COUNTER,
                std::string(contact.m_strDisplayName.c_str()) + " is added to " +
                    contact.m_strGroupName.c_str());
}

void UpdateContact(PhoneData& phone, const Words& words)
{
    ContactGeneralItemData contact;
    // A contact that is not there is refused by the update itself.
    const int nFound = phone.m_directory.GetContactDataByName(&contact, ToText(words[1]));
    TakeFields(words, 2, contact);
    if (nFound == NS_DIRECTORY::DIR_RET_OK) {
        RequireName(contact.m_strDisplayName.c_str());
    }
    const int nResult = Edit(phone, [&](auto& directory) {
        return directory.UpdateContactData(ToText(words[1]), contact);
    });
    PrintResult(nResult, COUNTER, std::string(contact.m_strDisplayName.c_str()) + " is up to date");
}

void RemoveContacts(PhoneData& phone, const Words& words)
{
    if (words.size() == 2) {
        const int nResult =
            Edit(phone, [&](auto& directory) { return directory.RemoveContact(ToText(words[1])); });
        PrintResult(nResult, OK, words[1] + " is removed");
        return;
    }
    const NameList names = ToNameList(words.begin() + 1, words.end());
    const int nResult =
        Edit(phone, [&](auto& directory) { return directory.RemoveContactList(names); });
    PrintResult(nResult, OK, "the named contacts are gone");
}

void RemoveAllContacts(PhoneData& phone, const Words& words)
{
    const int nId = phone.m_directory.GetGroupIdByGroupName(ToText(words[1]));
    if (nId == NS_DIRECTORY::GROUP_ID_NONE) {
        PrintText("There is no group " + words[1] + ".");
        return;
    }
    // 0 is how this operation tells that the directory takes no changes.
    const int nResult =
        Edit(phone, [&](auto& directory) { return directory.RemoveAllContacts(nId); });
    PrintResult(nResult == NS_DIRECTORY::DIR_RET_NONE ? NS_DIRECTORY::DIR_RET_RELOADING : nResult,
                OK, words[1] + " is empty");
}

void MoveContacts(PhoneData& phone, const Words& words)
{
    const std::string& strGroup = words.back();
    if (words.size() == 3) {
        // For this operation a name of no contact is no failure.
        const bool bThere = phone.m_directory.IsContactExist(ToText(words[1]));
        const int nResult = Edit(phone, [&](auto& directory) {
            return directory.MoveContactToGroup(ToText(words[1]), ToText(strGroup));
        });
        PrintResult(nResult, OK_ZERO,
                    bThere ? words[1] + " stands in " + strGroup : "nothing to move: " + words[1]);
        return;
    }
    NameList names = ToNameList(words.begin() + 1, words.end() - 1);
    const int nResult = Edit(
        phone, [&](auto& directory) { return directory.MoveListToGroup(names, ToText(strGroup)); });
    PrintResult(nResult, OK_ZERO, "the named contacts stand in " + strGroup);
}

void Block(PhoneData& phone, const Words& words)
{
    const int nResult =
        Edit(phone, [&](auto& directory) { return directory.Local2Black(ToText(words[1])); });
    PrintResult(nResult, OK, words[1] + " is blocked");
}

void Unblock(PhoneData& phone, const Words& words)
{
    const int nResult =
        Edit(phone, [&](auto& directory) { return directory.Black2Local(ToText(words[1])); });
    PrintResult(nResult, OK, words[1] + " may call again");
}

void AddGroup(PhoneData& phone, const Words& words)
{
    RequireName(words[1]);
    ContactGroupData group;
    group.m_strDisplayName = ToText(words[1]);
    group.m_strRing = ToText(words.size() > 2 ? words[2] : "");
    const int nResult = Edit(phone, [&](auto& directory) { return directory.AddGroup(group); });
    PrintResult(nResult, POSITION, "the group " + words[1] + " is added");
}

void RenameGroup(PhoneData& phone, const Words& words)
{
    RequireName(words[2]);
    if (IsFixed(phone.m_directory.GetGroupIdByGroupName(ToText(words[1])))) {
        throw CWrongInput(words[1] + " is a fixed group and keeps its name.");
    }
    ContactGroupData group = ReadGroup(phone, words[1]);
    group.m_strDisplayName = ToText(words[2]);
    const int nResult = Edit(
        phone, [&](auto& directory) { return directory.UpdateGroupData(ToText(words[1]), group); });
    PrintResult(nResult, POSITION, "the group " + words[1] + " is called " + words[2]);
}

void SetGroupRing(PhoneData& phone, const Words& words)
{
    ContactGroupData group;
    group.m_strDisplayName = ToText(words[1]);
    group.m_strRing = ToText(words[2]);
    const int nResult = Edit(
        phone, [&](auto& directory) { return directory.UpdateGroupData(ToText(words[1]), group); });
    PrintResult(nResult, POSITION,
                words[1] + (words[2].empty() ? " has no ring" : " rings with " + words[2]));
}

void RemoveGroup(PhoneData& phone, const Words& words)
{
    const int nResult =
        Edit(phone, [&](auto& directory) { return directory.RemoveGroup(ToText(words[1])); });
    PrintResult(nResult, OK, "the group " + words[1] + " is removed");
}

void RemoveAllGroups(PhoneData& phone, const Words&)
{
    const int nResult = Edit(phone, [&](auto& directory) { return directory.RemoveAllGroup(); });
    PrintResult(nResult, OK, "only the fixed groups are left");
}

}  // namespace desk_phone
