// The walks over the group list that look for one group.

#include "directory/internal/group_finders.h"

namespace NS_DIRECTORY {
namespace {

template <class TName>
GroupData* FindNamed(const GroupDataList& list, const TName& name)
{
    for (GroupData& group : RecordsOf(list)) {
        if (group.m_strDisplayName == name) {
            return &group;
        }
    }
    return nullptr;
}

}  // namespace

GroupData* FindGroupById(const GroupDataList& list, int nId)
{
    if (nId == GROUP_ID_NONE) {
        return nullptr;
    }
    for (GroupData& group : RecordsOf(list)) {
        if (group.m_nId == nId) {
            return &group;
        }
    }
    return nullptr;
}

GroupData* FindGroupByName(const GroupDataList& list, const qz::basic_string<char>& strName)
{
    return strName.empty() ? nullptr : FindNamed(list, strName);
}

GroupData* FindGroupByName(const GroupDataList& list, const char* pName)
{
    return *pName == '\0' ? nullptr : FindNamed(list, pName);
}

int GroupIdByName(const GroupDataList& list, const char* pName)
{
    const GroupData* pGroup = FindGroupByName(list, pName);
    return pGroup == nullptr ? GROUP_ID_NONE : pGroup->m_nId;
}

const char* GroupNameById(const GroupDataList& list, int nId)
{
    const GroupData* pGroup = FindGroupById(list, nId);
    return pGroup == nullptr ? "" : pGroup->m_strDisplayName.c_str();
}

}  // namespace NS_DIRECTORY
