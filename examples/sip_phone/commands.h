// From a line of input to what the telephone does.

#ifndef SIP_PHONE_COMMANDS_H
#define SIP_PHONE_COMMANDS_H

#include <functional>
#include <string>

#include "sip_phone/telephone.h"

namespace sip_phone {

struct CommandsData
{
    CTelephone& m_telephone;
    std::function<void()> m_quit;
    bool m_bFailed = false;  // a line was wrong; what the directory refuses is no failure
};

// Wrong input is answered with one line and does nothing.
void RunLine(CommandsData& commands, const std::string& strLine);

}  // namespace sip_phone

#endif  // SIP_PHONE_COMMANDS_H
