// The one file that is compiled with exceptions: libphonenumber and the standard library throw if
// there is no memory. None leaves it.

#include "search/internal/line_form.h"

#include <phonenumbers/phonenumberutil.h>

#include <new>
#include <string>

#include "directory/contact_records.h"
#include "search/internal/text_fold.h"

namespace NS_DIRECTORY {

namespace {

using i18n::phonenumbers::PhoneNumber;
using i18n::phonenumbers::PhoneNumberUtil;

// The international form, with the extension after it if there is one. Empty for what is no number
// of a line that others can call.
std::string InternationalForm(const char* pNumber, const char* pCountry)
{
    const PhoneNumberUtil& util = *PhoneNumberUtil::GetInstance();
    PhoneNumber line;
    if (util.ParseAndKeepRawInput(pNumber, pCountry, &line) != PhoneNumberUtil::NO_PARSING_ERROR) {
        return {};
    }
    // 200 is an extension of the own exchange, and not a line of three digits somewhere in the
    // country.
    if (line.country_code_source() == PhoneNumber::FROM_DEFAULT_COUNTRY &&
        util.IsPossibleNumberWithReason(line) != PhoneNumberUtil::IS_POSSIBLE) {
        return {};
    }
    std::string strForm;
    util.Format(line, PhoneNumberUtil::E164, &strForm);
    return line.has_extension() ? strForm + ";ext=" + line.extension() : strForm;
}

}  // namespace

int TestCountry(const char* pCountry)
{
    try {
        const int nCode = PhoneNumberUtil::GetInstance()->GetCountryCodeForRegion(pCountry);
        return nCode == 0 ? DIR_RET_INVALID : DIR_RET_OK;
    } catch (...) {
        return DIR_RET_NO_MEMORY;
    }
}

bool AddLineForm(const char* pNumber, SearchFieldType eField, const char* pCountry,
                 CWordList& words)
{
    try {
        const std::string strForm = InternationalForm(pNumber, pCountry);
        if (strForm.empty()) {
            return AddNumberWord(pNumber, eField, words);
        }
        return words.BeginWord(eField, 0, false) &&
               words.AddToWord(strForm.data(), static_cast<std::uint32_t>(strForm.size())) &&
               words.EndWord();
    } catch (...) {
        return false;
    }
}

}  // namespace NS_DIRECTORY
