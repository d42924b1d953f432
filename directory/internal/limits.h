// How many groups and contacts there may be: the limits of a start, what counts for which limit,
// and what a limit refuses.

#ifndef NSDIRECTORY_DIRECTORY_INTERNAL_LIMITS_H
#define NSDIRECTORY_DIRECTORY_INTERNAL_LIMITS_H

#include <algorithm>
#include <climits>

#include "directory/internal/fixed_groups.h"

namespace NS_DIRECTORY {

inline constexpr int START_MAX_GROUP_COUNT = 50;  // with the fixed groups
inline constexpr int START_MAX_CONTACT_COUNT = 1000;
inline constexpr int START_MAX_BLACK_COUNT = 30;

// True if one more group fits beside nCount others. The fixed groups count too.
inline bool HasRoomForGroup(int nCount, int nLimit)
{
    return nCount < nLimit;
}

// Contacts have two sides with a limit each: the blacklist, and all other groups together.
struct ContactLimits
{
    int m_nOrdinary;
    int m_nBlack;
};

// DIR_RET_OK if nNeeded more contacts fit on the side of the group, which holds nCount, else
// DIR_RET_BLACK_FULL or DIR_RET_CONTACT_FULL. A side above its limit refuses even a move that needs
// no slot.
inline int TestContactLimit(const ContactLimits& limits, int nGroupId, int nCount, int nNeeded)
{
    const int nLimit = IsBlack(nGroupId) ? limits.m_nBlack : limits.m_nOrdinary;
    // In 64 bits, since a limit may be any int.
    if (static_cast<long long>(nLimit) - nCount >= nNeeded) {
        return DIR_RET_OK;
    }
    return IsBlack(nGroupId) ? DIR_RET_BLACK_FULL : DIR_RET_CONTACT_FULL;
}

// The limits for a load. Over an empty group list, blacklisted contacts are on the ordinary side
// too, so that side has room for all.
inline ContactLimits LimitsForLoad(const ContactLimits& limits, const GroupDataList& groups)
{
    if (groups.size() != 0) {
        return limits;
    }
    // A negative limit holds nothing, and the sum is an int.
    const int nOrdinary = std::max(limits.m_nOrdinary, 0);
    const int nBlack = std::min(std::max(limits.m_nBlack, 0), INT_MAX - nOrdinary);
    return {nOrdinary + nBlack, limits.m_nBlack};
}

}  // namespace NS_DIRECTORY

#endif  // NSDIRECTORY_DIRECTORY_INTERNAL_LIMITS_H
