#include "readers/AsciiStlKernel.h"

#include "readers/NumberScan.h"

#include <cstring>

namespace OrvikMesh {

namespace {

enum class Word
{
    Solid,
    EndSolid,
    Facet,
    EndFacet,
    Outer,
    EndLoop,
    Vertex,
    Other,
};

bool isSpace(char letter)
{
    return letter == ' ' || (letter >= '\t' && letter <= '\r');
}

/// Whether the word from @p at to @p end is @p lower, in any case.
bool isWord(const char* at, const char* end, const char* lower, std::size_t length)
{
    if (static_cast<std::size_t>(end - at) != length)
        return false;
    for (std::size_t i = 0; i < length; ++i)
        if ((at[i] | 0x20) != lower[i])
            return false;
    return true;
}

Word wordOf(const char* at, const char* end)
{
    switch (*at | 0x20) {
    case 'v':
        return isWord(at, end, "vertex", 6) ? Word::Vertex : Word::Other;
    case 'f':
        return isWord(at, end, "facet", 5) ? Word::Facet : Word::Other;
    case 'o':
        return isWord(at, end, "outer", 5) ? Word::Outer : Word::Other;
    case 's':
        return isWord(at, end, "solid", 5) ? Word::Solid : Word::Other;
    case 'e':
        if (isWord(at, end, "endfacet", 8))
            return Word::EndFacet;
        if (isWord(at, end, "endloop", 7))
            return Word::EndLoop;
        return isWord(at, end, "endsolid", 8) ? Word::EndSolid : Word::Other;
    default:
        return Word::Other;
    }
}

const char* skipSpaces(const char* at, const char* end)
{
    while (at < end && isSpace(*at))
        ++at;
    return at;
}

const char* wordEnd(const char* at, const char* end)
{
    while (at < end && !isSpace(*at))
        ++at;
    return at;
}

const char* lineEnd(const char* at, const char* end)
{
    while (at < end && !IsLineEnd(*at))
        ++at;
    return at;
}

void note(ScanOccurrences& occurrences, const char* at)
{
    if (occurrences.count++ == 0)
        occurrences.first = at;
}

/// The facet that is being read.
struct Facet
{
    const char* begin = nullptr;
    std::size_t firstTriangle = 0;
    std::size_t corners = 0;
    float first[3] = {};
    float last[3] = {};
    bool isOpen = false;
    bool isBad = false;
};

void openFacet(AsciiStlScan& scan, Facet& facet, const char* begin)
{
    facet = Facet{};
    facet.begin = begin;
    facet.firstTriangle = scan.count;
    facet.isOpen = true;
}

void closeFacet(AsciiStlScan& scan, Facet& facet)
{
    if (!facet.isOpen)
        return;
    if (facet.isBad || facet.corners < 3) {
        scan.count = facet.firstTriangle;
        note(scan.badFacets, facet.begin);
    } else if (facet.corners > 3) {
        note(scan.polygons, facet.begin);
    }
    facet.isOpen = false;
}

void addCorner(AsciiStlScan& scan, Facet& facet, const float* corner)
{
    if (facet.corners == 0)
        std::memcpy(facet.first, corner, sizeof facet.first);
    if (facet.corners >= 2) {
        if (scan.count - facet.firstTriangle == kMaxFacetTriangles) {
            facet.isBad = true;
            return;
        }
        float* triangle = scan.triangles + scan.count++ * 9;
        std::memcpy(triangle, facet.first, sizeof facet.first);
        std::memcpy(triangle + 3, facet.last, sizeof facet.last);
        std::memcpy(triangle + 6, corner, sizeof facet.last);
    }
    std::memcpy(facet.last, corner, sizeof facet.last);
    ++facet.corners;
}

/// Reads three numbers. @return where it stopped.
const char* readVertex(AsciiStlScan& scan, Facet& facet, const char* at)
{
    float corner[3];
    for (float& coordinate : corner) {
        at = skipSpaces(at, scan.end);
        const char* next = ScanFloat(at, scan.end, coordinate);
        if (!next || (next < scan.end && !isSpace(*next))) {
            facet.isBad = true;
            return lineEnd(at, scan.end);
        }
        at = next;
    }
    addCorner(scan, facet, corner);
    return at;
}

/// Skips the rest of the line after "facet" or "outer", unless the facet goes on in it.
const char* skipFacetWords(const char* at, const char* end)
{
    for (;;) {
        const char* next = SkipBlanks(at, end);
        const char* nextEnd = wordEnd(next, end);
        if (next == nextEnd)
            return next;
        const Word word = wordOf(next, nextEnd);
        if (word != Word::Other)
            return next;
        at = nextEnd;
    }
}

} // namespace

AsciiStlStop ScanAsciiStl(AsciiStlScan& scan)
{
    Facet facet;
    for (;;) {
        const char* word = skipSpaces(scan.at, scan.end);
        const char* next = wordEnd(word, scan.end);
        if (word == next) {
            closeFacet(scan, facet);
            scan.at = next;
            return AsciiStlStop::End;
        }
        switch (wordOf(word, next)) {
        case Word::Vertex:
            if (!facet.isOpen)
                openFacet(scan, facet, word);
            next = readVertex(scan, facet, next);
            break;
        case Word::Facet:
            closeFacet(scan, facet);
            if (scan.room - scan.count < kMaxFacetTriangles) {
                scan.at = word;
                return AsciiStlStop::Full;
            }
            openFacet(scan, facet, word);
            next = skipFacetWords(next, scan.end);
            break;
        case Word::Outer:
            next = skipFacetWords(next, scan.end);
            break;
        case Word::EndLoop:
            break;
        case Word::EndFacet:
            closeFacet(scan, facet);
            break;
        case Word::EndSolid:
            closeFacet(scan, facet);
            ++scan.solidsEnded;
            next = lineEnd(next, scan.end);
            break;
        case Word::Solid:
            closeFacet(scan, facet);
            ++scan.solidsBegun;
            scan.nameBegin = SkipBlanks(next, scan.end);
            scan.nameEnd = lineEnd(next, scan.end);
            scan.at = scan.nameEnd;
            return AsciiStlStop::Solid;
        case Word::Other:
            note(scan.junkLines, word);
            next = lineEnd(word, scan.end);
            break;
        }
        scan.at = next;
    }
}

} // namespace OrvikMesh
