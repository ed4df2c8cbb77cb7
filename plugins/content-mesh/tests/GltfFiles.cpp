#include "GltfFiles.h"

#include <TambVizCore/Geometry.h>

#include <cstring>
#include <stdexcept>
#include <utility>

using OrvikMesh::MeshArray;
using OrvikMesh::ShapeArrays;
using TambVizCore::SharedArray;

namespace {

template <class T> SharedArray<T> share(const MeshArray<T>& array)
{
    return SharedArray<T>(std::vector<T>(array.begin(), array.end()));
}

class PlainShape final : public OrvikModel::ModelShape
{
public:
    explicit PlainShape(const ShapeArrays& arrays)
    {
        TambVizCore::GeometryBuilder builder;
        builder.SetPositions(share(arrays.mesh.positions));
        builder.SetNormals(share(arrays.mesh.normals));
        builder.SetColors(share(arrays.mesh.colors));
        builder.SetTriangles(share(arrays.mesh.triangles));
        builder.SetSegments(share(arrays.segments));
        builder.SetPoints(share(arrays.points));
        std::string error;
        m_geometry = builder.Build(error);
        if (!m_geometry)
            throw std::logic_error(error);
    }

    std::shared_ptr<const TambVizCore::Geometry> Present() const override { return m_geometry; }
    std::shared_ptr<const TambVizCore::Geometry> WithParts() const override { return m_geometry; }
    void MakeParts() const override {}
    const TambVizCore::VizBox& BoundingBox() const override { return m_geometry->BoundingBox(); }

private:
    std::shared_ptr<const TambVizCore::Geometry> m_geometry;
};

void appendNumber(std::string& bytes, std::size_t number)
{
    const auto value = static_cast<std::uint32_t>(number);
    bytes.append(reinterpret_cast<const char*>(&value), sizeof value);
}

template <class Read> GltfResult collect(const std::wstring& name, const Read& read)
{
    GltfResult result;
    OrvikMesh::ReadMessages messages(name);
    const OrvikMesh::ShapeMaker make = PlainShapes(&result.shapesMade);
    result.ok = read(make, result.model, messages);
    result.error = messages.Error();
    result.warnings = messages.Warnings();
    return result;
}

} // namespace

std::string Base64(std::string_view bytes)
{
    const char* digits = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
    std::string text;
    for (std::size_t i = 0; i < bytes.size(); i += 3) {
        std::uint32_t bits = 0;
        for (std::size_t k = 0; k < 3; ++k)
            bits =
                bits << 8 | (i + k < bytes.size() ? static_cast<unsigned char>(bytes[i + k]) : 0);
        for (std::size_t k = 0; k < 4; ++k)
            text += i + k <= bytes.size() ? digits[bits >> (18 - 6 * k) & 63] : '=';
    }
    return text;
}

std::size_t GltfText::add(const char* list, const std::string& members)
{
    m_lists[list].push_back("{" + members + "}");
    return m_lists[list].size() - 1;
}

std::size_t GltfText::AddView(std::string_view bytes, const std::string& more)
{
    m_buffer.resize((m_buffer.size() + 3) / 4 * 4, '\0');
    const std::size_t offset = m_buffer.size();
    m_buffer += bytes;
    return add("bufferViews", "\"buffer\":0,\"byteOffset\":" + std::to_string(offset) +
                                  ",\"byteLength\":" + std::to_string(bytes.size()) + more);
}

std::size_t GltfText::AddViewOf(std::size_t buffer, std::size_t bytes)
{
    return add("bufferViews",
               "\"buffer\":" + std::to_string(buffer) + ",\"byteLength\":" + std::to_string(bytes));
}

void GltfText::AddBuffer(const std::string& members)
{
    m_moreBuffers += ",{" + members + "}";
}

std::size_t GltfText::AddAccessor(const std::string& members)
{
    return add("accessors", members);
}

std::size_t GltfText::AddMesh(const std::string& members)
{
    return add("meshes", members);
}

std::size_t GltfText::AddMaterial(const std::string& members)
{
    return add("materials", members);
}

