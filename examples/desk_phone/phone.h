// The telephone that the commands work on, and the commands by family. Each takes its own name as
// the first word; how many words follow has been tested by the table of commands.

#ifndef DESK_PHONE_PHONE_H
#define DESK_PHONE_PHONE_H

#include <functional>
#include <string>

#include "desk_phone/phone_search.h"
#include "desk_phone/results.h"
#include "desk_phone/words.h"
#include "directory/contact_local_manager.h"
#include "safekeeping/safe_copy.h"

namespace desk_phone {

// A text in the type that the directory takes.
inline qz::basic_string<char> ToText(const std::string& strText)
{
    qz::basic_string<char> result;
    return result.assign(strText.data(), static_cast<unsigned int>(strText.size()));
}

struct PhoneData
{
    NS_DIRECTORY::CContactLocalManager& m_directory;
    NS_DIRECTORY::CSafeCopy& m_safe;  // guards every edit
    std::string m_strCopyFolder;
    CPhoneSearch m_search;
    double m_dLoadMilliseconds;
    bool m_bOn = true;
    // Puts a question to the person at the prompt; empty if there is none, so nothing is asked.
    std::function<bool(const std::string& strQuestion)> m_ask = {};
    // A line was wrong, or the disk did not take an edit. A refusal of the directory is neither.
    bool m_bFailed = false;
};

// Every edit goes through here. edit takes the directory and returns the result of its call.
template <class TEdit>
int Edit(PhoneData& phone, TEdit edit)
{
    phone.m_search.NoteEdit();
    const int nResult = phone.m_safe.Edit(edit);
    phone.m_bFailed = phone.m_bFailed || IsOfGuard(nResult);
    return nResult;
}

// Reading: reading_commands.cpp.
void Call(PhoneData& phone, const Words& words);
void ListGroups(PhoneData& phone, const Words& words);
void ListContacts(PhoneData& phone, const Words& words);
void Show(PhoneData& phone, const Words& words);
void Export(PhoneData& phone, const Words& words);
void ShowFiles(PhoneData& phone, const Words& words);
void ShowSummary(PhoneData& phone, const Words& words);

// Searching: search_commands.cpp.
void Find(PhoneData& phone, const Words& words);
void FindByKeys(PhoneData& phone, const Words& words);

// Editing: editing_commands.cpp.
void AddContact(PhoneData& phone, const Words& words);
void UpdateContact(PhoneData& phone, const Words& words);
void RemoveContacts(PhoneData& phone, const Words& words);
void RemoveAllContacts(PhoneData& phone, const Words& words);
void MoveContacts(PhoneData& phone, const Words& words);
void Block(PhoneData& phone, const Words& words);
void Unblock(PhoneData& phone, const Words& words);
void AddGroup(PhoneData& phone, const Words& words);
void RenameGroup(PhoneData& phone, const Words& words);
void SetGroupRing(PhoneData& phone, const Words& words);
void RemoveGroup(PhoneData& phone, const Words& words);
void RemoveAllGroups(PhoneData& phone, const Words& words);

}  // namespace desk_phone

#endif  // DESK_PHONE_PHONE_H
