// Case conversion of a text, byte by byte.

#include "directory/string_convert.h"

#include <cctype>

namespace NS_DIRECTORY {

qz::basic_string<char> commonAPI_StringConvert(const qz::basic_string<char>& text,
                                               StringConvertType type)
{
    if (type != STRING_CONVERT_TO_LOWER && type != STRING_CONVERT_TO_UPPER) {
        return text;
    }
    int (*const pConvert)(int) = type == STRING_CONVERT_TO_LOWER ? tolower : toupper;
    qz::basic_string<char> strConverted;
    for (unsigned int n = 0; n < text.size(); ++n) {
        // tolower and toupper take the values of unsigned char; the low 8 bits are the result.
        const char cByte = static_cast<char>(pConvert(static_cast<unsigned char>(text.c_str()[n])));
        strConverted.append(&cByte, 1);
    }
    return qz::basic_string<char>(strConverted);  // a copy takes no more room than it needs
}

}  // namespace NS_DIRECTORY
