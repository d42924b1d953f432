#include "directory/contact_local_manager.h"

using namespace NS_DIRECTORY;

int main()
{
    const qz::basic_string<char> strShort("fourteen chars");
    const qz::basic_string<char> strLong("Zo\xC3\xAB of fifteen");
    CContactLocalManager::GroupData group;
    group.m_nId = GROUP_ID_ALL;
    group.m_strDisplayName = "All Contacts";
    CContactLocalManager::ItemData item;
    item.m_strDisplayName = strLong;
    item.m_nGroupId = GROUP_ID_BLACKLIST;
    QZList<CContactLocalManager::ItemData*> listItem;
    listItem.push_back(&item);
    listItem.push_back(nullptr);
    ContactGroupSimpleListData page;
    page.m_listData.push_back({"Family", 2});
    return static_cast<int>(strShort.size() - strLong.size() - page.m_listData.size());
}
