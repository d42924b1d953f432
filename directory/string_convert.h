/// \file
/// Conversion of a text to lower or upper case.

#ifndef NSDIRECTORY_DIRECTORY_STRING_CONVERT_H
#define NSDIRECTORY_DIRECTORY_STRING_CONVERT_H

#include "directory/export.h"
#include "qzstl/string_like"

namespace NS_DIRECTORY {

enum StringConvertType : int
{
    STRING_CONVERT_TO_LOWER = 1,
    STRING_CONVERT_TO_UPPER = 2
};

/// Converts each byte by tolower or toupper of the current locale. A letter of several bytes, as in
/// UTF-8, stays as it is if its bytes have no case in the locale.
/// - Returns: the converted copy; an unchanged copy for any other type.
NSDIRECTORY_API qz::basic_string<char> commonAPI_StringConvert(const qz::basic_string<char>& text,
                                                               StringConvertType type);

}  // namespace NS_DIRECTORY

#endif  // NSDIRECTORY_DIRECTORY_STRING_CONVERT_H
