#include "search/internal/contact_pages.h"

#include <strings.h>

namespace NS_DIRECTORY {

namespace {

// Each page costs a walk of all contacts, and holds memory for its own.
constexpr int PAGE = 64;

}  // namespace

CGroupPages::CGroupPages(const CContactLocalManager& directory, int nGroupId)
    : m_directory(directory), m_nGroupId(nGroupId)
{
    m_page.m_nCountToGet = PAGE;
    MyReadPage();
}

const ContactGeneralItemData* CGroupPages::Current() const
{
    return m_pos == m_page.m_listData.end() ? nullptr : &m_pos->value;
}

void CGroupPages::Advance()
{
    m_pos = m_pos->next;
    if (m_pos == m_page.m_listData.end()) {
        m_page.m_nIndexFrom += PAGE;
        MyReadPage();
    }
}

void CGroupPages::MyReadPage()
{
    m_page.m_listData.clear();
    if (m_page.m_nIndexFrom == 0 || m_page.m_nIndexFrom < m_page.m_nTotalCount) {
        // A group that is not there has no contacts to hand out.
        (void)m_directory.GetContactListById(&m_page, m_nGroupId);
    }
    m_pos = m_page.m_listData.begin();
}

const ContactGeneralItemData* CContactPages::Current() const
{
    return IsBlacklisted() ? m_black.Current() : m_ordinary.Current();
}

bool CContactPages::IsBlacklisted() const
{
    const ContactGeneralItemData* pOrdinary = m_ordinary.Current();
    const ContactGeneralItemData* pBlack = m_black.Current();
    if (pOrdinary == nullptr || pBlack == nullptr) {
        return pBlack != nullptr;
    }
    // The order of the directory's one list.
    return strcasecmp(pBlack->m_strDisplayName.c_str(), pOrdinary->m_strDisplayName.c_str()) < 0;
}

void CContactPages::Advance()
{
    (IsBlacklisted() ? m_black : m_ordinary).Advance();
}

}  // namespace NS_DIRECTORY
