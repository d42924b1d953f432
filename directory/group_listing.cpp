// Pages of the group list, and one group by its id. Positions count the visible groups only.

#include "directory/contact_local_manager.h"
#include "directory/internal/fixed_groups.h"
#include "directory/internal/page_window.h"
#include "platform/device_services.h"

namespace NS_DIRECTORY {
namespace {

constexpr char KEY_SHOW_BLACKLIST[] = "HistoryBlackListShowSwitch";
constexpr int VALUE_SHOW_BLACKLIST = 1;

bool IsBlacklistShown()
{
    return configParser_GetConfigInt(KEY_SHOW_BLACKLIST, ZMK_RegistryHelper::CONFIG_LEVEL_USER) ==
           VALUE_SHOW_BLACKLIST;
}

// Calls append for each visible group of the page that list asks for.
template <class PageData, class Append>
void AppendPage(PageData& page, const GroupDataList& list, bool bWithBlacklist, Append append)
{
    const CPageWindow window(page.m_nIndexFrom, page.m_nCountToGet);
    int nVisible = 0;
    for (const GroupData& group : RecordsOf(list)) {
        if (IsBlack(group.m_nId) && !bWithBlacklist) {
            continue;
        }
        if (window.Holds(nVisible)) {
            append(group);
        }
        ++nVisible;
    }
    // Also for a list that holds no blacklist to hide: an empty one totals -1.
    page.m_nTotalCount = static_cast<int>(list.size()) - (bWithBlacklist ? 0 : 1);
}

}  // namespace

int CContactLocalManager::GetGroupSimpleList(ContactGroupSimpleListData* pList) const
{
    if (pList == nullptr) {
        return DIR_RET_NONE;
    }
    AppendPage(*pList, m_listGroup, IsBlacklistShown(), [pList](const GroupData& group) {
        ContactGroupSimpleData data;
        data.m_strDisplayName = group.m_strDisplayName;
        data.m_nId = group.m_nId;
        pList->m_listData.push_back(data);
    });
    return DIR_RET_OK;
}

int CContactLocalManager::GetGroupList(ContactGroupListData* pList, bool bWithBlacklist) const
{
    (void)bWithBlacklist;  // these pages never show the blacklist
    if (pList == nullptr) {
        return DIR_RET_NONE;
    }
    AppendPage(*pList, m_listGroup, false, [this, pList](const GroupData& group) {
        ContactGroupData data;
        (void)MyGD2CGD(&data, group);  // fails for null only
        pList->m_listData.push_back(data);
    });
    return DIR_RET_OK;
}

int CContactLocalManager::GetGroupDataByID(ContactGroupData* pData, int nId) const
{
    if (pData == nullptr || nId < 0) {
        return DIR_RET_NONE;
    }
    const GroupData* pGroup = MyFindGroupById(nId);
    return pGroup == nullptr ? DIR_RET_NONE : MyGD2CGD(pData, *pGroup);
}

int CContactLocalManager::MyGD2CGD(ContactGroupData* pData, const GroupData& group) const
{
    if (pData == nullptr) {
        return DIR_RET_NONE;
    }
    pData->m_strDisplayName = group.m_strDisplayName;
    pData->m_strRing = group.m_strRing;
    return DIR_RET_OK;
}

}  // namespace NS_DIRECTORY
