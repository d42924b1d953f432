// What the Tab key offers for the word before the cursor: commands, groups, names of contacts.

#ifndef DESK_PHONE_COMPLETION_H
#define DESK_PHONE_COMPLETION_H

#include <string>
#include <vector>

#include "desk_phone/phone.h"

namespace desk_phone {

struct CompletionData
{
    std::string m_strWord;               // the word as it is at the end of the text
    std::string m_strText;               // what goes in its place; the same if nothing is known
    std::vector<std::string> m_choices;  // what else the word may become, if more than one
};

CompletionData Complete(const PhoneData& phone, const std::string& strBeforeCursor);

}  // namespace desk_phone

#endif  // DESK_PHONE_COMPLETION_H
