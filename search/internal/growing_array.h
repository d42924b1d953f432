// CGrowingArray: plain values one after the other. Unlike the containers of the library it reports
// that there is no memory.

#ifndef NSDIRECTORY_SEARCH_INTERNAL_GROWING_ARRAY_H
#define NSDIRECTORY_SEARCH_INTERNAL_GROWING_ARRAY_H

#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <type_traits>

namespace NS_DIRECTORY {

template <class T>
class CGrowingArray
{
    static_assert(std::is_trivially_copyable_v<T>, "values are moved as bytes");

  public:
    CGrowingArray() = default;
    ~CGrowingArray() { std::free(m_pValues); }
    CGrowingArray(const CGrowingArray&) = delete;
    CGrowingArray& operator=(const CGrowingArray&) = delete;

    std::uint32_t Count() const { return m_nCount; }
    T* Begin() { return m_pValues; }
    const T* Begin() const { return m_pValues; }

    // False if there is no memory; the array is then as it was.
    bool Append(const T* pValues, std::uint32_t nCount)
    {
        if (nCount > m_nRoom - m_nCount && !MyGrow(nCount)) {
            return false;
        }
        if (nCount != 0) {
            std::memcpy(m_pValues + m_nCount, pValues, nCount * sizeof(T));
        }
        m_nCount += nCount;
        return true;
    }

    bool Append(const T& value) { return Append(&value, 1); }

    // Drops all elements from nCount on.
    void CutTo(std::uint32_t nCount) { m_nCount = nCount; }

    // For an array that grows no more. If it cannot be made smaller it stays as it is.
    void GiveBackSpareRoom()
    {
        if (m_nCount != 0) {
            (void)MyResize(m_nCount);
        }
    }

  private:
    static constexpr std::uint64_t ROOM_MIN = 16;
    static constexpr std::uint64_t ROOM_MAX = UINT32_MAX / sizeof(T);

    bool MyGrow(std::uint32_t nCount)
    {
        const std::uint64_t nNeeded = std::uint64_t{m_nCount} + nCount;
        const std::uint64_t nWanted = nNeeded + nNeeded / 2 + ROOM_MIN;
        return nWanted <= ROOM_MAX && MyResize(static_cast<std::uint32_t>(nWanted));
    }

    bool MyResize(std::uint32_t nRoom)
    {
        void* pValues = std::realloc(m_pValues, nRoom * sizeof(T));
        if (pValues == nullptr) {
            return false;
        }
        m_pValues = static_cast<T*>(pValues);
        m_nRoom = nRoom;
        return true;
    }

    T* m_pValues = nullptr;
    std::uint32_t m_nCount = 0;
    std::uint32_t m_nRoom = 0;
};

}  // namespace NS_DIRECTORY

#endif  // NSDIRECTORY_SEARCH_INTERNAL_GROWING_ARRAY_H
