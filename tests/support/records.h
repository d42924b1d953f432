// Groups and contacts as tests make them, by the fields that they care for, as scenarios show them,
// and what has changed between two states.

#ifndef NSDIRECTORY_TESTS_SUPPORT_RECORDS_H
#define NSDIRECTORY_TESTS_SUPPORT_RECORDS_H

#include <algorithm>
#include <cstring>
#include <map>
#include <sstream>
#include <utility>

#include "directory/contact_local_manager.h"
#include "tests/support/fake_system.h"

using namespace NS_DIRECTORY;
using String = qz::basic_string<char>;
using Manager = CContactLocalManager;
using Contact = ContactGeneralItemData;
using Group = Manager::GroupData;

template <class... Values>
std::string Joined(const Values&... values)
{
    std::ostringstream text;
    (text << ... << values);
    return text.str();
}

// -- Records --------------------------------------------------------------------------------------

struct GroupRow : Manager::GroupData
{
    GroupRow(const std::string& strName, const std::string& strRing = "", bool bReadOnly = false)
        : GroupData{GROUP_ID_NONE, strName.c_str(), strRing.c_str(), bReadOnly}
    {}
    operator ContactGroupData() const { return {m_strDisplayName, m_strRing}; }
};
using GroupRows = std::vector<GroupRow>;

struct ContactRow : Contact
{
    ContactRow(const std::string& strName, const std::string& strGroup = "All Contacts",
               const std::string& strMobile = "", const std::string& strOffice = "",
               const std::string& strOther = "", const std::string& strRing = "")
    {
        m_strDisplayName = strName.c_str();
        m_strGroupName = strGroup.c_str();
        m_strMobileNumber = strMobile.c_str();
        m_strOfficeNumber = strOffice.c_str();
        m_strOtherNumber = strOther.c_str();
        m_strRing = strRing.c_str();
    }
};
using ContactRows = std::vector<ContactRow>;

// The fields of a contact in the order of their attributes in the file.
struct Field
{
    const char* m_pAttribute;
    const char* m_pWord;  // in a scenario
    String Contact::*m_pText;
    int Contact::*m_pNumber = nullptr;
};
inline const std::vector<Field>& Fields()
{
    static const std::vector<Field> FIELDS{
        {"display_name", "name", &Contact::m_strDisplayName},
        {"office_number", "office", &Contact::m_strOfficeNumber},
        {"mobile_number", "mobile", &Contact::m_strMobileNumber},
        {"other_number", "other", &Contact::m_strOtherNumber},
        {"line", "line", nullptr, &Contact::m_nLine},
        {"ring", "ring", &Contact::m_strRing},
        {"group_id_name", "group", &Contact::m_strGroupName},
        {"default_photo", "photo", &Contact::m_strDefaultPhoto},
        {"selected_photo", "selected", nullptr, &Contact::m_nSelectedPhoto}};
    return FIELDS;
}
inline std::string ValueOf(const Contact& c, const Field& field)
{
    return field.m_pText != nullptr ? (c.*field.m_pText).c_str()
                                    : std::to_string(c.*field.m_pNumber);
}
inline bool IsPhoto(const Field& field)
{
    return strstr(field.m_pAttribute, "_photo") != nullptr;
}

// What text makes of each entry.
template <class T, class TText>
Texts TextsOf(const QZList<T>& list, TText text)
{
    Texts texts;
    for (auto pos = list.begin(); pos != list.end(); pos = pos->next) {
        texts.emplace_back(text(pos->value));
    }
    return texts;
}
template <class TRecord>
Texts Names(const QZList<TRecord*>& list)
{
    return TextsOf(list, [](const TRecord* p) { return p->m_strDisplayName.c_str(); });
}
inline QZList<String> NameList(const Texts& names)
{
    QZList<String> list;
    std::for_each(names.begin(), names.end(), [&](auto& str) { list.push_back(str.c_str()); });
    return list;
}

// -- Entries --------------------------------------------------------------------------------------

// An attribute as the files and the scenarios write it.
inline std::string Attribute(const char* pName, const std::string& strValue)
{
    static const std::map<char, std::string> ESCAPES{
        {'&', "&amp;"}, {'<', "&lt;"}, {'"', "&quot;"}};
    std::string strText = Joined(' ', pName, "=\"");
    for (const char c : strValue) {
        if (static_cast<unsigned char>(c) < ' ') {
            strText += Joined("&#", c / 10, c % 10, ';');
        } else {
            strText += ESCAPES.count(c) == 0 ? std::string(1, c) : ESCAPES.at(c);
        }
    }
    return strText + '"';
}

