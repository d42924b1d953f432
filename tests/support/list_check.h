// A check of the links of a list, for use after every step of a test.

#ifndef NSDIRECTORY_TESTS_SUPPORT_LIST_CHECK_H
#define NSDIRECTORY_TESTS_SUPPORT_LIST_CHECK_H

#include <gtest/gtest.h>

#include "qzstl/list_like"

template <class T>
testing::AssertionResult IsSound(const QZList<T>& list)
{
    auto pos = list.m_pHead;
    unsigned int nLinks = 0;
    bool bBothWays = pos->prev == nullptr;
    for (; bBothWays && pos->next != nullptr && nLinks <= list.m_nCount;
         pos = pos->next, ++nLinks) {
        bBothWays = pos->next->prev == pos;
    }
    const bool bSound = bBothWays && pos == list.m_pTail && nLinks == list.m_nCount + 1;
    return (bSound ? testing::AssertionSuccess() : testing::AssertionFailure())
           << "a walk of " << nLinks << " links in a list of " << list.m_nCount;
}

#endif  // NSDIRECTORY_TESTS_SUPPORT_LIST_CHECK_H
