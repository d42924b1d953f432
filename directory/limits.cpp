// The three limits, and the counts that they are compared with. A limit refuses new entries and
// costs none that is stored: a reload has room for at least as many as the lists held before it.

#include "directory/internal/limits.h"

#include <algorithm>
#include <utility>

#include "directory/contact_local_manager.h"
#include "directory/internal/fixed_groups.h"

namespace NS_DIRECTORY {

ContactLimits CContactLocalManager::MyContactLimits() const
{
    return {m_nMaxContactCount, m_nMaxBlackCount};
}

int CContactLocalManager::MyCountOfSide(int nGroupId) const
{
    return IsBlack(nGroupId) ? GetCurrentBlackCount() : GetCurrentContactCount();
}

int CContactLocalManager::MyTestContactLimit(int nGroupId, int nNeeded) const
{
    return TestContactLimit(MyContactLimits(), nGroupId, MyCountOfSide(nGroupId), nNeeded);
}

// A contact of group 0 that keeps the name of the blacklist is on its way back there.
ContactLimits CContactLocalManager::MyContactLimitsForReload() const
{
    int nBlackHeld = 0;
    for (const ItemData& item : RecordsOf(m_listContact)) {
        if (IsBlack(item.m_nGroupId) || item.m_strKeptGroupName == BLACKLIST.m_pName) {
            ++nBlackHeld;
        }
    }
    return {std::max({m_nMaxContactCount, GetCurrentContactCount(), m_nContactRoom}),
            std::max({m_nMaxBlackCount, nBlackHeld, m_nBlackRoom})};
}

// Fixed groups that the load makes again take no slot either.
int CContactLocalManager::MyGroupLimitForReload() const
{
    int nHeld = GetCurrentGroupCount();
    for (const FixedGroup& fixed : FIXED_GROUPS) {
        if (!IsGroupExist(fixed.m_pName)) {
            ++nHeld;
        }
    }
    return std::max({m_nMaxGroupCount, nHeld, m_nGroupRoom});
}

int CContactLocalManager::GetCurrentGroupCount() const
{
    return static_cast<int>(m_listGroup.size());
}

int CContactLocalManager::GetCurrentContactCount() const
{
    return static_cast<int>(m_listContact.size()) - m_nBlackCount;
}

int CContactLocalManager::GetCurrentBlackCount() const
{
    return m_nBlackCount;
}

int CContactLocalManager::GetMaxGroupCount() const
{
    return m_nMaxGroupCount;
}

int CContactLocalManager::GetMaxContactCount() const
{
    return m_nMaxContactCount;
}

int CContactLocalManager::GetMaxBlackCount() const
{
    return m_nMaxBlackCount;
}

int CContactLocalManager::SetMaxGroupCount(int nMax)
{
    return std::exchange(m_nMaxGroupCount, nMax);
}

int CContactLocalManager::SetMaxContactCount(int nMax)
{
    return std::exchange(m_nMaxContactCount, nMax);
}

int CContactLocalManager::SetMaxBlackCount(int nMax)
{
    return std::exchange(m_nMaxBlackCount, nMax);
}

}  // namespace NS_DIRECTORY
