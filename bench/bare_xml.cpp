#include "bench/bare_xml.h"

#include "bench/keep.h"

#include <array>
#include <list>
#include <pugixml.hpp>

namespace {

constexpr std::size_t GROUP_ATTRIBUTES = 3;
constexpr std::size_t CONTACT_ATTRIBUTES = 10;

template <std::size_t Count>
void BareLoad(const char* pPath, const char* pRoot, const char* pElement)
{
    pugi::xml_document document;
    document.load_file(pPath);
    std::list<std::array<std::string, Count>> records;  // as the library: a block each
    for (const pugi::xml_node element : document.child(pRoot).children(pElement)) {
        std::array<std::string, Count>& record = records.emplace_back();
        std::size_t n = 0;
        for (const pugi::xml_attribute attribute : element.attributes()) {
            record[n++] = attribute.value();
        }
    }
    Keep(records);
}

pugi::xml_node AppendRoot(pugi::xml_document& document, const char* pName)
{
    pugi::xml_node declaration = document.prepend_child(pugi::node_declaration);
    declaration.append_attribute("version").set_value("1.0");
    declaration.append_attribute("encoding").set_value("utf-8");
    return document.append_child(pName);
}

void Save(const pugi::xml_document& document, const char* pPath)
{
    document.save_file(pPath, "\t", pugi::format_indent, pugi::encoding_auto);
}

}  // namespace

void BareLoadGroups(const char* pPath)
{
    BareLoad<GROUP_ATTRIBUTES>(pPath, "root_group", "group");
}

void BareLoadContacts(const char* pPath)
{
    BareLoad<CONTACT_ATTRIBUTES>(pPath, "root_contact", "contact");
}

void BareSaveGroups(const char* pPath, const std::vector<std::string>& groups)
{
    pugi::xml_document document;
    pugi::xml_node root = AppendRoot(document, "root_group");
    for (std::size_t n = 0; n < groups.size(); ++n) {
        pugi::xml_node element = root.append_child("group");
        element.append_attribute("display_name").set_value(groups[n].c_str());
        element.append_attribute("ring").set_value("");
        element.append_attribute("read_only").set_value(n < 2 ? "1" : "0");
    }
    Save(document, pPath);
}

void BareSaveContacts(const char* pPath, const std::vector<SampleContact>& contacts)
{
    pugi::xml_document document;
    pugi::xml_node root = AppendRoot(document, "root_contact");
    for (const SampleContact& contact : contacts) {
        pugi::xml_node element = root.append_child("contact");
        element.append_attribute("display_name").set_value(contact.m_strName.c_str());
        element.append_attribute("office_number").set_value(contact.m_strOffice.c_str());
        element.append_attribute("mobile_number").set_value(contact.m_strMobile.c_str());
        element.append_attribute("other_number").set_value(contact.m_strOther.c_str());
        element.append_attribute("line").set_value(contact.m_nLine);
        element.append_attribute("ring").set_value(contact.m_strRing.c_str());
        element.append_attribute("group_id_name").set_value(contact.m_strGroup.c_str());
        element.append_attribute("default_photo").set_value(contact.m_strPhoto.c_str());
        element.append_attribute("selected_photo").set_value(contact.m_nSelectedPhoto);
        element.append_attribute("name_index").set_value("");
    }
    Save(document, pPath);
}
