/// \file
/// What crosses the boundary of the directory: result codes, the fixed group ids, and the records
/// that a host hands in or has filled.
///
/// All of these records belong to the host. The library reads them or fills them during a call and
/// keeps no pointer to them. Texts are UTF-8 and hold no NUL byte.

#ifndef NSDIRECTORY_DIRECTORY_CONTACT_RECORDS_H
#define NSDIRECTORY_DIRECTORY_CONTACT_RECORDS_H

#include "qzstl/list_like"
#include "qzstl/string_like"

namespace NS_DIRECTORY {

// Results. Failures are negative, so that counts and positions are free for success. A few
// operations return 0 for success; each says so at its declaration.
inline constexpr int DIR_RET_OK = 1;
inline constexpr int DIR_RET_OK_ZERO = 0;  ///< of the moves by name, their test, SetDefaultPhoto
inline constexpr int DIR_RET_NONE = 0;  ///< a query that found nothing, a load that was not whole

inline constexpr int DIR_RET_GROUP_EXIST = -1;        ///< a group of that name or id exists
inline constexpr int DIR_RET_CONTACT_EXIST = -2;      ///< a contact of that name exists
inline constexpr int DIR_RET_GROUP_ID_FAIL = -3;      ///< no usable group id
inline constexpr int DIR_RET_GROUP_NOT_FOUND = -4;    ///< no such group; nothing to remove
inline constexpr int DIR_RET_CONTACT_NOT_FOUND = -5;  ///< no contact of that name
inline constexpr int DIR_RET_GROUP_READ_ONLY = -6;    ///< a fixed group stays
inline constexpr int DIR_RET_CONTACT_FULL = -7;       ///< limit of ordinary contacts reached
inline constexpr int DIR_RET_BLACK_FULL = -8;         ///< limit of blacklisted contacts reached
inline constexpr int DIR_RET_GROUP_FULL = -9;         ///< limit of groups reached
inline constexpr int DIR_RET_ALREADY_BLACK = -10;     ///< the contact is in the blacklist
inline constexpr int DIR_RET_NOT_BLACK = -12;         ///< the contact is not in the blacklist
inline constexpr int DIR_RET_RELOADING = -13;         ///< the directory takes no changes now
inline constexpr int DIR_RET_NULL_ARGUMENT = -15;     ///< a required pointer is null
inline constexpr int DIR_RET_NO_MEMORY = -50;         ///< no memory now; nothing has changed
inline constexpr int DIR_RET_EMPTY_KEY = -100;        ///< the name that selects the entry is empty
inline constexpr int DIR_RET_INVALID = -101;          ///< the data is refused

// Group ids. These two are fixed; all others live in memory only, and every load of the
// group file gives new ones, so no id outlives an add, a rename or a removal of a group.
inline constexpr int GROUP_ID_NONE = -1;
inline constexpr int GROUP_ID_ALL = 0;        ///< "All Contacts": contacts in no user group
inline constexpr int GROUP_ID_BLACKLIST = 1;  ///< "Blacklist"

/// A group as hosts see it. The name is the key.
struct ContactGroupData
{
    qz::basic_string<char> m_strDisplayName;
    qz::basic_string<char> m_strRing;  ///< path of the group's ring; may be empty
};

/// A contact as hosts see it. The display name is the key.
struct ContactGeneralItemData
{
    qz::basic_string<char> m_strDisplayName;
    qz::basic_string<char> m_strGroupName;
    qz::basic_string<char> m_strOfficeNumber;
    qz::basic_string<char> m_strMobileNumber;
    qz::basic_string<char> m_strOtherNumber;
    qz::basic_string<char> m_strDefaultPhoto;  ///< path; used on colour screens only
    qz::basic_string<char> m_strRing;          ///< path; empty leaves it to the group
    int m_nLine = 0;                           ///< the host's; stored only
    int m_nSelectedPhoto = 0;                  ///< the host's; used on colour screens only
};

/// One entry of a list of group names.
struct ContactGroupSimpleData
{
    qz::basic_string<char> m_strDisplayName;
    int m_nId = GROUP_ID_NONE;
};

// Paged lists. The host sets the range. The library appends the entries to m_listData without
// emptying it first, and sets the total, which counts the entries on all pages. Indexes count the
// entries that the list can show. A negative first index means that many fewer from the start; a
// count of INT_MAX means all that follow.

/// A page of group names and ids.
struct ContactGroupSimpleListData
{
    QZList<ContactGroupSimpleData> m_listData;
    int m_nIndexFrom = 0;   ///< in: first index wanted, from 0
    int m_nCountToGet = 0;  ///< in: number of entries wanted
    int m_nTotalCount = 0;  ///< out
};

/// A page of group names and rings.
struct ContactGroupListData
{
    QZList<ContactGroupData> m_listData;
    int m_nIndexFrom = 0;   ///< in: first index wanted, from 0
    int m_nCountToGet = 0;  ///< in: number of entries wanted
    int m_nTotalCount = 0;  ///< out
};

/// A page of contacts.
struct ContactGeneralItemListData
{
    int m_nHostData = 0;  ///< the host's own; the library neither reads nor writes it
    QZList<ContactGeneralItemData> m_listData;
    int m_nIndexFrom = 0;   ///< in: first index wanted, from 0
    int m_nCountToGet = 0;  ///< in: number of entries wanted
    int m_nTotalCount = 0;  ///< out
};

/// What a change of a contact means for a host's call log, for hosts that share this header. No
/// operation of the library makes or reads one.
struct CallLogUpdateData
{
    qz::basic_string<char> m_strDisplayName;
    qz::basic_string<char> m_strOfficeNumber;
    qz::basic_string<char> m_strMobileNumber;
    qz::basic_string<char> m_strOtherNumber;

    CallLogUpdateData() = default;

    /// Empties all four.
    void Reset()
    {
        m_strDisplayName.clear();
        m_strOfficeNumber.clear();
        m_strMobileNumber.clear();
        m_strOtherNumber.clear();
    }
};

}  // namespace NS_DIRECTORY

#endif  // NSDIRECTORY_DIRECTORY_CONTACT_RECORDS_H
