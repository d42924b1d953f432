// How many groups and contacts there may be: the limits of a start, and what a limit refuses.

#ifndef NSDIRECTORY_DIRECTORY_INTERNAL_CONTACT_LIMITS_H
#define NSDIRECTORY_DIRECTORY_INTERNAL_CONTACT_LIMITS_H

namespace NS_DIRECTORY {

inline constexpr int START_MAX_GROUP_COUNT = 50;  // with the fixed groups
inline constexpr int START_MAX_CONTACT_COUNT = 1000;
inline constexpr int START_MAX_BLACK_COUNT = 30;

// How many contacts of each side an insert may bring up to.
struct ContactLimits
{
    int m_nOrdinary;
    int m_nBlack;
};

// The same over an empty group list: without groups every contact stands on the ordinary side, the
// blacklisted ones too.
ContactLimits LimitsWithoutGroups(const ContactLimits& limits);

// DIR_RET_OK where nNeeded more contacts of the group fit to the nCount that stand on its side,
// else DIR_RET_BLACK_FULL or DIR_RET_CONTACT_FULL. Above the limit nothing fits, not even none.
int TestContactLimit(const ContactLimits& limits, int nGroupId, int nCount, int nNeeded);

}  // namespace NS_DIRECTORY

#endif  // NSDIRECTORY_DIRECTORY_INTERNAL_CONTACT_LIMITS_H
