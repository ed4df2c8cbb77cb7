#ifndef ORVIKMESH_TESTS_GLTFFILES_H
#define ORVIKMESH_TESTS_GLTFFILES_H

#include "gltf/GltfReader.h"

#include <OrvikModel/Model.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

/// The bytes of numbers, as they lie in a buffer.
template <class T> std::string BytesOf(const std::vector<T>& numbers)
{
    return {reinterpret_cast<const char*>(numbers.data()), numbers.size() * sizeof(T)};
}

/// Puts a glTF file together, piece by piece. Every piece is written as it is told, right or wrong.
class GltfText
{
public:
    /// Appends bytes to the buffer, on a multiple of four. @return the number of their view.
    std::size_t AddView(std::string_view bytes, const std::string& more = "");

    /// The first bytes of a further buffer. @return the number of the view.
    std::size_t AddViewOf(std::size_t buffer, std::size_t bytes);
    /// A further buffer after the one that AddView() fills.
    void AddBuffer(const std::string& members);

    /// Each adds one element, written in braces. @return its number.
    std::size_t AddAccessor(const std::string& members);
    std::size_t AddMesh(const std::string& members);
    std::size_t AddMaterial(const std::string& members);
    std::size_t AddNode(const std::string& members);
    std::size_t AddScene(const std::string& members);

    /// A view and its accessor of floats.
    std::size_t AddFloats(const std::vector<float>& numbers, std::size_t components);
    /// A view and its accessor of indices of two bytes.
    std::size_t AddIndices(const std::vector<std::uint16_t>& numbers);
    /// A mesh of one primitive over new accessors. @return its number.
    std::size_t AddTriangles(const std::vector<float>& positions,
                             const std::vector<std::uint16_t>& indices,
                             const std::string& more = "");

    /// A member of the root, such as "\"scene\": 1".
    void AddRootMember(const std::string& member);
    void SetVersion(const std::string& version) { m_version = version; }

    const std::string& Buffer() const { return m_buffer; }
    /// The text with a buffer that has that URI.
    std::string Json(const std::string& uri) const;
    /// The text with its buffer inside.
    std::string Embedded() const;
    /// The binary form.
    std::string Binary() const;

private:
    std::string json(const std::string& bufferMembers) const;
    std::size_t add(const char* list, const std::string& members);

    std::string m_version = "2.0";
    std::string m_buffer;
    std::map<std::string, std::vector<std::string>> m_lists;
    std::string m_moreBuffers;
    std::vector<std::string> m_rootMembers;
};

std::string Base64(std::string_view bytes);

/// One node with one triangle.
GltfText OneTriangle();
/// A hierarchy with an instance, colours, a strip, lines, points, sparse and quantised numbers.
GltfText AllSorts();

/// A file of the binary form around any JSON text.
std::string BinaryGltf(std::string json, std::string_view binary);

/// What reading a glTF file gave.
struct GltfResult
{
    bool ok = false;
    OrvikModel::Model model;
    std::wstring error;
    std::vector<std::wstring> warnings;
    std::size_t shapesMade = 0;

    const OrvikModel::ModelNode& Node(std::size_t top) const { return *model.nodes.at(top); }
    const TambVizCore::Geometry& Shape(std::size_t top) const
    {
        return *Node(top).shape->Present();
    }
};

/// Reads from memory, without side files; the file is called "test".
GltfResult ReadGltfBytes(std::string_view bytes, const OrvikMesh::ReadOptions& options = {});
GltfResult ReadGltfFile(const std::wstring& path, const OrvikMesh::ReadOptions& options = {});

/// Makes shapes that only hold their geometry.
OrvikMesh::ShapeMaker PlainShapes(std::size_t* count = nullptr);

/// The coordinates of a geometry's triangles, corner by corner.
std::vector<std::array<float, 3>> CornersOf(const TambVizCore::Geometry& geometry);

#endif
