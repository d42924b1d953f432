#include "desk_phone/line_reader.h"

namespace desk_phone {

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
