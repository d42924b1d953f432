#include "desk_phone/words.h"

#include <charconv>

namespace desk_phone {

namespace {

bool IsBlank(char c)
{
    return c == ' ' || c == '\t';
}

bool IsEscape(const std::string& strLine, std::size_t n)
{
    return strLine[n] == '\\' && n + 1 < strLine.size() &&
           (strLine[n + 1] == '"' || strLine[n + 1] == '\\');
}

// The word that begins at n, and n moved behind it.
std::string TakeWord(const std::string& strLine, std::size_t& n)
{
    std::string strWord;
    bool bQuoted = false;
    for (; n < strLine.size() && (bQuoted || !IsBlank(strLine[n])); ++n) {
        if (IsEscape(strLine, n)) {
            strWord += strLine[++n];
        } else if (strLine[n] == '"') {
            bQuoted = !bQuoted;
        } else {
            strWord += strLine[n];
        }
    }
    if (bQuoted) {
        throw CWrongInput("A quote is opened and not closed.");
    }
    return strWord;
}

}  // namespace

Words SplitWords(const std::string& strLine)
{
    Words words;
    for (std::size_t n = 0; n < strLine.size();) {
        if (IsBlank(strLine[n])) {
            ++n;
        } else {
            words.push_back(TakeWord(strLine, n));
        }
    }
    return words;
}

int ToNumber(const std::string& strWord, int nLeast, const std::string& strWhat)
{
    int nValue = 0;
    const char* pEnd = strWord.data() + strWord.size();
    const std::from_chars_result result = std::from_chars(strWord.data(), pEnd, nValue);
    if (result.ec != std::errc() || result.ptr != pEnd || nValue < nLeast) {
        throw CWrongInput(strWhat + " is not a whole number from " + std::to_string(nLeast) +
                          " up: " + strWord);
    }
    return nValue;
}

}  // namespace desk_phone
