#include "writers/BodyPlacement.h"
#include "writers/FileSink.h"
#include "writers/WriterTexts.h"

#include <OrvikOs/Utf8.h>

#include <algorithm>
#include <map>
#include <optional>
#include <set>

namespace OrvikMesh {

namespace {

/// The most that the reader of OBJ files counts.
constexpr std::size_t kMostVertices = (1u << 30) - 1;

std::wstring librarySibling(const std::wstring& path)
{
    const std::size_t nameBegin = path.find_last_of(L"/\\") + 1;
    const std::size_t dot = path.find_last_of(L'.');
    const bool hasExtension = dot != std::wstring::npos && dot > nameBegin;
    return path.substr(0, hasExtension ? dot : path.size()) + L".mtl";
}

std::string nameOfFile(const std::wstring& path)
{
    return OrvikOs::WideToUtf8(path.substr(path.find_last_of(L"/\\") + 1));
}

/// A name on one line, without blanks at its ends and without a backslash at its end, which would
/// continue the line.
std::string lineName(const std::wstring& name)
{
    std::string text = OrvikOs::WideToUtf8(name);
    for (char& letter : text)
        if (static_cast<unsigned char>(letter) < 0x20)
            letter = ' ';
    const std::size_t first = text.find_first_not_of(' ');
    const std::size_t last = text.find_last_not_of(" \\");
    return first == std::string::npos || last == std::string::npos
               ? std::string()
               : text.substr(first, last - first + 1);
}

class ObjFileWriter
{
public:
    ObjFileWriter(const std::wstring& path, const WritableBodies& chosen,
                  const WriteOptions& options)
        : m_path(path), m_chosen(chosen), m_options(options), m_sink(path, options)
    {
    }

    void Run();

private:
    void numberMaterials();
    void writeLibrary();
    std::string uniqueName(const std::wstring& name);
    void writeBody(const BodyToWrite& body);
    void writeVertices(const BodyToWrite& body, const BodyPlacement& placement);
    void writeNormals(const BodyToWrite& body, const BodyPlacement& placement);
    void writeFaces(const BodyToWrite& body, const BodyPlacement& placement);
    void writeLines(const BodyToWrite& body);
    void writePoints(const BodyToWrite& body);
    void writeNumbers(FileSink& sink, const char* keyword, const std::array<float, 3>& numbers);

