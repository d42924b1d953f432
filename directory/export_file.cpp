// The whole directory in one file, for people and other devices. Nothing here is ever read back.

#include "directory/contact_local_manager.h"
#include "directory/data_files.h"
#include "directory/internal/contact_element.h"
#include "directory/internal/group_element.h"
#include "directory/internal/group_finders.h"
#include "directory/internal/xml_file.h"
#include "directory/internal/xml_names.h"

namespace NS_DIRECTORY {

int CContactLocalManager::ExportContactAndGroup(qz::basic_string<char> strPath)
{
    CXmlOutput file;
    pugi::xml_node groups = file.AppendRoot(ELEMENT_ROOT_GROUP);
    for (const GroupData& group : RecordsOf(m_listGroup)) {
        AppendExportedGroup(file, groups, group);
    }
    pugi::xml_node contacts = file.AppendRoot(ELEMENT_ROOT_CONTACT);
    for (const ItemData& item : RecordsOf(m_listContact)) {
        // The group that the contact is in now; kept names are for the contact file only.
        AppendExportedContact(file, contacts, item, GroupNameById(m_listGroup, item.m_nGroupId));
    }
    if (strPath.empty()) {
        strPath = EXPORT_FILE_PATH;
    }
    (void)file.Save(strPath.c_str());  // nothing is reported
    return DIR_RET_OK;
}

}  // namespace NS_DIRECTORY
