// Removing contacts: one by name, several by a list of names, or a whole group. The file is written
// once, however many are removed.

#include "directory/contact_local_manager.h"
#include "directory/internal/fixed_groups.h"
#include "directory/internal/name_set.h"

namespace NS_DIRECTORY {

int CContactLocalManager::RemoveContact(const qz::basic_string<char>& strName)
{
    const int nChange = MyTestChange();
    if (nChange < 0) {
        return nChange;
    }
    // An empty name removes the contact without a name. No other call can.
    const ItemIterator pos = MyFindContactPosition(strName);
    if (pos == m_listContact.end()) {
        return DIR_RET_CONTACT_NOT_FOUND;
    }
    (void)MyEraseContact(pos);
    MySetContactDirty(true);
    return DIR_RET_OK;
}

int CContactLocalManager::RemoveContactList(const QZList<qz::basic_string<char>>& listName)
{
    const int nChange = MyTestChange();
    if (nChange < 0) {
        return nChange;
    }
    const unsigned int nBefore = m_listContact.size();
    VisitNamed(m_listContact, CNameSet(listName),
               [this](ItemIterator pos) { (void)MyEraseContact(pos); });
    if (m_listContact.size() != nBefore) {
        MySetContactDirty(true);
    }
    return DIR_RET_OK;
}

int CContactLocalManager::RemoveAllContacts(int nGroupId)
{
    if (m_bReloadByHttp) {
        return DIR_RET_NONE;  // the one operation that refuses so, and hosts know it
    }
    if (MyCatchUp(nGroupId) < 0) {
        return DIR_RET_NO_MEMORY;
    }
    const unsigned int nBefore = m_listContact.size();
    for (ItemIterator pos = m_listContact.begin(); pos != m_listContact.end();) {
        pos = IsCountedIn(nGroupId, *pos->value) ? MyEraseContact(pos) : pos->next;
    }
    if (m_listContact.size() != nBefore) {
        MySetContactDirty(true);
    }
    return DIR_RET_OK;
}

}  // namespace NS_DIRECTORY