// A contact in memory. Its group is the id: m_strGroupName is what it was loaded or made with.
struct Item : Contact
{
    int m_nGroupId = GROUP_ID_NONE;
    String m_strKept;  // the name of a missing group, to which it returns
};
inline Item ItemOf(const Manager::ItemData& c)
{
    const Contact data{c.m_strDisplayName,  "",
                       c.m_strOfficeNumber, c.m_strMobileNumber,
                       c.m_strOtherNumber,  c.m_strDefaultPhoto,
                       c.m_strRing,         c.m_nLine,
                       c.m_nSelectedPhoto};
    return {data, c.m_nGroupId, c.m_strKeptGroupName};
}

// What a scenario shows of it; nothing of a value that is empty or 0.
struct Entry
{
    std::string m_strName, m_strValues;  // the name with the kind

    std::string Text() const { return m_strName + m_strValues; }
};
using Entries = std::vector<Entry>;

inline std::string Shown(const char* pName, const String& strValue)
{
    return strValue.empty() ? "" : Attribute(pName, strValue.c_str());
}
inline std::string Shown(const char* pName, int nValue)
{
    return nValue == 0 ? "" : Attribute(pName, std::to_string(nValue));
}
template <class TRecord>
std::string NameOf(const char* pKind, const TRecord& record)
{
    return pKind + Attribute("name", record.m_strDisplayName.c_str());
}
inline Entry EntryOf(const Group& g)
{
    return {NameOf("group", g),
            Shown("id", g.m_nId) + Shown("ring", g.m_strRing) + Shown("read_only", g.m_bReadOnly)};
}
inline Entry EntryOf(const ContactGroupData& g)
{
    return {NameOf("group", g), Shown("ring", g.m_strRing)};
}
inline Entry EntryOf(const ContactGroupSimpleData& g)
{
    return {NameOf("group", g), Shown("id", g.m_nId)};
}
inline Entry EntryOf(const Contact& c)
{
    Entry entry{NameOf("contact", c), ""};
    for (const Field& field : Fields()) {
        if (field.m_pText == nullptr) {
            entry.m_strValues += Shown(field.m_pWord, c.*field.m_pNumber);
        } else if (field.m_pText != &Contact::m_strDisplayName) {
            entry.m_strValues += Shown(field.m_pWord, c.*field.m_pText);
        }
    }
    return entry;
}

// Contacts with the name of their group, or the id that no group has.
inline Entries EntriesOf(const std::vector<Group>& groups, const std::vector<Item>& items)
{
    Entries entries;
    std::map<int, String> names;
    for (const Group& group : groups) {
        entries.push_back(EntryOf(group));
        names[group.m_nId] = group.m_strDisplayName;
    }
    for (Item item : items) {
        const bool bMissing = names.count(item.m_nGroupId) == 0;
        item.m_strGroupName =
            bMissing ? Joined("no group ", item.m_nGroupId).c_str() : names[item.m_nGroupId];
        entries.push_back(EntryOf(item));
        entries.back().m_strValues += Shown("keeps", item.m_strKept);
    }
    return entries;
}

// "+ " who is new, "~ " who has changed, "- " who is gone; of many the first.
inline Texts Changes(const Entries& before, const Entries& after)
{
    std::map<std::string, std::string> old;
    for (const Entry& entry : before) {
        old[entry.m_strName] = entry.m_strValues;
    }
    Texts added{"+ "}, changed{"~ "}, removed{"- "};
    for (const Entry& entry : after) {
        if (old.count(entry.m_strName) == 0) {
            added.push_back(entry.Text());
        } else if (old[entry.m_strName] != entry.m_strValues) {
            changed.push_back(entry.Text());
        }
        old.erase(entry.m_strName);
    }
    for (const auto& [strName, strValues] : old) {
        removed.push_back(strName);
    }
    constexpr std::size_t MANY = 6;
    Texts lines;
    for (const Texts& texts : {added, changed, removed}) {
        std::string strLine = texts[0];
        for (std::size_t n = 1; n < std::min(texts.size(), MANY); ++n) {
            strLine += (n == 1 ? "" : ", ") + texts[n];
        }
        strLine += texts.size() > MANY ? Joined(" and ", texts.size() - MANY, " more") : "";
        texts.size() > 1 ? lines.push_back(strLine) : void();
    }
    return lines;
}

#endif  // NSDIRECTORY_TESTS_SUPPORT_RECORDS_H
