#ifndef CHOICES_H
#define CHOICES_H

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <iterator>

/// Choices drawn from bytes: the same bytes make the same choices. Once they are used up it is the first every time.
class CChoices
{
public:
    CChoices(const std::uint8_t* in_pBytes, std::size_t in_uSize) : m_pNext(in_pBytes), m_pEnd(in_pBytes + in_uSize) {}

    bool IsAtEnd() const { return m_pNext == m_pEnd; }
    int Pick(int in_iChoices) { return IsAtEnd() ? 0 : *m_pNext++ % in_iChoices; }

    /// Something of a sequence that is not empty; only the first 256 are within reach.
    template <class Sequence> auto Any(Sequence& in_sequence)
    {
        return std::next(in_sequence.begin(), Pick(static_cast<int>(std::min<std::size_t>(in_sequence.size(), 256))));
    }

    /// Any number: of everyday size, next to a power of two, or far from zero.
    int Number()
    {
        const int iSort = Pick(4);
        const std::uint32_t uNumber = static_cast<std::uint32_t>(Pick(256));
        const std::uint32_t uNearLimit = (1u << (uNumber & 31)) - 2 + (uNumber >> 5);
        return static_cast<int>(iSort < 2 ? uNumber : iSort == 2 ? uNearLimit : uNumber * 0x01234567u);
    }

private:
    const std::uint8_t* m_pNext;
    const std::uint8_t* m_pEnd;
};

#endif
