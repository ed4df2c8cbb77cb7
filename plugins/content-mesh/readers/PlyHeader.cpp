#include "readers/PlyHeader.h"

#include "readers/ReaderTexts.h"

#include <OrvikOs/Utf8.h>

#include <algorithm>
#include <charconv>

namespace OrvikMesh {

namespace {

struct TypeName
{
    std::string_view name;
    ScalarType type;
};

constexpr TypeName kTypeNames[] = {
    {"char", ScalarType::Int8},      {"int8", ScalarType::Int8},
    {"uchar", ScalarType::UInt8},    {"uint8", ScalarType::UInt8},
    {"short", ScalarType::Int16},    {"int16", ScalarType::Int16},
    {"ushort", ScalarType::UInt16},  {"uint16", ScalarType::UInt16},
    {"int", ScalarType::Int32},      {"int32", ScalarType::Int32},
    {"uint", ScalarType::UInt32},    {"uint32", ScalarType::UInt32},
    {"float", ScalarType::Float32},  {"float32", ScalarType::Float32},
    {"double", ScalarType::Float64}, {"float64", ScalarType::Float64}};

struct RoleName
{
    std::string_view name;
    PlyRole role;
};

constexpr RoleName kRoleNames[] = {
    {"x", PlyRole::X},
    {"y", PlyRole::Y},
    {"z", PlyRole::Z},
    {"nx", PlyRole::NormalX},
    {"ny", PlyRole::NormalY},
    {"nz", PlyRole::NormalZ},
    {"red", PlyRole::Red},
    {"green", PlyRole::Green},
    {"blue", PlyRole::Blue},
    {"alpha", PlyRole::Alpha},
    {"r", PlyRole::Red},
    {"g", PlyRole::Green},
    {"b", PlyRole::Blue},
    {"a", PlyRole::Alpha},
    {"diffuse_red", PlyRole::Red},
    {"diffuse_green", PlyRole::Green},
    {"diffuse_blue", PlyRole::Blue},
    {"diffuse_alpha", PlyRole::Alpha},
};

bool findType(std::string_view name, ScalarType& type)
{
    const auto* found = std::find_if(std::begin(kTypeNames), std::end(kTypeNames),
                                     [&](const TypeName& entry) { return entry.name == name; });
    if (found == std::end(kTypeNames))
        return false;
    type = found->type;
    return true;
}

bool isListName(std::string_view name)
{
    return name == "vertex_indices" || name == "vertex_index";
}

/// Gives the properties of an element their roles by their names, the first of each name.
void assignRoles(PlyElement& element)
{
    for (PlyProperty& property : element.properties) {
        if (property.isList) {
            if (isListName(property.name) && !element.Find(PlyRole::Corners))
                property.role = PlyRole::Corners;
            continue;
        }
        for (const RoleName& entry : kRoleNames)
            if (entry.name == property.name && !element.Find(entry.role))
                property.role = entry.role;
    }
}

bool hasAll(const PlyElement& element, std::initializer_list<PlyRole> roles)
{
    return std::all_of(roles.begin(), roles.end(),
                       [&](PlyRole role) { return element.Find(role) != nullptr; });
}

/// Takes the roles away from normals and colours that are not complete.
void dropIncomplete(PlyElement& element)
{
    const bool hasNormals = hasAll(element, {PlyRole::NormalX, PlyRole::NormalY, PlyRole::NormalZ});
    const bool hasColors = hasAll(element, {PlyRole::Red, PlyRole::Green, PlyRole::Blue});
    for (PlyProperty& property : element.properties) {
        const bool isNormal =
            property.role >= PlyRole::NormalX && property.role <= PlyRole::NormalZ;
        const bool isColor = property.role >= PlyRole::Red && property.role <= PlyRole::Alpha;
        if ((isNormal && !hasNormals) || (isColor && !hasColors))
            property.role = PlyRole::None;
    }
}

/// The only list of a face may have any name.
void findNamelessCorners(PlyElement& element)
{
    if (element.Find(PlyRole::Corners))
        return;
    const auto isList = [](const PlyProperty& property) { return property.isList; };
    if (std::count_if(element.properties.begin(), element.properties.end(), isList) == 1)
        std::find_if(element.properties.begin(), element.properties.end(), isList)->role =
            PlyRole::Corners;
}

class HeaderParser
{
public:
    HeaderParser(std::string_view content, PlyHeader& header, ReadMessages& messages)
        : m_content(content), m_header(header), m_messages(messages)
    {
    }

    bool Run();

private:
    bool nextLine();
    std::string_view nextWord();
    bool readLine();
    bool readFormat();
    bool readElement();
    bool readProperty();
    bool finish();
    bool fail(std::wstring_view reason)
    {
        m_messages.Fail(reason, ReadPlace::Line(m_lineNumber));
        return false;
    }

