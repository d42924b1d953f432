#include "desk_phone/words.h"

#include <charconv>
#include <utility>

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

// The word that begins at n, and n moved past it; whether its last quote is still open.
std::string TakeWord(const std::string& strLine, std::size_t& n, bool& bOpen)
{
    std::string strWord;
    bOpen = false;
    for (; n < strLine.size() && (bOpen || !IsBlank(strLine[n])); ++n) {
        if (IsEscape(strLine, n)) {
            strWord += strLine[++n];
        } else if (strLine[n] == '"') {
            bOpen = !bOpen;
        } else {
            strWord += strLine[n];
        }
    }
    return strWord;
}

bool NeedsQuotes(const std::string& strWord)
{
    return strWord.empty() || strWord.find_first_of(" \t\"\\#") != std::string::npos;
}

}  // namespace

Words SplitWords(const std::string& strLine)
{
    Words words;
    bool bOpen = false;
    for (std::size_t n = 0; n < strLine.size();) {
        if (IsBlank(strLine[n])) {
            ++n;
        } else {
            words.push_back(TakeWord(strLine, n, bOpen));
        }
    }
    if (bOpen) {
        throw CWrongInput("A quote is opened and not closed.");
    }
    return words;
}

LastWordData FindLastWord(const std::string& strLine)
{
    LastWordData last;
    bool bOpen = false;
    for (std::size_t n = 0; n < strLine.size();) {
        if (IsBlank(strLine[n])) {
            last.m_nFrom = ++n;
            continue;
        }
        last.m_nFrom = n;
        last.m_strText = TakeWord(strLine, n, bOpen);
        if (n < strLine.size()) {
            last.m_before.push_back(std::exchange(last.m_strText, {}));
        }
    }
    return last;
}

std::string OpenQuoted(const std::string& strWord)
{
    if (!NeedsQuotes(strWord)) {
        return strWord;
    }
    std::string strQuoted = "\"";
    for (const char c : strWord) {
        strQuoted += c == '"' || c == '\\' ? std::string{'\\', c} : std::string{c};
    }
    return strQuoted;
}

std::string Quoted(const std::string& strWord)
{
    return OpenQuoted(strWord) + (NeedsQuotes(strWord) ? "\"" : "");
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