std::size_t GltfText::AddNode(const std::string& members)
{
    return add("nodes", members);
}

std::size_t GltfText::AddScene(const std::string& members)
{
    return add("scenes", members);
}

std::size_t GltfText::AddFloats(const std::vector<float>& numbers, std::size_t components)
{
    const std::size_t view = AddView(BytesOf(numbers));
    const char* types[] = {"", "SCALAR", "VEC2", "VEC3", "VEC4"};
    return AddAccessor(
        "\"bufferView\":" + std::to_string(view) + ",\"componentType\":5126,\"count\":" +
        std::to_string(numbers.size() / components) + ",\"type\":\"" + types[components] + "\"");
}

std::size_t GltfText::AddIndices(const std::vector<std::uint16_t>& numbers)
{
    const std::size_t view = AddView(BytesOf(numbers));
    return AddAccessor("\"bufferView\":" + std::to_string(view) +
                       ",\"componentType\":5123,\"count\":" + std::to_string(numbers.size()) +
                       ",\"type\":\"SCALAR\"");
}

std::size_t GltfText::AddTriangles(const std::vector<float>& positions,
                                   const std::vector<std::uint16_t>& indices,
                                   const std::string& more)
{
    const std::string points = std::to_string(AddFloats(positions, 3));
    const std::string corners = std::to_string(AddIndices(indices));
    return AddMesh("\"primitives\":[{\"attributes\":{\"POSITION\":" + points +
                   "},\"indices\":" + corners + more + "}]");
}

void GltfText::AddRootMember(const std::string& member)
{
    m_rootMembers.push_back(member);
}

std::string GltfText::json(const std::string& bufferMembers) const
{
    std::string text = "{\"asset\":{\"version\":\"" + m_version + "\"}";
    text += ",\"buffers\":[{" + bufferMembers +
            "\"byteLength\":" + std::to_string(m_buffer.size()) + "}" + m_moreBuffers + "]";
    for (const auto& [name, elements] : m_lists) {
        text += ",\"" + name + "\":[";
        for (std::size_t i = 0; i < elements.size(); ++i)
            text += (i == 0 ? "" : ",") + elements[i];
        text += "]";
    }
    for (const std::string& member : m_rootMembers)
        text += "," + member;
    return text + "}";
}

std::string GltfText::Json(const std::string& uri) const
{
    return json("\"uri\":\"" + uri + "\",");
}

std::string GltfText::Embedded() const
{
    return Json("data:application/octet-stream;base64," + Base64(m_buffer));
}

std::string GltfText::Binary() const
{
    return BinaryGltf(json(""), m_buffer);
}

std::string BinaryGltf(std::string json, std::string_view binary)
{
    json.resize((json.size() + 3) / 4 * 4, ' ');
    std::string data(binary);
    data.resize((data.size() + 3) / 4 * 4, '\0');
    std::string bytes = "glTF";
    appendNumber(bytes, 2);
    appendNumber(bytes, 12 + 8 + json.size() + 8 + data.size());
    appendNumber(bytes, json.size());
    bytes += "JSON" + json;
    appendNumber(bytes, data.size());
    bytes += std::string("BIN\0", 4) + data;
    return bytes;
}

GltfText OneTriangle()
{
    GltfText text;
    text.AddTriangles({0, 0, 0, 1, 0, 0, 0, 1, 0}, {0, 1, 2});
    text.AddNode("\"mesh\":0,\"name\":\"only\"");
    return text;
}