    std::string_view m_content;
    PlyHeader& m_header;
    ReadMessages& m_messages;
    std::size_t m_at = 0;
    std::string_view m_line; ///< What is left of the line in hand.
    std::uint64_t m_lineNumber = 0;
    char m_lineEnd = '\n';
    bool m_hasFormat = false;
    std::uint64_t m_junkLines = 0;
    std::uint64_t m_firstJunk = 0;
};

bool HeaderParser::nextLine()
{
    if (m_at >= m_content.size())
        return false;
    std::size_t end = m_content.find(m_lineEnd, m_at);
    if (end == std::string_view::npos)
        end = m_content.size();
    m_line = m_content.substr(m_at, end - m_at);
    if (!m_line.empty() && m_line.back() == '\r')
        m_line.remove_suffix(1);
    m_at = std::min(end + 1, m_content.size());
    ++m_lineNumber;
    return true;
}

std::string_view HeaderParser::nextWord()
{
    const std::size_t begin = std::min(m_line.find_first_not_of(" \t"), m_line.size());
    const std::size_t end = std::min(m_line.find_first_of(" \t", begin), m_line.size());
    const std::string_view word = m_line.substr(begin, end - begin);
    m_line.remove_prefix(end);
    return word;
}

bool HeaderParser::readFormat()
{
    const std::string_view word = nextWord();
    m_hasFormat = true;
    if (word == "ascii")
        m_header.format = PlyFormat::Text;
    else if (word == "binary_little_endian")
        m_header.format = PlyFormat::LittleEndian;
    else if (word == "binary_big_endian")
        m_header.format = PlyFormat::BigEndian;
    else
        return fail(FillText(kPlyBadFormat, {OrvikOs::Utf8ToWide(word.substr(0, 64))}));
    return true;
}

bool HeaderParser::readElement()
{
    PlyElement element;
    element.name = nextWord();
    const std::string_view digits = nextWord();
    const auto parsed =
        std::from_chars(digits.data(), digits.data() + digits.size(), element.count);
    if (digits.empty() || parsed.ec != std::errc() || parsed.ptr != digits.data() + digits.size())
        return fail(kPlyBadElement);
    m_header.elements.push_back(std::move(element));
    return true;
}

bool HeaderParser::readProperty()
{
    PlyProperty property;
    std::string_view type = nextWord();
    property.isList = type == "list";
    bool isKnown = !m_header.elements.empty();
    if (property.isList) {
        isKnown = isKnown && findType(nextWord(), property.countType);
        type = nextWord();
    }
    isKnown = isKnown && findType(type, property.type);
    property.name = nextWord();
    if (!isKnown || property.name.empty())
        return fail(kPlyBadProperty);
    m_header.elements.back().properties.push_back(std::move(property));
    return true;
}

/// @return false with an error, or at the end of the header without one.
bool HeaderParser::readLine()
{
    const std::string_view keyword = nextWord();
    if (keyword == "format")
        return readFormat();
    if (keyword == "element")
        return readElement();
    if (keyword == "property")
        return readProperty();
    if (keyword != "comment" && keyword != "obj_info" && !keyword.empty() && m_junkLines++ == 0)
        m_firstJunk = m_lineNumber;
    return true;
}

bool HeaderParser::finish()
{
    m_header.end = m_at;
    if (m_junkLines > 0)
        m_messages.Warn(FillText(kPlyJunk, {std::to_wstring(m_junkLines)}),
                        ReadPlace::Line(m_firstJunk));
    if (!m_hasFormat)
        return fail(kPlyNoFormat);
    bool hasVertices = false;
    for (PlyElement& element : m_header.elements) {
        assignRoles(element);
        dropIncomplete(element);
        if (element.name == "vertex" && !hasVertices) {
            hasVertices = hasAll(element, {PlyRole::X, PlyRole::Y, PlyRole::Z});
            element.kind = hasVertices ? PlyElement::Kind::Vertices : PlyElement::Kind::Other;
        } else if (element.name == "face" || element.name == "tristrips") {
            findNamelessCorners(element);
            if (element.Find(PlyRole::Corners))
                element.kind =
                    element.name == "face" ? PlyElement::Kind::Faces : PlyElement::Kind::Strips;
        }
    }
    return hasVertices || fail(kPlyNoVertices);
}

bool HeaderParser::Run()
{
    const std::string_view magic = m_content.substr(0, 4);
    if (magic != "ply\n" && magic != "ply\r" && magic != "ply ") {
        m_messages.Fail(kPlyNotPly);
        return false;
    }
    // Binary data may begin with a byte that looks like a line end: the first line tells which end
    // the others have.
    const std::size_t firstEnd = m_content.find_first_of("\r\n");
    const bool isReturn = firstEnd != std::string_view::npos && m_content[firstEnd] == '\r' &&
                          m_content.substr(firstEnd + 1, 1) != "\n";
    m_lineEnd = isReturn ? '\r' : '\n';
    nextLine();
    while (nextLine()) {
        const std::string_view line = m_line;
        if (nextWord() == "end_header")
            return finish();
        m_line = line;
        if (!readLine())
            return false;
    }
    return fail(kPlyNoEnd);
}

} // namespace

bool PlyElement::HasLists() const
{
    return std::any_of(properties.begin(), properties.end(),
                       [](const PlyProperty& property) { return property.isList; });
}

std::size_t PlyElement::RowBytes() const
{
    std::size_t bytes = 0;
    for (const PlyProperty& property : properties)
        bytes += SizeOf(property.isList ? property.countType : property.type);
    return bytes;
}

const PlyProperty* PlyElement::Find(PlyRole role) const
{
    const auto found =
        std::find_if(properties.begin(), properties.end(),
                     [role](const PlyProperty& entry) { return entry.role == role; });
    return found == properties.end() ? nullptr : &*found;
}

bool ReadPlyHeader(std::string_view content, PlyHeader& header, ReadMessages& messages)
{
    return HeaderParser(content, header, messages).Run();
}

} // namespace OrvikMesh
