// Memory that runs short costs no contact. A file that could not be read whole for lack of memory
// counts as unread: the list may hold a part of it. Questions are answered from that part, but no
// save may write it over the whole file. A document that could not be built leaves its file older
// than the list, and no reload may replace the list by it. Each mutator repairs both before it
// changes anything, and refuses if memory is still short.

#include "directory/contact_local_manager.h"
#include "directory/internal/fixed_groups.h"
#include "directory/internal/limits.h"

namespace NS_DIRECTORY {

int CContactLocalManager::MyTestChange()
{
    return m_bReloadByHttp ? DIR_RET_RELOADING : MyCatchUp();
}

int CContactLocalManager::MyCatchUp()
{
    // Saves first: what is about to be read must hold what is in memory.
    if (m_bContactUnsaved) {
        MySetContactDirty(true);
    }
    if (m_bGroupUnsaved) {
        MySetGroupDirty(true);
    }
    if (m_bContactUnsaved || m_bGroupUnsaved) {
        return DIR_RET_NO_MEMORY;
    }
    if (m_bGroupUnread) {
        (void)ReloadGroupXml();  // the flag shows whether it worked
    }
    if (m_bContactUnread && !m_bGroupUnread) {
        (void)ReloadContactXml();
    }
    return m_bContactUnread ? DIR_RET_NO_MEMORY : DIR_RET_OK;
}

// The reload of the catch-up gives new ids, but the id that the host has asked for right before its
// call must mean the same group.
int CContactLocalManager::MyCatchUp(int& nGroupId)
{
    if (!m_bGroupUnread || IsFixedGroupId(nGroupId)) {
        return MyCatchUp();
    }
    const qz::basic_string<char> strName = MyGId2Name(nGroupId);
    const int nResult = MyCatchUp();
    nGroupId = MyGName2Id(strName);
    return nResult;
}

int CContactLocalManager::MyTestChange(int& nGroupId)
{
    return m_bReloadByHttp ? DIR_RET_RELOADING : MyCatchUp(nGroupId);
}

// Contacts that were read over part of the groups have lost their links, so their file counts as
// unread too.
void CContactLocalManager::MySetGroupUnread(bool bUnread, int nRoom)
{
    m_bGroupUnread = bUnread;
    m_nGroupRoom = bUnread ? nRoom : 0;
    m_bContactUnread = m_bContactUnread || bUnread;
}

void CContactLocalManager::MySetContactUnread(bool bUnread, const ContactLimits& room)
{
    m_bContactUnread = bUnread || m_bGroupUnread;
    m_nContactRoom = m_bContactUnread ? room.m_nOrdinary : 0;
    m_nBlackRoom = m_bContactUnread ? room.m_nBlack : 0;
}

}  // namespace NS_DIRECTORY