GltfText AllSorts()
{
    GltfText text;
    text.AddMaterial("\"pbrMetallicRoughness\":{\"baseColorFactor\":[0.8,0.1,0,0.5]},"
                     "\"alphaMode\":\"BLEND\"");
    text.AddTriangles({0, 0, 0, 1, 0, 0, 0, 1, 0, 0, 0, 1}, {0, 2, 1, 0, 1, 3, 1, 2, 3, 2, 0, 3},
                      ",\"material\":0");
    const std::string points =
        std::to_string(text.AddFloats({0, 0, 0, 1, 0, 0, 0, 1, 0, 1, 1, 0}, 3));
    const std::string colors = std::to_string(text.AddAccessor(
        "\"bufferView\":" +
        std::to_string(text.AddView(
            BytesOf<std::uint8_t>({255, 0, 0, 255, 0, 255, 0, 255, 0, 0, 255, 255, 9, 9, 9, 9}))) +
        ",\"componentType\":5121,\"normalized\":true,\"count\":4,\"type\":\"VEC4\""));
    text.AddMesh(
        "\"name\":\"sheet\",\"primitives\":[{\"mode\":5,\"attributes\":{\"POSITION\":" + points +
        ",\"COLOR_0\":" + colors + "}},{\"mode\":2,\"attributes\":{\"POSITION\":" + points +
        "}},{\"mode\":0,\"attributes\":{\"POSITION\":" + points + "}}]");
    const std::string places = std::to_string(text.AddView(BytesOf<std::uint8_t>({1, 3})));
    const std::string values = std::to_string(text.AddView(BytesOf<float>({5, 5, 5, 6, 6, 6})));
    const std::string sparse = std::to_string(text.AddAccessor(
        "\"componentType\":5126,\"count\":6,\"type\":\"VEC3\",\"sparse\":{\"count\":2,"
        "\"indices\":{\"bufferView\":" +
        places +
        ",\"componentType\":5121},"
        "\"values\":{\"bufferView\":" +
        values + "}}"));
    const std::string small = std::to_string(text.AddAccessor(
        "\"bufferView\":" +
        std::to_string(text.AddView(BytesOf<std::int16_t>({0, 0, 0, 0, 9, 0, 0, 0, 0, 9, 0, 0}),
                                    ",\"byteStride\":8")) +
        ",\"componentType\":5122,\"count\":3,\"type\":\"VEC3\""));
    text.AddMesh("\"primitives\":[{\"attributes\":{\"POSITION\":" + sparse +
                 "}},{\"mode\":6,\"attributes\":{\"POSITION\":" + small + "}}]");
    text.AddNode(
        "\"name\":\"top\",\"children\":[1,2,3],\"matrix\":[0,1,0,0,-1,0,0,0,0,0,1,0,5,6,7,1]");
    text.AddNode("\"name\":\"left\",\"mesh\":0,\"translation\":[1,2,3]");
    text.AddNode("\"name\":\"right\",\"mesh\":0,\"scale\":[2,2,2],\"rotation\":[0,0,0.6,0.8]");
    text.AddNode("\"mesh\":1,\"children\":[4]");
    text.AddNode("\"mesh\":2");
    text.AddScene("\"nodes\":[0]");
    text.AddRootMember("\"scene\":0");
    return text;
}

OrvikMesh::ShapeMaker PlainShapes(std::size_t* count)
{
    return [count](ShapeArrays&& arrays) {
        if (count)
            ++*count;
        return std::make_shared<const PlainShape>(arrays);
    };
}

GltfResult ReadGltfBytes(std::string_view bytes, const OrvikMesh::ReadOptions& options)
{
    return collect(L"test", [&](const OrvikMesh::ShapeMaker& make, OrvikModel::Model& model,
                                OrvikMesh::ReadMessages& messages) {
        return OrvikMesh::ReadGuarded(
            [&] { return OrvikMesh::ReadGltfContent(L"", bytes, options, make, model, messages); },
            messages);
    });
}

GltfResult ReadGltfFile(const std::wstring& path, const OrvikMesh::ReadOptions& options)
{
    return collect(path, [&](const OrvikMesh::ShapeMaker& make, OrvikModel::Model& model,
                             OrvikMesh::ReadMessages& messages) {
        return OrvikMesh::ReadGltf(path, options, make, model, messages);
    });
}

std::vector<std::array<float, 3>> CornersOf(const TambVizCore::Geometry& geometry)
{
    std::vector<std::array<float, 3>> corners;
    for (const std::uint32_t vertex : geometry.Triangles().Span()) {
        const float* point = geometry.Positions().Data() + std::size_t{vertex} * 3;
        corners.push_back({point[0], point[1], point[2]});
    }
    return corners;
}
