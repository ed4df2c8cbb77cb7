#include "readers/ObjKernel.h"

#include "readers/LineScan.h"
#include "readers/ObjStatement.h"

#include <cmath>
#include <cstring>
#include <limits>

namespace OrvikMesh {

namespace {

enum class LineStop
{
    Done,
    Full,
    Continued,
    Colored,
};

void note(ScanOccurrences& occurrences, const char* at)
{
    if (occurrences.count++ == 0)
        occurrences.first = at;
}

std::uint8_t toByte(float value)
{
    return static_cast<std::uint8_t>(value <= 0.0f   ? 0.0f
                                     : value >= 1.0f ? 255.0f
                                                     : value * 255.0f + 0.5f);
}

/// What follows x, y and z: nothing, a weight, or a colour of three or four numbers.
LineStop readVertexTail(ObjScan& scan, const char* line, const char* at)
{
    float extra[4];
    std::size_t count = 0;
    while (count < 4 && !AtLineEnd(at, scan.end)) {
        const char* next = ScanFloat(at, scan.end, extra[count]);
        if (!next)
            break;
        ++count;
        at = SkipBlanks(next, scan.end);
    }
    if (AtContinuation(at, scan.end))
        return LineStop::Continued;
    if (!AtLineEnd(at, scan.end) && *at != '#')
        note(scan.junkLines, line);
    if (count < 3)
        return LineStop::Done;
    if (!scan.colors)
        return LineStop::Colored;
    // Some programs write colours from 0 to 255.
    const bool isByte = extra[0] > 1.0f || extra[1] > 1.0f || extra[2] > 1.0f;
    std::uint8_t* color = scan.colors + std::size_t{scan.vertexCount} * 4;
    for (std::size_t i = 0; i < 3; ++i)
        color[i] = toByte(isByte ? extra[i] / 255.0f : extra[i]);
    color[3] = 255;
    return LineStop::Done;
}

/// Reads up to three numbers. @return where it stopped; @p count tells how many there were.
const char* readThree(const char* at, const char* end, float* values, std::size_t& count)
{
    for (count = 0; count < 3; ++count) {
        at = SkipBlanks(at, end);
        const char* next = ScanFloat(at, end, values[count]);
        if (!next)
            return at;
        at = next;
    }
    return at;
}

LineStop readVertex(ObjScan& scan, const char* line)
{
    if (scan.vertexCount == scan.vertexRoom)
        return LineStop::Full;
    float* position = scan.positions + std::size_t{scan.vertexCount} * 3;
    std::size_t count = 0;
    const char* at = SkipBlanks(readThree(line + 1, scan.end, position, count), scan.end);
    if (AtContinuation(at, scan.end))
        return LineStop::Continued;
    if (scan.colors)
        std::memset(scan.colors + std::size_t{scan.vertexCount} * 4, 255, 4);
    if (count < 3) {
        note(scan.badNumbers, line);
        for (std::size_t i = 0; i < 3; ++i)
            position[i] = std::numeric_limits<float>::quiet_NaN();
    } else if (!AtLineEnd(at, scan.end)) {
        const LineStop stop = readVertexTail(scan, line, at);
        if (stop != LineStop::Done)
            return stop;
    }
    scan.nonFiniteVertices +=
        std::isfinite(position[0]) && std::isfinite(position[1]) && std::isfinite(position[2]) ? 0
                                                                                               : 1;
    ++scan.vertexCount;
    scan.at = NextLine(at, scan.end);
    return LineStop::Done;
}

LineStop readNormal(ObjScan& scan, const char* line)
{
    if (scan.normalCount == scan.normalRoom)
        return LineStop::Full;
    float* normal = scan.normals + std::size_t{scan.normalCount} * 3;
    std::size_t count = 0;
    const char* at = SkipBlanks(readThree(line + 2, scan.end, normal, count), scan.end);
    if (AtContinuation(at, scan.end))
        return LineStop::Continued;
    if (count < 3)
        normal[0] = normal[1] = normal[2] = 0.0f;
    ++scan.normalCount;
    scan.at = NextLine(at, scan.end);
    return LineStop::Done;
}

/// Reads an index and codes it. @return the first letter after it; null when there is none.
inline const char* readIndex(const char* at, const char* end, std::uint32_t countSoFar,
                             std::int32_t& code)
{
    const bool isNegative = at < end && *at == '-';
    if (at < end && (*at == '-' || *at == '+'))
        ++at;
    const char* digits = at;
    std::int64_t value = 0;
    at = ScanDigits(at, end, kObjMaxIndex, value);
    if (at == digits)
        return nullptr;
    if (value > kObjMaxIndex) {
        code = kObjImpossible;
    } else if (isNegative && value > 0) {
        code = static_cast<std::int32_t>(kObjRelativeBase + std::int64_t{countSoFar} - value);
    } else {
        code = static_cast<std::int32_t>(value);
    }
    return at;
}

/// Reads "7", "7/2", "7//3" or "7/2/3". @return the first letter after it; null for anything else.
inline const char* readCorner(ObjScan& scan, const char* at, ObjCorner& corner)
{
    at = readIndex(at, scan.end, scan.vertexCount, corner.vertex);
    corner.normal = 0;
    if (!at || at == scan.end || *at != '/')
        return at;
    ++at;
    if (at < scan.end && *at != '/' && !IsBlank(*at) && !AtLineEnd(at, scan.end)) {
        std::int32_t texture = 0;
        at = readIndex(at, scan.end, 0, texture);
    }
    if (!at || at == scan.end || *at != '/')
        return at;
    ++at;
    if (AtLineEnd(at, scan.end) || IsBlank(*at))
        return at;
    at = readIndex(at, scan.end, scan.normalCount, corner.normal);
    if (at && corner.normal == 0)
        corner.normal = kObjImpossible;
    return at;
}

std::uint32_t fewestCorners(ObjElement kind)
{
    return kind == ObjElement::Face ? 3 : kind == ObjElement::Line ? 2 : 1;
}

LineStop readFace(ObjScan& scan, const char* line, std::size_t keyword, ObjElement kind)
{
    if (scan.faceCount == scan.faceRoom)
        return LineStop::Full;
    const std::uint32_t first = scan.cornerCount;
    std::uint32_t last = first;
    bool hasZero = false;
    const char* at = line + keyword;
    for (;;) {
        at = SkipBlanks(at, scan.end);
        if (AtLineEnd(at, scan.end) || *at == '#')
            break;
        if (AtContinuation(at, scan.end))
            return LineStop::Continued;
        if (last == scan.cornerRoom) {
            scan.areCornersFull = true;
            return LineStop::Full;
        }
        const char* next = readCorner(scan, at, scan.corners[last]);
        if (!next || !(AtLineEnd(next, scan.end) || IsBlank(*next) || *next == '\\')) {
            note(scan.junkLines, line);
            scan.at = NextStatement(at, scan.end);
            return LineStop::Done;
        }
        hasZero = hasZero || scan.corners[last].vertex == 0;
        ++last;
        at = next;
    }
    const std::uint32_t count = last - first;
    if (hasZero || count < fewestCorners(kind)) {
        note(kind != ObjElement::Face ? scan.badThin
             : hasZero                ? scan.zeroIndices
                                      : scan.shortFaces,
             line);
    } else {
        ObjFace& face = scan.faces[scan.faceCount++];
        face.kind = kind;
        face.cornerCount = count & kObjMaxCorners; // A piece has fewer bytes.
        face.offset = static_cast<std::uint32_t>(line - scan.begin);
        scan.cornerCount = last;
    }
    scan.at = NextLine(at, scan.end);
    return LineStop::Done;
}

/// Anything but vertices, normals and elements. @return false for a line that names something.
bool skipOther(ObjScan& scan, const char* at)
{
    if (*at == '#') {
        // A backslash at the end of a comment is a part of it, often of a path.
        scan.at = NextLine(at, scan.end);
        return true;
    }
    if (IsObjNameLine(at, scan.end)) {
        const char* next = NextLine(at, scan.end);
        scan.nameBegin = at;
        scan.nameEnd = next;
        return false;
    }
    if (IsObjCurveOrSurface(at, scan.end))
        note(scan.leftOut, at);
    else if (!IsObjSilent(at, scan.end) && !IsObjFreeForm(at, scan.end))
        note(scan.junkLines, at);
    scan.at = NextStatement(at, scan.end);
    return true;
}

ObjStop toObjStop(LineStop stop)
{
    switch (stop) {
    case LineStop::Continued:
        return ObjStop::Continued;
    case LineStop::Colored:
        return ObjStop::Colored;
    default:
        return ObjStop::Full;
    }
}

} // namespace

ObjStop ScanObj(ObjScan& scan)
{
    for (;;) {
        const char* at = scan.at;
        while (at < scan.end && (IsBlank(*at) || IsLineEnd(*at)))
            ++at;
        scan.at = at;
        if (at == scan.end)
            return ObjStop::End;

        const char second = at + 1 < scan.end ? at[1] : '\n';
        LineStop stop = LineStop::Done;
        if (*at == 'v' && (IsBlank(second) || IsLineEnd(second))) {
            stop = readVertex(scan, at);
        } else if (*at == 'f' && (IsBlank(second) || IsLineEnd(second))) {
            stop = readFace(scan, at, 1, ObjElement::Face);
        } else if (*at == 'l' && IsBlank(second)) {
            stop = readFace(scan, at, 1, ObjElement::Line);
        } else if (*at == 'p' && IsBlank(second)) {
            stop = readFace(scan, at, 1, ObjElement::Points);
        } else if (*at == 'v' && second == 'n') {
            stop = readNormal(scan, at);
        } else if (*at == 'v' && second == 't') {
            scan.at = NextStatement(at, scan.end);
        } else if (StartsWithWord(at, scan.end, "fo", 2)) {
            stop = readFace(scan, at, 2, ObjElement::Face);
        } else if (!skipOther(scan, at)) {
            if (IsContinued(at, scan.nameEnd) && scan.nameEnd < scan.end)
                return ObjStop::Continued;
            scan.at = scan.nameEnd;
            return ObjStop::Name;
        }
        if (stop != LineStop::Done)
            return toObjStop(stop);
    }
}

} // namespace OrvikMesh
