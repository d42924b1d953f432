#include "search/internal/contact_index.h"

#include <new>

#include "search/internal/contact_pages.h"

namespace NS_DIRECTORY {

namespace {

constexpr int FIELD_COUNT = 4;

constexpr qz::basic_string<char> ContactGeneralItemData::*FIELDS[FIELD_COUNT] = {
    &ContactGeneralItemData::m_strDisplayName, &ContactGeneralItemData::m_strOfficeNumber,
    &ContactGeneralItemData::m_strMobileNumber, &ContactGeneralItemData::m_strOtherNumber};

static_assert(SEARCH_FIELD_NAME == 0 && SEARCH_FIELD_OFFICE_NUMBER == 1 &&
                  SEARCH_FIELD_MOBILE_NUMBER == 2 && SEARCH_FIELD_OTHER_NUMBER == 3,
              "the texts lie in the order of the fields");

}  // namespace

const char* IndexEntryData::Text(SearchFieldType eField) const
{
    const char* pText = m_words.Text(m_nTexts);
    for (int nField = SEARCH_FIELD_NAME; nField != eField; ++nField) {
        pText += std::strlen(pText) + 1;
    }
    return pText;
}

SearchMatchData IndexEntryData::Match(SearchFieldType eField) const
{
    SearchMatchData match;
    match.m_pDisplayName = Text(SEARCH_FIELD_NAME);
    match.m_bBlacklisted = m_bBlacklisted;
    match.m_eField = eField;
    match.m_pText = Text(eField);
    return match;
}

CContactIndex* CContactIndex::Create(const CContactLocalManager& directory, MakeWords makeWords,
                                     const char* pCountry)
{
    auto* pIndex = new (std::nothrow) CContactIndex;
    if (pIndex != nullptr && !pIndex->MyFill(directory, makeWords, pCountry)) {
        delete pIndex;
        pIndex = nullptr;
    }
    return pIndex;
}

IndexEntryData CContactIndex::Entry(int nAt) const
{
    const EntryData* pEntry = m_entries.Begin() + nAt;
    return {m_words, pEntry->m_nTexts, m_words.Words() + pEntry[0].m_nFirstWord,
            m_words.Words() + pEntry[1].m_nFirstWord, pEntry->m_nBlacklisted != 0};
}

bool CContactIndex::MyFill(const CContactLocalManager& directory, MakeWords makeWords,
                           const char* pCountry)
{
    for (CContactPages pages(directory); pages.Current() != nullptr; pages.Advance()) {
        if (!MyBeginEntry(pages.IsBlacklisted()) ||
            !MyAddContact(*pages.Current(), makeWords, pCountry)) {
            return false;
        }
    }
    if (!MyBeginEntry(false)) {
        return false;
    }
    m_words.GiveBackSpareRoom();
    m_entries.GiveBackSpareRoom();
    return true;
}

bool CContactIndex::MyAddContact(const ContactGeneralItemData& contact, MakeWords makeWords,
                                 const char* pCountry)
{
    std::uint32_t arAt[FIELD_COUNT] = {};
    for (int n = 0; n < FIELD_COUNT; ++n) {
        if (!m_words.AddText((contact.*FIELDS[n]).c_str(), arAt[n])) {
            return false;
        }
    }
    for (int n = 0; n < FIELD_COUNT; ++n) {
        const std::uint32_t nWords = m_words.Count();
        if (!makeWords((contact.*FIELDS[n]).c_str(), static_cast<SearchFieldType>(n), pCountry,
                       m_words)) {
            return false;
        }
        if (m_words.Count() != nWords) {
            m_words.ShareForm(arAt[n]);
        }
    }
    return true;
}

bool CContactIndex::MyBeginEntry(bool bBlacklisted)
{
    EntryData entry{};
    entry.m_nTexts = m_words.TextEnd();
    entry.m_nFirstWord = m_words.Count() & 0x7FFFFFFFU;
    entry.m_nBlacklisted = bBlacklisted ? 1 : 0;
    return m_entries.Append(entry);
}

}  // namespace NS_DIRECTORY
