#include "desk_phone/completion.h"

#include <algorithm>
#include <climits>

#include "desk_phone/commands.h"
#include "desk_phone/text_width.h"

namespace desk_phone {

namespace {

using NS_DIRECTORY::CContactLocalManager;

constexpr char GROUP_FIELD[] = "group=";

bool BeginsWith(const std::string& strText, const std::string& strStart)
{
    return strText.compare(0, strStart.size(), strStart) == 0;
}

// The groups, each after what is before it in the word.
void AddGroups(const CContactLocalManager& directory, const std::string& strBefore, Words& choices)
{
    for (int nIndex = 0; nIndex < directory.GetCurrentGroupCount(); ++nIndex) {
        qz::basic_string<char> strName;
        (void)directory.GetGroupNameByIndex(nIndex, strName);  // it is there
        choices.push_back(strBefore + strName.c_str());
    }
}

void AddNames(const CContactLocalManager& directory, Words& choices)
{
    for (const int nGroupId : {NS_DIRECTORY::GROUP_ID_ALL, NS_DIRECTORY::GROUP_ID_BLACKLIST}) {
        NS_DIRECTORY::ContactGeneralItemListData page;
        page.m_nCountToGet = INT_MAX;
        (void)directory.GetContactListById(&page, nGroupId);  // without groups there are none
        for (auto pos = page.m_listData.begin(); pos != page.m_listData.end(); pos = pos->next) {
            choices.emplace_back(pos->value.m_strDisplayName.c_str());
        }
    }
}

Words ChoicesFor(const CContactLocalManager& directory, Expected expected,
                 const std::string& strWord)
{
    Words choices;
    if (expected == Expected::COMMANDS) {
        choices = CommandNames();
    }
    if (expected == Expected::GROUPS || expected == Expected::NAMES_AND_GROUPS) {
        AddGroups(directory, "", choices);
    }
    if (expected == Expected::NAMES || expected == Expected::NAMES_AND_GROUPS) {
        AddNames(directory, choices);
    }
    if (expected == Expected::FIELDS && BeginsWith(strWord, GROUP_FIELD)) {
        AddGroups(directory, GROUP_FIELD, choices);
    }
    return choices;
}

// The characters that all begin with.
std::string CommonStart(const Words& choices)
{
    std::string strStart = choices.front();
    for (const std::string& strChoice : choices) {
        const auto difference =
            std::mismatch(strStart.begin(), strStart.end(), strChoice.begin(), strChoice.end());
        strStart.erase(difference.first, strStart.end());
    }
    while (!strStart.empty() && !IsPlainText(strStart)) {
        strStart.pop_back();  // a part of a character
    }
    return strStart;
}

}  // namespace

CompletionData Complete(const PhoneData& phone, const std::string& strBeforeCursor)
{
    const LastWordData last = FindLastWord(strBeforeCursor);
    const std::string strWord = strBeforeCursor.substr(last.m_nFrom);
    const Expected expected = ExpectedAfter(last.m_before);
    Words choices = ChoicesFor(phone.m_directory, expected, last.m_strText);
    const auto IsNoChoice = [&last](const std::string& strChoice) {
        return !BeginsWith(strChoice, last.m_strText) || !IsPlainText(strChoice);
    };
    choices.erase(std::remove_if(choices.begin(), choices.end(), IsNoChoice), choices.end());
    if (choices.empty()) {
        return {strWord, strWord, {}};
    }
    if (choices.size() == 1) {
        return {strWord, Quoted(choices.front()) + " ", {}};
    }
    const std::string strStart = CommonStart(choices);
    return {strWord, strStart == last.m_strText ? strWord : OpenQuoted(strStart), choices};
}

}  // namespace desk_phone
