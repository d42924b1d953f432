// Life of the directory: the instance, its start and its stop.

#include "directory/contact_local_manager.h"

#include <new>

#include "directory/data_files.h"
#include "directory/internal/limits.h"

namespace NS_DIRECTORY {

CContactLocalManager* CContactLocalManager::m_pInst = nullptr;

CContactLocalManager::CContactLocalManager() = default;

// MyFinal() has freed the records; the lists free their nodes, the contacts first.
CContactLocalManager::~CContactLocalManager() = default;

void CContactLocalManager::GroupData::Reset()
{
    m_nId = GROUP_ID_NONE;
    m_strDisplayName.clear();
    m_strRing.clear();
    m_bReadOnly = false;
}

CContactLocalManager* CContactLocalManager::GetInstance()
{
    if (m_pInst == nullptr) {
        m_pInst = new (std::nothrow) CContactLocalManager;
        if (m_pInst != nullptr) {
            // A host gets its phone book even if a file could not be read.
            (void)m_pInst->MyInit();
        }
    }
    return m_pInst;
}

void CContactLocalManager::ReleaseInstance()
{
    if (m_pInst == nullptr) {
        return;
    }
    (void)m_pInst->MyFinal();  // nothing is left to do about a list that did not empty
    delete m_pInst;
    m_pInst = nullptr;
}

bool CContactLocalManager::MyInit()
{
    if (m_pIdGenerator == nullptr) {
        m_pIdGenerator = new (std::nothrow) CRIdGenerator;
    }
    m_nMaxGroupCount = START_MAX_GROUP_COUNT;
    m_nMaxContactCount = START_MAX_CONTACT_COUNT;
    m_nMaxBlackCount = START_MAX_BLACK_COUNT;
    // Groups first: contacts find their group by its name.
    const int nGroups = MyLoadGroupFromXmlFile(GROUP_FILE_NAME);
    const int nContacts = MyLoadContactFromXmlFile(CONTACT_FILE_NAME);
    return nGroups != DIR_RET_NONE && nContacts != DIR_RET_NONE;
}

bool CContactLocalManager::MyFinal()
{
    delete m_pIdGenerator;
    m_pIdGenerator = nullptr;
    (void)MyClearContactList();  // always true: it takes every entry
    return MyClearGroupList();
}

int CContactLocalManager::ReloadGroupAndItemByHttp()
{
    return DIR_RET_NONE;
}

bool CContactLocalManager::IsReloadGroupAndItemByHttp() const
{
    return m_bReloadByHttp;
}

}  // namespace NS_DIRECTORY
