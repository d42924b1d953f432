// Removing contacts: one by name, several by a list of names, or a whole group. However many go,
// the file is written once.

#include "directory/contact_local_manager.h"
#include "directory/internal/name_list.h"

namespace NS_DIRECTORY {

int CContactLocalManager::RemoveContact(const qz::basic_string<char>& strName)
{
    const int nChange = MyTestChange();
    if (nChange < 0) {
        return nChange;
    }
    // An empty name is compared like any other: this is the way to be rid of a nameless contact.
    for (ItemIterator pos = m_listContact.begin(); pos != m_listContact.end(); pos = pos->next) {
        if (pos->value->m_strDisplayName == strName) {
            (void)MyEraseContact(pos);
            MySetContactDirty(true);
            return DIR_RET_OK;
        }
    }
    return DIR_RET_CONTACT_NOT_FOUND;
}

int CContactLocalManager::RemoveContactList(const QZList<qz::basic_string<char>>& listName)
{
    const int nChange = MyTestChange();
    if (nChange < 0) {
        return nChange;
    }
    CNameList names(listName);
    bool bRemoved = false;
    for (ItemIterator pos = m_listContact.begin();
         pos != m_listContact.end() && !names.IsEmpty();) {
        if (names.Strike(pos->value->m_strDisplayName)) {
            pos = MyEraseContact(pos);
            bRemoved = true;
        } else {
            pos = pos->next;
        }
    }
    if (bRemoved) {
        MySetContactDirty(true);
    }
    return DIR_RET_OK;
}

int CContactLocalManager::RemoveAllContacts(int nGroupId)
{
    if (m_bReloadByHttp) {
        return DIR_RET_NONE;  // the one operation that refuses so, and hosts know it
    }
    if (MyCatchUp() < 0) {
        return DIR_RET_NO_MEMORY;
    }
    bool bRemoved = false;
    for (ItemIterator pos = m_listContact.begin(); pos != m_listContact.end();) {
        if (nGroupId == GROUP_ID_ALL || pos->value->m_nGroupId == nGroupId) {
            pos = MyEraseContact(pos);
            bRemoved = true;
        } else {
            pos = pos->next;
        }
    }
    if (bRemoved) {
        MySetContactDirty(true);
    }
    return DIR_RET_OK;
}

}  // namespace NS_DIRECTORY
