#pragma once
// Papers that share a rule, by paper id (dmPaperSize).
#include <algorithm>
#include <iterator>

#include <windows.h>

namespace psui {

/// A borderless paper and the same size with borders.
struct BorderlessPair
{
    short borderless;
    short bordered;
};

inline constexpr BorderlessPair kBorderlessPairs[] = {
    {274, 9}, {275, 1},  {276, 70}, {277, 43},  {278, 272}, {279, 273}, {280, 265}, {281, 266},
    {283, 8}, {284, 12}, {285, 3},  {286, 282}, {290, 287}, {291, 288}, {292, 289}, {294, 293},
};

constexpr const BorderlessPair* FindBorderless(int paper)
{
    const auto* found = std::find_if(std::begin(kBorderlessPairs), std::end(kBorderlessPairs),
                                     [=](const BorderlessPair& pair) { return pair.borderless == paper; });
    return found == std::end(kBorderlessPairs) ? nullptr : found;
}

constexpr bool IsBorderlessPaper(int paper)
{
    return FindBorderless(paper) != nullptr;
}

/// The same size with borders; the paper itself when it is not borderless.
constexpr short BorderedPaper(short paper)
{
    const BorderlessPair* pair = FindBorderless(paper);
    return pair ? pair->bordered : paper;
}

inline constexpr short kEnvelopes[] = {20, 27, 28, 34, 37, 73, 91};
inline constexpr short kPostcards[] = {43, 82, 277};
inline constexpr short kSecondTrayPapers[] = {1, 3, 5, 7, 8, 9, 12, 13, 287, 288, 289};

template <size_t N>
constexpr bool IsOneOf(const short (&papers)[N], int paper)
{
    return std::find(std::begin(papers), std::end(papers), paper) != std::end(papers);
}

constexpr bool IsEnvelope(int paper)
{
    return IsOneOf(kEnvelopes, paper);
}

constexpr bool IsEnvelopeOrPostcard(int paper)
{
    return IsEnvelope(paper) || IsOneOf(kPostcards, paper);
}

constexpr bool FitsSecondTray(int paper)
{
    return IsOneOf(kSecondTrayPapers, paper);
}

} // namespace psui
