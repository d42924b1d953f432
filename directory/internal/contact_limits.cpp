// The one test of both limits of contacts.

#include "directory/internal/contact_limits.h"

#include <algorithm>
#include <climits>

#include "directory/contact_records.h"

namespace NS_DIRECTORY {
namespace {

// Of two limits, negative ones holding nothing.
int SumOfLimits(int nLeft, int nRight)
{
    const int nFirst = std::max(nLeft, 0);
    return nFirst + std::min(std::max(nRight, 0), INT_MAX - nFirst);
}

}  // namespace

ContactLimits LimitsWithoutGroups(const ContactLimits& limits)
{
    return {SumOfLimits(limits.m_nOrdinary, limits.m_nBlack), limits.m_nBlack};
}

int TestContactLimit(const ContactLimits& limits, int nGroupId, int nCount, int nNeeded)
{
    const bool bBlack = nGroupId == GROUP_ID_BLACKLIST;
    const int nLimit = bBlack ? limits.m_nBlack : limits.m_nOrdinary;
    // In 64 bits, since a limit may be any int.
    if (static_cast<long long>(nLimit) - nCount >= nNeeded) {
        return DIR_RET_OK;
    }
    return bBlack ? DIR_RET_BLACK_FULL : DIR_RET_CONTACT_FULL;
}

}  // namespace NS_DIRECTORY
