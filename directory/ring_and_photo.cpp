// The ring to play for a caller, the name of a contact's group, and the return to the default
// photo.

#include <cstring>

#include "directory/contact_local_manager.h"
#include "directory/internal/records.h"
#include "platform/device_services.h"

namespace NS_DIRECTORY {
namespace {

constexpr char DEFAULT_PHOTO[] = "Default:default_contact_image.png";

}  // namespace

qz::basic_string<char> CContactLocalManager::GetContactRingByNumber(const char* pNumber,
                                                                    const char* pSecond) const
{
    (void)pSecond;  // not used in the search
    const ItemData* pItem = MyFindContactByNumber(pNumber, {});
    if (pItem == nullptr) {
        return {};
    }
    if (!pItem->m_strRing.empty() && ZMK_MiscHelper::pathFileExist(pItem->m_strRing.c_str()) != 0) {
        return pItem->m_strRing;
    }
    const GroupData* pGroup = MyFindGroupById(pItem->m_nGroupId);
    return pGroup == nullptr ? qz::basic_string<char>() : pGroup->m_strRing;
}

// Despite the operation's name, the result is the name of the group, not its ring.
qz::basic_string<char> CContactLocalManager::GetGroupRingByContact(
    const qz::basic_string<char>& strName) const
{
    const ItemData* pItem = MyFindContact(strName);
    return pItem == nullptr ? qz::basic_string<char>() : MyGId2Name(pItem->m_nGroupId);
}

int CContactLocalManager::SetDefaultPhoto(const char* pPhoto)
{
    if (pPhoto == nullptr) {
        return DIR_RET_NULL_ARGUMENT;
    }
    if (MyCatchUp() < 0) {  // MyTestChange would refuse while the directory takes no changes
        return DIR_RET_NO_MEMORY;
    }
    for (ItemData& item : RecordsOf(m_listContact)) {
        if (std::strcmp(item.m_strDefaultPhoto.c_str(), pPhoto) == 0) {
            item.m_strDefaultPhoto = DEFAULT_PHOTO;
        }
    }
    MySetContactDirty(true);  // in every case, even if no contact has the photo
    return DIR_RET_OK_ZERO;
}

}  // namespace NS_DIRECTORY
