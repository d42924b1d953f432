// A start of the directory without the directory: the same rules in the same order, but each
// refusal is kept with its reason, and no file is written.

#ifndef NSDIRECTORY_TOOLS_DIRECTORY_CHECK_DIRECTORY_CHECK_H
#define NSDIRECTORY_TOOLS_DIRECTORY_CHECK_DIRECTORY_CHECK_H

#include <deque>
#include <string>

#include "directory/internal/contact_limits.h"
#include "directory/internal/name_order.h"
#include "tools/directory_check/file_check.h"
#include "tools/directory_check/findings.h"

class CDirectoryCheck
{
  public:
    // To be called once. Either file may be absent, as on a new device. Throws CUnreadable.
    ReportData Run(const std::string& strGroupFile, const std::string& strContactFile);

  private:
    using GroupData = NS_DIRECTORY::CContactLocalManager::GroupData;
    using ItemData = NS_DIRECTORY::CContactLocalManager::ItemData;

    void CheckGroupFile(const std::string& strPath);
    void CheckGroups(CFileCheck& file, pugi::xml_node root);
    void CheckGroup(CFileCheck& file, pugi::xml_node element);
    bool TakeGroup(CFileCheck& file, pugi::xml_node element, const GroupData& group);
    void CheckContactFile(const std::string& strPath);
    void CheckContact(CFileCheck& file, pugi::xml_node element);
    bool TakeContact(CFileCheck& file, pugi::xml_node element, const ItemData& item);
    int& CountOfSide(int nGroupId);

    // The lists own no records; these do.
    std::deque<GroupData> m_groups;
    std::deque<ItemData> m_contacts;
    NS_DIRECTORY::GroupDataList m_listGroup;
    NS_DIRECTORY::ItemDataList m_listContact;
    NS_DIRECTORY::ContactLimits m_limits{NS_DIRECTORY::START_MAX_CONTACT_COUNT,
                                         NS_DIRECTORY::START_MAX_BLACK_COUNT};
    ReportData m_report;
};

#endif  // NSDIRECTORY_TOOLS_DIRECTORY_CHECK_DIRECTORY_CHECK_H
