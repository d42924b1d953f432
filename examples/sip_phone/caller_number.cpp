#include "sip_phone/caller_number.h"

#include <phonenumbers/phonenumberutil.h>

#include <charconv>

namespace sip_phone {

namespace {

using i18n::phonenumbers::PhoneNumber;
using i18n::phonenumbers::PhoneNumberUtil;

constexpr std::size_t MOST_SIGNS = 40;  // more is no number, and would fill the screen
constexpr std::string_view SEPARATORS = " -./()";

// Text in which %2b is a plus. A percent sign without two digits is itself.
std::string Decoded(std::string_view text)
{
    std::string strDecoded;
    for (std::size_t n = 0; n < text.size(); ++n) {
        unsigned char cByte = 0;
        const std::string_view hex = text.substr(n + 1, 2);
        const char* pEnd = hex.data() + hex.size();
        const bool bEscape = text[n] == '%' && hex.size() == 2 &&
                             std::from_chars(hex.data(), pEnd, cByte, 16).ptr == pEnd;
        strDecoded += bEscape ? static_cast<char>(cByte) : text[n];
        n += bEscape ? 2 : 0;
    }
    return strDecoded;
}

std::string WithoutSeparators(const std::string& strText)
{
    std::string strSigns;
    for (const char c : strText) {
        if (SEPARATORS.find(c) == std::string_view::npos) {
            strSigns += c;
        }
    }
    return strSigns;
}

bool IsNumber(const std::string& strSigns)
{
    const std::size_t nFirst = strSigns.compare(0, 1, "+") == 0 ? 1 : 0;
    return strSigns.size() <= MOST_SIGNS &&
           strSigns.find_first_of("0123456789") != std::string::npos &&
           strSigns.find_first_not_of("0123456789*#", nFirst) == std::string::npos;
}

// What is no line that others can call, such as an extension of the own exchange, stays as it is.
std::string ToInternational(const std::string& strNumber, const std::string& strCountry)
{
    const PhoneNumberUtil& util = *PhoneNumberUtil::GetInstance();
    PhoneNumber line;
    if (util.ParseAndKeepRawInput(strNumber, strCountry, &line) !=
            PhoneNumberUtil::NO_PARSING_ERROR ||
        util.IsPossibleNumberWithReason(line) != PhoneNumberUtil::IS_POSSIBLE) {
        return strNumber;
    }
    std::string strForm;
    util.Format(line, PhoneNumberUtil::E164, &strForm);
    return strForm;
}

}  // namespace

std::string ToNumber(std::string_view text, const std::string& strCountry)
{
    const std::string strSigns = WithoutSeparators(Decoded(text.substr(0, text.find(';'))));
    return IsNumber(strSigns) ? ToInternational(strSigns, strCountry) : "";
}

}  // namespace sip_phone
