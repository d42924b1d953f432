// The names of elements and attributes, each once: what writes a file and what reads it must agree
// on them. The files are named in directory/data_files.h, the fixed groups in fixed_groups.h.

#ifndef NSDIRECTORY_DIRECTORY_INTERNAL_XML_NAMES_H
#define NSDIRECTORY_DIRECTORY_INTERNAL_XML_NAMES_H

namespace NS_DIRECTORY {

inline constexpr char ELEMENT_ROOT_GROUP[] = "root_group";
inline constexpr char ELEMENT_GROUP[] = "group";
inline constexpr char ELEMENT_ROOT_CONTACT[] = "root_contact";
inline constexpr char ELEMENT_CONTACT[] = "contact";

inline constexpr char ATTRIBUTE_DISPLAY_NAME[] = "display_name";
inline constexpr char ATTRIBUTE_RING[] = "ring";
inline constexpr char ATTRIBUTE_READ_ONLY[] = "read_only";
inline constexpr char ATTRIBUTE_OFFICE_NUMBER[] = "office_number";
inline constexpr char ATTRIBUTE_MOBILE_NUMBER[] = "mobile_number";
inline constexpr char ATTRIBUTE_OTHER_NUMBER[] = "other_number";
inline constexpr char ATTRIBUTE_LINE[] = "line";
inline constexpr char ATTRIBUTE_GROUP_ID_NAME[] = "group_id_name";
inline constexpr char ATTRIBUTE_DEFAULT_PHOTO[] = "default_photo";
inline constexpr char ATTRIBUTE_SELECTED_PHOTO[] = "selected_photo";
inline constexpr char ATTRIBUTE_NAME_INDEX[] = "name_index";

inline constexpr char VALUE_READ_ONLY[] = "1";
inline constexpr char VALUE_NOT_READ_ONLY[] = "0";

}  // namespace NS_DIRECTORY

#endif  // NSDIRECTORY_DIRECTORY_INTERNAL_XML_NAMES_H
