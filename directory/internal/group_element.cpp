// A group as an element: a load reads what a save writes.

#include "directory/internal/group_element.h"

#include <cstring>

#include "directory/internal/fixed_groups.h"
#include "directory/internal/xml_names.h"

namespace NS_DIRECTORY {
namespace {

constexpr GroupElementData DEFAULT_GROUPS[] = {{ALL_CONTACTS.m_pName, "", true},
                                               {BLACKLIST.m_pName, "", true},
                                               {"Company", "", false},
                                               {"Family", "", false},
                                               {"Friend", "", false}};

pugi::xml_node AppendNameAndRing(CXmlOutput& file, pugi::xml_node root, const char* pName,
                                 const char* pRing)
{
    pugi::xml_node element = file.AppendElement(root, ELEMENT_GROUP);
    file.AppendText(element, ATTRIBUTE_DISPLAY_NAME, pName);
    file.AppendText(element, ATTRIBUTE_RING, pRing);
    return element;
}

}  // namespace

void AppendGroupElement(CXmlOutput& file, pugi::xml_node root, const GroupElementData& data)
{
    pugi::xml_node element = AppendNameAndRing(file, root, data.m_pDisplayName, data.m_pRing);
    file.AppendText(element, ATTRIBUTE_READ_ONLY,
                    data.m_bReadOnly ? VALUE_READ_ONLY : VALUE_NOT_READ_ONLY);
}

pugi::xml_node AppendDefaultGroups(CXmlOutput& file)
{
    pugi::xml_node root = file.AppendRoot(ELEMENT_ROOT_GROUP);
    for (const GroupElementData& row : DEFAULT_GROUPS) {
        AppendGroupElement(file, root, row);
    }
    return root;
}

bool ReadGroupElement(pugi::xml_node element, GroupData& group)
{
    CAttributeReader reader(element);
    // An absent attribute reads as the empty text.
    const char* pName = reader.Find(ATTRIBUTE_DISPLAY_NAME).value();
    if (IsFixedGroupName(pName)) {
        return false;
    }
    group.m_strDisplayName = pName;
    group.m_strRing = reader.Find(ATTRIBUTE_RING).value();
    group.m_bReadOnly = std::strcmp(reader.Find(ATTRIBUTE_READ_ONLY).value(), VALUE_READ_ONLY) == 0;
    return true;
}

void AppendExportedGroup(CXmlOutput& file, pugi::xml_node root, const GroupData& group)
{
    (void)AppendNameAndRing(file, root, group.m_strDisplayName.c_str(), group.m_strRing.c_str());
}

}  // namespace NS_DIRECTORY
