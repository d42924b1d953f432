// Makes the example files of the document on file formats.

#include <cstdlib>

#include "directory/contact_local_manager.h"

using NS_DIRECTORY::CContactLocalManager;
using NS_DIRECTORY::ContactGeneralItemData;

int main()
{
    CContactLocalManager* pDirectory = CContactLocalManager::GetInstance();
    if (pDirectory == nullptr) {
        return EXIT_FAILURE;
    }
    ContactGeneralItemData anna;
    anna.m_strDisplayName = "Anna";
    anna.m_strMobileNumber = "200";
    ContactGeneralItemData bob;
    bob.m_strDisplayName = "Bob \"B\" & <Co>";
    bob.m_strOfficeNumber = "100";
    bob.m_strRing = "rings/bell.wav";
    bob.m_nLine = 1;
    ContactGeneralItemData survey;
    survey.m_strDisplayName = "Survey";
    survey.m_strOtherNumber = "300";
    const bool bAdded = pDirectory->AddContact("Family", anna) >= 0 &&
                        pDirectory->AddContact("All Contacts", bob) >= 0 &&
                        pDirectory->AddBlackContact(survey) >= 0;
    (void)pDirectory->ExportContactAndGroup("");  // always 1
    CContactLocalManager::ReleaseInstance();
    return bAdded ? EXIT_SUCCESS : EXIT_FAILURE;
}
