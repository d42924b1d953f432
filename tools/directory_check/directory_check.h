// A start of the directory without the directory: it listens to the library's own load, keeps each
// refusal with its reason, and writes no file.

#ifndef NSDIRECTORY_TOOLS_DIRECTORY_CHECK_DIRECTORY_CHECK_H
#define NSDIRECTORY_TOOLS_DIRECTORY_CHECK_DIRECTORY_CHECK_H

#include <deque>
#include <memory>
#include <string>
#include <vector>

#include "directory/internal/contact_load.h"
#include "directory/internal/group_load.h"
#include "tools/directory_check/file_check.h"
#include "tools/directory_check/findings.h"

class CDirectoryCheck : private NS_DIRECTORY::CGroupLoadListener,
                        private NS_DIRECTORY::CContactLoadListener
{
  public:
    // To be called once. Either file may be absent, as on a new device. An empty path leaves a file
    // out: without the group file it is not judged which groups the contacts name. Throws
    // CUnreadable.
    ReportData Run(const std::string& strGroupFile, const std::string& strContactFile);

  private:
    using GroupData = NS_DIRECTORY::CContactLocalManager::GroupData;
    using ItemData = NS_DIRECTORY::CContactLocalManager::ItemData;

    void CheckGroupFile(const std::string& strPath);
    int Take(const NS_DIRECTORY::GroupPlace& place, const GroupData& group,
             pugi::xml_node element) override;
    void Refuse(const NS_DIRECTORY::GroupPlace& place, const GroupData& group,
                pugi::xml_node element) override;
    void PassOver(pugi::xml_node element) override;

    void CheckContactFile(const std::string& strPath);
    void Take(ItemData* pItem, pugi::xml_node element) override;
    void Append(ItemData* pItem) override;
    void Clear() override;
    void Refuse(int nCode, pugi::xml_node element, const ItemData* pPresent) override;

    CFileCheck* m_pFile = nullptr;   // the file that is checked
    std::deque<GroupData> m_groups;  // the lists own no records; these do
    std::vector<std::unique_ptr<ItemData>> m_contacts;
    NS_DIRECTORY::GroupDataList m_listGroup;
    NS_DIRECTORY::ItemDataList m_listContact;
    NS_DIRECTORY::ContactLimits m_limits{};
    ReportData m_report;
};

#endif  // NSDIRECTORY_TOOLS_DIRECTORY_CHECK_DIRECTORY_CHECK_H
