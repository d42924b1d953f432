// What single characters of a text do to other programs.

#ifndef NSDIRECTORY_TOOLS_DIRECTORY_CHECK_CHARACTERS_H
#define NSDIRECTORY_TOOLS_DIRECTORY_CHECK_CHARACTERS_H

#include <string>

// Why no well-formed XML file can hold the text; empty if one can.
std::string XmlFault(const std::string& strText);

// The text as a terminal may show it: control characters, those that turn the direction of writing,
// and bytes that are no UTF-8 as escapes.
std::string Shown(const std::string& strText);

#endif  // NSDIRECTORY_TOOLS_DIRECTORY_CHECK_CHARACTERS_H
