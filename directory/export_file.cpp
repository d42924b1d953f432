// The whole directory in one file, for people and other devices. Nothing here is ever read back.

#include "directory/contact_local_manager.h"
#include "directory/data_files.h"
#include "directory/internal/contact_element.h"
#include "directory/internal/group_element.h"
#include "directory/internal/group_links.h"
#include "directory/internal/xml_file.h"
#include "directory/internal/xml_names.h"

namespace NS_DIRECTORY {

int CContactLocalManager::ExportContactAndGroup(qz::basic_string<char> strPath)
{
    CXmlOutput file;
    pugi::xml_node groups = file.AppendRoot(ELEMENT_ROOT_GROUP);
    for (GroupIterator pos = m_listGroup.begin(); pos != m_listGroup.end(); pos = pos->next) {
        AppendExportedGroup(file, groups, *pos->value);
    }
    pugi::xml_node contacts = file.AppendRoot(ELEMENT_ROOT_CONTACT);
    for (ItemIterator pos = m_listContact.begin(); pos != m_listContact.end(); pos = pos->next) {
        const ItemData& item = *pos->value;
        // The group in which the contact stands now; a kept name is the contact file's business.
        AppendExportedContact(file, contacts, item, GroupNameById(m_listGroup, item.m_nGroupId));
    }
    if (strPath.empty()) {
        strPath = EXPORT_FILE_PATH;
    }
    file.Save(strPath.c_str());
    return DIR_RET_OK;
}

}  // namespace NS_DIRECTORY
