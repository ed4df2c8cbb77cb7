#include "ImportFiles.h"

#include "MeshFiles.h"

#include <array>
#include <cstring>
#include <ostream>
#include <utility>

namespace {

template <class T> void append(std::string& bytes, T value)
{
    bytes.append(reinterpret_cast<const char*>(&value), sizeof value);
}

template <class T> void appendBackwards(std::string& bytes, T value)
{
    std::string little;
    append(little, value);
    bytes.append(little.rbegin(), little.rend());
}

constexpr float kTriangle[9] = {0, 0, 0, 1, 0, 0, 0, 1, 0};

/// A chunk of a 3DS file.
std::string chunk(std::uint16_t id, const std::string& content)
{
    std::string bytes;
    append(bytes, id);
    append(bytes, static_cast<std::uint32_t>(6 + content.size()));
    return bytes + content;
}

std::string threeDs()
{
    std::string points;
    append(points, std::uint16_t{3});
    points.append(reinterpret_cast<const char*>(kTriangle), sizeof kTriangle);
    std::string faces;
    for (const int value : {1, 0, 1, 2, 7})
        append(faces, static_cast<std::uint16_t>(value));
    std::string uses("red\0", 4);
    append(uses, std::uint16_t{1});
    append(uses, std::uint16_t{0});
    const std::string material =
        chunk(0xAFFF, chunk(0xA000, std::string("red\0", 4)) +
                          chunk(0xA020, chunk(0x0011, std::string("\xFF\0\0", 3))) +
                          chunk(0xA050, chunk(0x0030, std::string("\x32\0", 2))));
    const std::string mesh =
        chunk(0x4100, chunk(0x4110, points) + chunk(0x4120, faces + chunk(0x4130, uses)));
    const std::string object = chunk(0x4000, std::string("Tri\0", 4) + mesh);
    return chunk(0x4D4D,
                 chunk(0x0002, std::string("\3\0\0\0", 4)) + chunk(0x3D3D, material + object));
}

/// A chunk of a LightWave file, padded to an even length.
std::string lightWaveChunk(const std::string& id, const std::string& content)
{
    std::string bytes = id;
    appendBackwards(bytes, static_cast<std::uint32_t>(content.size()));
    bytes += content;
    return content.size() % 2 == 0 ? bytes : bytes + std::string(1, '\0');
}

std::string lightWave()
{
    std::string points;
    for (const float value : kTriangle)
        appendBackwards(points, value);
    std::string faces = "FACE";
    for (const int value : {3, 0, 1, 2})
        appendBackwards(faces, static_cast<std::uint16_t>(value));
    std::string color;
    for (const float value : {1.0f, 0.0f, 0.0f})
        appendBackwards(color, value);
    const std::string body =
        lightWaveChunk("TAGS", std::string("red\0", 4)) +
        lightWaveChunk("LAYR", std::string(16, '\0') + std::string("lay\0", 4)) +
        lightWaveChunk("PNTS", points) + lightWaveChunk("POLS", faces) +
        lightWaveChunk("PTAG", std::string("SURF\0\0\0\0", 8)) +
        lightWaveChunk("SURF",
                       std::string("red\0\0\0COLR\0\x0E", 12) + color + std::string(2, '\0'));
    std::string bytes = "FORM";
    appendBackwards(bytes, static_cast<std::uint32_t>(4 + body.size()));
    return bytes + "LWO2" + body;
}

std::uint32_t crcOf(const std::string& bytes)
{
    std::uint32_t crc = 0xFFFFFFFFu;
    for (const char byte : bytes) {
        crc ^= static_cast<unsigned char>(byte);
        for (int i = 0; i < 8; ++i)
            crc = (crc >> 1) ^ ((crc & 1u) != 0 ? 0xEDB88320u : 0u);
    }
    return ~crc;
}

/// A ZIP archive whose entries are stored as they are.
std::string zip(const std::vector<std::pair<std::string, std::string>>& entries)
{
    std::string bytes;
    std::string directory;
    for (const auto& [name, content] : entries) {
        std::string header;
        for (const int value : {20, 0, 0, 0, 33})
            append(header, static_cast<std::uint16_t>(value));
        append(header, crcOf(content));
        append(header, static_cast<std::uint32_t>(content.size()));
        append(header, static_cast<std::uint32_t>(content.size()));
        append(header, static_cast<std::uint16_t>(name.size()));
        append(header, std::uint16_t{0});
        directory += std::string("PK\1\2\x14\0", 6) + header + std::string(10, '\0');
        append(directory, static_cast<std::uint32_t>(bytes.size()));
        directory += name;
        bytes += "PK\3\4" + header + name + content;
    }
    const auto offset = static_cast<std::uint32_t>(bytes.size());
    bytes += directory + std::string("PK\5\6\0\0\0\0", 8);
    append(bytes, static_cast<std::uint16_t>(entries.size()));
    append(bytes, static_cast<std::uint16_t>(entries.size()));
    append(bytes, static_cast<std::uint32_t>(directory.size()));
    append(bytes, offset);
    return bytes + std::string(2, '\0');
}

constexpr char kAc3d[] = "AC3Db\n"
                         "OBJECT world\n"
                         "kids 2\n"
                         "OBJECT poly\n"
                         "name \"left\"\n"
                         "loc 1 2 3\n"
                         "numvert 4\n"
                         "0 0 0\n"
                         "1 0 0\n"
                         "1 1 0\n"
                         "0 1 0\n"
                         "numsurf 1\n"
                         "SURF 0x10\n"
                         "mat 0\n"
                         "refs 4\n"
                         "0 0 0\n"
                         "1 1 0\n"
                         "2 1 1\n"
                         "3 0 1\n"
                         "kids 0\n"
                         "OBJECT group\n"
                         "name \"grp\"\n"
                         "kids 0\n";

constexpr char kAmf[] =
    "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
    "<amf unit=\"millimeter\"><object id=\"0\"><metadata "
    "type=\"name\">corner</metadata><mesh><vertices>\n"
    "<vertex><coordinates><x>0</x><y>0</y><z>0</z></coordinates></vertex>\n"
    "<vertex><coordinates><x>1</x><y>0</y><z>0</z></coordinates></vertex>\n"
    "<vertex><coordinates><x>0</x><y>1</y><z>0</z></coordinates></vertex>\n"
    "<vertex><coordinates><x>0</x><y>0</y><z>1</z></coordinates></vertex></vertices>\n"
    "<volume><triangle><v1>0</v1><v2>2</v2><v3>1</v3></triangle><triangle><v1>0</v1><v2>1</"
    "v2><v3>3</v3></triangle></volume></mesh></object></amf>\n";

constexpr char kCollada[] =
    "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n"
    "<COLLADA xmlns=\"http://www.collada.org/2005/11/COLLADASchema\" version=\"1.4.1\">\n"
    "<asset><unit name=\"meter\" meter=\"1\"/><up_axis>Y_UP</up_axis></asset>\n"
    "<library_effects><effect id=\"e\"><profile_COMMON><technique "
    "sid=\"t\"><lambert><diffuse><color>1 0 0 "
    "1</color></diffuse></lambert></technique></profile_COMMON></effect></library_effects>\n"
    "<library_materials><material id=\"m\" name=\"m\"><instance_effect "
    "url=\"#e\"/></material></library_materials>\n"
    "<library_geometries><geometry id=\"g\" name=\"tri\"><mesh><source id=\"p\"><float_array "
    "id=\"pa\" count=\"9\">0 0 0 1 0 0 0 1 0</float_array><technique_common><accessor "
    "source=\"#pa\" count=\"3\" stride=\"3\"><param name=\"X\" type=\"float\"/><param name=\"Y\" "
    "type=\"float\"/><param name=\"Z\" type=\"float\"/></accessor></technique_common></source>\n"
    "<vertices id=\"v\"><input semantic=\"POSITION\" source=\"#p\"/></vertices><triangles "
    "count=\"1\" material=\"mm\"><input semantic=\"VERTEX\" source=\"#v\" offset=\"0\"/><p>0 1 "
    "2</p></triangles></mesh></geometry></library_geometries>\n"
    "<library_visual_scenes><visual_scene id=\"s\" name=\"s\"><node id=\"n1\" "
    "name=\"left\"><translate>1 2 3</translate><instance_geometry "
    "url=\"#g\"><bind_material><technique_common><instance_material symbol=\"mm\" "
    "target=\"#m\"/></technique_common></bind_material></instance_geometry></node>\n"
    "<node id=\"n2\" name=\"right\"><translate>4 5 6</translate><instance_geometry "
    "url=\"#g\"><bind_material><technique_common><instance_material symbol=\"mm\" "
    "target=\"#m\"/></technique_common></bind_material></instance_geometry></node></visual_scene></"
    "library_visual_scenes>\n"
    "<scene><instance_visual_scene url=\"#s\"/></scene></COLLADA>\n";

constexpr char kDxf[] = "  0\n"
                        "SECTION\n"
                        "  2\n"
                        "ENTITIES\n"
                        "  0\n"
                        "3DFACE\n"
                        "  8\n"
                        "layer1\n"
                        " 10\n"
                        "0.0\n"
                        " 20\n"
                        "0.0\n"
                        " 30\n"
                        "0.0\n"
                        " 11\n"
                        "1.0\n"
                        " 21\n"
                        "0.0\n"
                        " 31\n"
                        "0.0\n"
                        " 12\n"
                        "1.0\n"
                        " 22\n"
                        "1.0\n"
                        " 32\n"
                        "0.0\n"
                        " 13\n"
                        "0.0\n"
                        " 23\n"
                        "1.0\n"
                        " 33\n"
                        "0.0\n"
                        "  0\n"
                        "ENDSEC\n"
                        "  0\n"
                        "EOF\n";

constexpr char kFbx[] = "; FBX 7.3.0 project file\n"
                        "FBXHeaderExtension:  {\n"
                        "\tFBXHeaderVersion: 1003\n"
                        "\tFBXVersion: 7300\n"
                        "}\n"
                        "Objects:  {\n"
                        "\tGeometry: 10, \"Geometry::tri\", \"Mesh\" {\n"
                        "\t\tVertices: *9 {\n"
                        "\t\t\ta: 0,0,0,1,0,0,0,1,0\n"
                        "\t\t}\n"
                        "\t\tPolygonVertexIndex: *3 {\n"
                        "\t\t\ta: 0,1,-3\n"
                        "\t\t}\n"
                        "\t\tGeometryVersion: 124\n"
                        "\t}\n"
                        "\tModel: 20, \"Model::left\", \"Mesh\" {\n"
                        "\t\tVersion: 232\n"
                        "\t\tProperties70:  {\n"
                        "\t\t\tP: \"Lcl Translation\", \"Lcl Translation\", \"\", \"A\",1,2,3\n"
                        "\t\t}\n"
                        "\t}\n"
                        "\tMaterial: 30, \"Material::red\", \"\" {\n"
                        "\t\tVersion: 102\n"
                        "\t\tShadingModel: \"lambert\"\n"
                        "\t\tProperties70:  {\n"
                        "\t\t\tP: \"DiffuseColor\", \"Color\", \"\", \"A\",1,0,0\n"
                        "\t\t}\n"
                        "\t}\n"
                        "}\n"
                        "Connections:  {\n"
                        "\tC: \"OO\",20,0\n"
                        "\tC: \"OO\",10,20\n"
                        "\tC: \"OO\",30,20\n"
                        "}\n";

constexpr char kNff[] = "f 1 0 0 1 0 0 0 1\n"
                        "pp 3\n"
                        "0 0 0 0 0 1\n"
                        "1 0 0 0 0 1\n"
                        "0 1 0 0 0 1\n";

constexpr char kDirectX[] =
    "xof 0303txt 0032\n"
    "Frame Root { FrameTransformMatrix { 1.0,0.0,0.0,0.0, 0.0,1.0,0.0,0.0, 0.0,0.0,1.0,0.0, "
    "5.0,6.0,7.0,1.0;; }\n"
    "Mesh part { 3; 0.0;0.0;0.0;, 1.0;0.0;0.0;, 0.0;1.0;0.0;; 1; 3;0,1,2;;\n"
    "MeshMaterialList { 1; 1; 0;; Material red { 1.0;0.0;0.0;1.0;; 1.0; 0.0;0.0;0.0;; "
    "0.0;0.0;0.0;; } } } }\n";

constexpr char kX3d[] = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                        "<X3D version=\"3.0\"><Scene><Transform translation=\"1 2 "
                        "3\"><Shape><Appearance><Material diffuseColor=\"1 0 0\"/></Appearance>\n"
                        "<IndexedFaceSet coordIndex=\"0 1 2 -1\"><Coordinate point=\"0 0 0, 1 0 0, "
                        "0 1 0\"/></IndexedFaceSet></Shape></Transform></Scene></X3D>\n";

std::string threeMf()
{
    return zip({
        {"[Content_Types].xml",
         "<?xml version=\"1.0\" encoding=\"UTF-8\"?><Types "
         "xmlns=\"http://schemas.openxmlformats.org/package/2006/content-types\"><Default "
         "Extension=\"rels\" "
         "ContentType=\"application/vnd.openxmlformats-package.relationships+xml\"/><Default "
         "Extension=\"model\" "
         "ContentType=\"application/vnd.ms-package.3dmanufacturing-3dmodel+xml\"/></Types>\n"},
        {"_rels/.rels", "<?xml version=\"1.0\" encoding=\"UTF-8\"?><Relationships "
                        "xmlns=\"http://schemas.openxmlformats.org/package/2006/"
                        "relationships\"><Relationship Target=\"/3D/3dmodel.model\" Id=\"rel0\" "
                        "Type=\"http://schemas.microsoft.com/3dmanufacturing/2013/01/3dmodel\"/></"
                        "Relationships>\n"},
        {"3D/3dmodel.model",
         "<?xml version=\"1.0\" encoding=\"UTF-8\"?><model unit=\"millimeter\" "
         "xmlns=\"http://schemas.microsoft.com/3dmanufacturing/core/2015/02\"><resources><object "
         "id=\"1\" type=\"model\" name=\"tri\"><mesh><vertices><vertex x=\"0\" y=\"0\" "
         "z=\"0\"/><vertex x=\"1\" y=\"0\" z=\"0\"/><vertex x=\"0\" y=\"1\" "
         "z=\"0\"/></vertices><triangles><triangle v1=\"0\" v2=\"1\" "
         "v3=\"2\"/></triangles></mesh></object></resources><build><item objectid=\"1\"/><item "
         "objectid=\"1\" transform=\"1 0 0 0 1 0 0 0 1 5 6 7\"/></build></model>\n"},
    });
}

} // namespace

std::vector<ImportSample> ImportSamples()
{
    return {
        {"3ds", threeDs()}, {"3mf", threeMf()}, {"lwo", lightWave()}, {"ac", kAc3d},
        {"amf", kAmf},      {"dae", kCollada},  {"dxf", kDxf},        {"fbx", kFbx},
        {"nff", kNff},      {"x", kDirectX},    {"x3d", kX3d},
    };
}

void PrintTo(const ImportSample& sample, std::ostream* out)
{
    *out << sample.extension;
}

std::string ImportSampleOf(const std::string& extension)
{
    for (const ImportSample& sample : ImportSamples())
        if (sample.extension == extension)
            return sample.bytes;
    return {};
}

GltfResult ReadImportedFile(const std::wstring& path, const OrvikMesh::ReadOptions& options,
                            const std::wstring& library)
{
    GltfResult result;
    OrvikMesh::ReadMessages messages(path);
    result.ok = OrvikMesh::ReadImported(path, options, PlainShapes(&result.shapesMade),
                                        result.model, messages, library);
    result.error = messages.Error();
    result.warnings = messages.Warnings();
    return result;
}
