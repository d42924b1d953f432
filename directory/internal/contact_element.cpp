// A contact as an element: a load reads what a save writes, except the name index, which is written
// empty and never read.

#include "directory/internal/contact_element.h"

#include <climits>
#include <cstdlib>

#include "directory/internal/xml_names.h"
#include "platform/device_services.h"

namespace NS_DIRECTORY {
namespace {

// A number beyond the range of int becomes the nearest end of it. An absent attribute gives 0, like
// every text without digits.
int NumberOf(pugi::xml_attribute attribute)
{
    constexpr int DECIMAL = 10;
    const long nValue = std::strtol(attribute.value(), nullptr, DECIMAL);
    if (nValue > INT_MAX) {
        return INT_MAX;
    }
    return nValue < INT_MIN ? INT_MIN : static_cast<int>(nValue);
}

pugi::xml_node AppendNameAndNumbers(CXmlOutput& file, pugi::xml_node root, const ItemData& item)
{
    pugi::xml_node element = file.AppendElement(root, ELEMENT_CONTACT);
    file.AppendText(element, ATTRIBUTE_DISPLAY_NAME, item.m_strDisplayName.c_str());
    file.AppendText(element, ATTRIBUTE_OFFICE_NUMBER, item.m_strOfficeNumber.c_str());
    file.AppendText(element, ATTRIBUTE_MOBILE_NUMBER, item.m_strMobileNumber.c_str());
    file.AppendText(element, ATTRIBUTE_OTHER_NUMBER, item.m_strOtherNumber.c_str());
    return element;
}

void AppendRingAndGroup(CXmlOutput& file, pugi::xml_node element, const ItemData& item,
                        const char* pGroupName)
{
    file.AppendText(element, ATTRIBUTE_RING, item.m_strRing.c_str());
    file.AppendText(element, ATTRIBUTE_GROUP_ID_NAME, pGroupName);
}

}  // namespace

void AppendContactElement(CXmlOutput& file, pugi::xml_node root, const ItemData& item,
                          const char* pGroupName)
{
    pugi::xml_node element = AppendNameAndNumbers(file, root, item);
    file.AppendNumber(element, ATTRIBUTE_LINE, item.m_nLine);
    AppendRingAndGroup(file, element, item, pGroupName);
    if (IsColorfulScreen() != 0) {
        file.AppendText(element, ATTRIBUTE_DEFAULT_PHOTO, item.m_strDefaultPhoto.c_str());
        file.AppendNumber(element, ATTRIBUTE_SELECTED_PHOTO, item.m_nSelectedPhoto);
    }
    file.AppendText(element, ATTRIBUTE_NAME_INDEX, item.m_strNameIndex.c_str());
}

const char* ReadContactElement(pugi::xml_node element, ItemData& item)
{
    CAttributeReader reader(element);
    // An absent attribute reads as the empty text.
    item.m_strDisplayName = reader.Find(ATTRIBUTE_DISPLAY_NAME).value();
    item.m_strOfficeNumber = reader.Find(ATTRIBUTE_OFFICE_NUMBER).value();
    item.m_strMobileNumber = reader.Find(ATTRIBUTE_MOBILE_NUMBER).value();
    item.m_strOtherNumber = reader.Find(ATTRIBUTE_OTHER_NUMBER).value();
    item.m_nLine = NumberOf(reader.Find(ATTRIBUTE_LINE));
    item.m_strRing = reader.Find(ATTRIBUTE_RING).value();
    const char* pGroupName = reader.Find(ATTRIBUTE_GROUP_ID_NAME).value();
    if (IsColorfulScreen() != 0) {
        item.m_strDefaultPhoto = reader.Find(ATTRIBUTE_DEFAULT_PHOTO).value();
        item.m_nSelectedPhoto = NumberOf(reader.Find(ATTRIBUTE_SELECTED_PHOTO));
    }
    return pGroupName;
}

void AppendExportedContact(CXmlOutput& file, pugi::xml_node root, const ItemData& item,
                           const char* pGroupName)
{
    pugi::xml_node element = AppendNameAndNumbers(file, root, item);
    AppendRingAndGroup(file, element, item, pGroupName);
    if (IsColorfulScreen() != 0) {
        file.AppendText(element, ATTRIBUTE_DEFAULT_PHOTO, item.m_strDefaultPhoto.c_str());
    }
}

}  // namespace NS_DIRECTORY
