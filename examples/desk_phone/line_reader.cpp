#include "desk_phone/line_reader.h"

#include <editline/readline.h>

#include <cstdlib>

namespace desk_phone {

bool ReadAtPrompt(std::string& strLine)
{
    (void)rl_bind_key('\t', rl_insert);  // it parts words; names of files would only be in the way
    char* pLine = readline("phone> ");
    if (pLine == nullptr) {
        return false;
    }
    strLine = pLine;
    std::free(pLine);
    if (!strLine.empty()) {
        (void)add_history(strLine.c_str());  // a line that is not remembered is no loss
    }
    return true;
}

bool ReadFromStream(std::istream& stream, std::string& strLine)
{
    strLine.clear();
    char c = '\n';
    bool bAny = false;
    while (stream.get(c) && c != '\n') {
        bAny = true;
        if (strLine.size() <= MOST_LINE_BYTES) {
            strLine += c;
        }
    }
    if (!strLine.empty() && strLine.back() == '\r') {
        strLine.pop_back();  // a script from another system
    }
    return bAny || static_cast<bool>(stream);
}

}  // namespace desk_phone
