// Compares memory with a file, through the directory's public pages.

#ifndef NSDIRECTORY_SAFEKEEPING_INTERNAL_COMPARISON_H
#define NSDIRECTORY_SAFEKEEPING_INTERNAL_COMPARISON_H

#include "directory/contact_local_manager.h"
#include "safekeeping/internal/folder.h"

namespace NS_DIRECTORY {

enum class FileForm
{
    ABSENT,
    WHOLE,  // the XML library reads it to the end without fault, and its root is there
    BROKEN,
    UNKNOWN  // it cannot be read now, or there is no memory for it
};

struct ComparisonData
{
    FileForm m_form = FileForm::UNKNOWN;
    bool m_bMemoryAhead = false;  // memory holds what the file does not
    bool m_bFileAhead = false;    // the file holds what memory does not
    int m_nEntries = 0;           // groups or contacts in the file
    int m_nStrays = 0;            // contacts in the file whose group memory does not know
};

// The form alone. nFile is SAFE_GROUPS or SAFE_CONTACTS.
FileForm ReadForm(const CFolder& folder, const char* pName, int nFile);

// Of a broken file it takes what the XML library reads. m_form is UNKNOWN if there is no memory for
// the comparison.
ComparisonData Compare(const CContactLocalManager& directory, const CFolder& folder,
                       const char* pName, int nFile);

}  // namespace NS_DIRECTORY

#endif  // NSDIRECTORY_SAFEKEEPING_INTERNAL_COMPARISON_H