    const std::wstring& m_path;
    const WritableBodies& m_chosen;
    const WriteOptions& m_options;
    FileSink m_sink;
    std::optional<FileSink> m_library;
    std::map<std::array<float, 4>, std::string> m_materials; ///< Names by colour.
    std::set<std::string> m_names;                           ///< Of objects, used so far.
    std::uint64_t m_firstVertex = 1;
    std::uint64_t m_firstNormal = 1;
    std::size_t m_trianglesDone = 0;
};

std::array<float, 4> keyOf(const MeshColor& color)
{
    return {color.red, color.green, color.blue, color.alpha};
}

void ObjFileWriter::writeNumbers(FileSink& sink, const char* keyword,
                                 const std::array<float, 3>& numbers)
{
    sink.Text(keyword);
    for (const float number : numbers) {
        sink.Text(" ");
        sink.Number(number);
    }
}

void ObjFileWriter::numberMaterials()
{
    for (const BodyToWrite* body : m_chosen.bodies)
        if (body->color)
            m_materials.emplace(keyOf(*body->color),
                                "material_" + std::to_string(m_materials.size() + 1));
}

void ObjFileWriter::writeLibrary()
{
    const std::wstring path = librarySibling(m_path);
    m_library.emplace(path, m_options);
    for (const auto& [color, name] : m_materials) {
        m_library->Text("newmtl " + name + "\n");
        writeNumbers(*m_library, "Kd", {color[0], color[1], color[2]});
        m_library->Text("\nd ");
        m_library->Number(color[3]);
        m_library->Text("\n");
    }
    m_sink.Text("mtllib " + nameOfFile(path) + "\n");
}

std::string ObjFileWriter::uniqueName(const std::wstring& name)
{
    const std::string plain = lineName(name);
    std::string unique = plain;
    for (std::size_t number = 2; !m_names.insert(unique).second; ++number)
        unique = plain + " (" + std::to_string(number) + ")";
    return unique;
}

void ObjFileWriter::writeVertices(const BodyToWrite& body, const BodyPlacement& placement)
{
    for (std::size_t i = 0; i < body.VertexCount(); ++i) {
        writeNumbers(m_sink, "v", placement.Position(i));
        if (!body.colors.empty()) {
            const std::array<std::uint8_t, 4> color = placement.Color(i);
            for (std::size_t k = 0; k < 3; ++k) {
                m_sink.Text(" ");
                m_sink.Number(static_cast<float>(color[k]) / 255.0f);
            }
        }
        m_sink.Text("\n");
    }
}

void ObjFileWriter::writeNormals(const BodyToWrite& body, const BodyPlacement& placement)
{
    for (std::size_t i = 0; i * 3 < body.normals.size(); ++i) {
        writeNumbers(m_sink, "vn", placement.Normal(i));
        m_sink.Text("\n");
    }
}

void ObjFileWriter::writeFaces(const BodyToWrite& body, const BodyPlacement& placement)
{
    for (std::size_t i = 0; i < body.TriangleCount(); ++i) {
        m_sink.Text("f");
        for (const std::uint32_t corner : placement.Triangle(i)) {
            m_sink.Text(" ");
            m_sink.Number(m_firstVertex + corner);
            if (!body.normals.empty()) {
                m_sink.Text("//");
                m_sink.Number(m_firstNormal + corner);
            }
        }
        m_sink.Text("\n");
    }
}

/// Writes segments of which one begins where another ends as one line.
void ObjFileWriter::writeLines(const BodyToWrite& body)
{
    for (std::size_t i = 0; i + 1 < body.segments.size(); i += 2) {
        const bool goesOn = i > 0 && body.segments[i] == body.segments[i - 1];
        if (!goesOn) {
            m_sink.Text(i > 0 ? "\nl " : "l ");
            m_sink.Number(m_firstVertex + body.segments[i]);
        }
        m_sink.Text(" ");
        m_sink.Number(m_firstVertex + body.segments[i + 1]);
    }
    m_sink.Text("\n");
}

void ObjFileWriter::writePoints(const BodyToWrite& body)
{
    for (std::size_t i = 0; i < body.VertexCount(); ++i) {
        m_sink.Text("p ");
        m_sink.Number(m_firstVertex + i);
        m_sink.Text("\n");
    }
}

void ObjFileWriter::writeBody(const BodyToWrite& body)
{
    const BodyPlacement placement(body);
    m_sink.Text("o " + uniqueName(body.name) + "\n");
    writeVertices(body, placement);
    writeNormals(body, placement);
    if (body.color)
        m_sink.Text("usemtl " + m_materials.at(keyOf(*body.color)) + "\n");
    if (body.isPointCloud)
        writePoints(body);
    else if (body.IsWire())
        writeLines(body);
    else
        writeFaces(body, placement);
    m_firstVertex += body.VertexCount();
    m_firstNormal += body.normals.size() / 3;
    m_trianglesDone += body.TriangleCount();
    m_sink.SetProgress(m_trianglesDone, m_chosen.triangles);
}

void ObjFileWriter::Run()
{
    numberMaterials();
    if (!m_materials.empty())
        writeLibrary();
    // A material holds until the next one, and there is none that means no colour.
    for (const bool isColored : {false, true})
        for (const BodyToWrite* body : m_chosen.bodies)
            if (body->color.has_value() == isColored)
                writeBody(*body);
    if (m_library)
        m_library->Commit();
    m_sink.Commit();
}

} // namespace

bool WriteObj(const std::wstring& path, const MeshToWrite& mesh, const WriteOptions& options,
              ReadMessages& messages)
{
    const WritableBodies chosen = ChooseBodies(mesh, FileHolds::All);
    if (chosen.bodies.empty()) {
        messages.Fail(kNothingOfAll);
        return false;
    }
    if (chosen.vertices > kMostVertices) {
        messages.Fail(FillText(kTooManyVertices, {std::to_wstring(chosen.vertices)}));
        return false;
    }
    return WriteGuarded([&] { ObjFileWriter(path, chosen, options).Run(); }, messages);
}

} // namespace OrvikMesh
