// What the telephone finds while a name or a number is typed.

#include <algorithm>
#include <array>

#include "desk_phone/contact_fields.h"
#include "desk_phone/phone.h"
#include "desk_phone/screen.h"

namespace desk_phone {

namespace {

using NS_DIRECTORY::CContactSearch;
using NS_DIRECTORY::ContactGeneralItemData;
using NS_DIRECTORY::SearchMatchData;

constexpr int LINES = 10;

std::string MarkedText(const SearchMatchData& match)
{
    const std::string strText = match.m_pText;
    std::string strMarked;
    std::size_t nDone = 0;
    for (int n = 0; n < match.m_nPlaceCount; ++n) {
        const auto nOffset = static_cast<std::size_t>(match.m_places[n].m_nOffset);
        const auto nLength = static_cast<std::size_t>(match.m_places[n].m_nLength);
        strMarked +=
            strText.substr(nDone, nOffset - nDone) + Emphasised(strText.substr(nOffset, nLength));
        nDone = nOffset + nLength;
    }
    return strMarked + strText.substr(nDone);
}

void AddMatch(CTable& table, const PhoneData& phone, const SearchMatchData& match)
{
    ContactGeneralItemData contact;
    (void)phone.m_directory.GetContactDataByName(&contact, match.m_pDisplayName);  // just read
    const bool bName = match.m_eField == NS_DIRECTORY::SEARCH_FIELD_NAME;
    table.AddRow({bName ? MarkedText(match) : match.m_pDisplayName,
                  bName ? FirstNumber(contact) : MarkedText(match),
                  contact.m_strGroupName.c_str()});
}

using FindFunction = decltype(&CContactSearch::FindByText);

void PrintMatches(PhoneData& phone, FindFunction pFind, const std::string& strWhat,
                  const std::string& strRule)
{
    phone.m_search.Refresh();
    std::array<SearchMatchData, LINES> matches;
    const int nFound = (phone.m_search.Contacts().*pFind)(
        strWhat.c_str(), NS_DIRECTORY::SEARCH_BEST_FIRST, matches.data(), LINES);
    if (nFound < 0) {
        throw CWrongInput(strRule);
    }
    if (nFound == 0) {
        PrintText("Nobody matches " + Quoted(strWhat));
        return;
    }
    CTable table;
    table.AddColumn("Name", 12);
    table.AddColumn("Number", 14);
    table.AddColumn("Group", 8);
    for (int n = 0; n < std::min(nFound, LINES); ++n) {
        AddMatch(table, phone, matches[static_cast<std::size_t>(n)]);
    }
    table.Print();
    if (nFound > LINES) {
        PrintText("… and " + std::to_string(nFound - LINES) + " more");
    }
}

}  // namespace

void Find(PhoneData& phone, const Words& words)
{
    PrintMatches(phone, &CContactSearch::FindByText, words[1], "At most 8 words can be searched.");
}

void FindByKeys(PhoneData& phone, const Words& words)
{
    PrintMatches(phone, &CContactSearch::FindByKeys, words[1],
                 "At most 64 keys can be searched: 0 to 9, *, # and +.");
}

}  // namespace desk_phone
