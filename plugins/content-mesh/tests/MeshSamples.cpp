#include "MeshSamples.h"

#include "MeshFiles.h"

namespace {

std::string plyHeader(const std::string& format)
{
    return "ply\nformat " + format +
           " 1.0\nelement vertex 40\nproperty float x\nproperty float y\nproperty float z\n"
           "property float nx\nproperty float ny\nproperty float nz\nproperty uchar red\n"
           "property uchar green\nproperty uchar blue\nelement face 38\n"
           "property list uchar int vertex_indices\nproperty uchar red\nproperty uchar green\n"
           "property uchar blue\nelement tristrips 1\nproperty list int int vertex_indices\n"
           "end_header\n";
}

std::string pcdHeader(const std::string& format)
{
    return "# .PCD v0.7\nVERSION 0.7\nFIELDS x y z rgb normal_x normal_y normal_z\n"
           "SIZE 4 4 4 4 4 4 4\nTYPE F F F U F F F\nCOUNT 1 1 1 1 1 1 1\nWIDTH 40\nHEIGHT 1\n"
           "VIEWPOINT 0 0 0 1 0 0 0\nPOINTS 40\nDATA " +
           format + "\n";
}

} // namespace

std::string ObjSample()
{
    std::string text = "mtllib a.mtl\no body\n";
    for (int i = 0; i < 40; ++i)
        text += "v " + std::to_string(i) + " " + std::to_string(i * i % 17) + " 0.5\nvn 0 0 1\n";
    for (int i = 1; i < 38; ++i)
        text += "f " + std::to_string(i) + "//1 " + std::to_string(i + 1) + "//2 -1//-1 " +
                std::to_string(i + 2) + "//3\n";
    return text;
}

std::string PlyTextSample()
{
    std::string text = plyHeader("ascii");
    for (int i = 0; i < 40; ++i)
        text += std::to_string(i) + " " + std::to_string(i * i % 17) + " 0.5 0 0 1 255 128 " +
                std::to_string(i) + "\n";
    for (int i = 0; i < 38; ++i)
        text += "3 " + std::to_string(i) + " " + std::to_string(i + 1) + " " +
                std::to_string(i + 2) + " 10 20 " + std::to_string(i) + "\n";
    return text + "5 0 1 2 3 4\n";
}

std::string PlyBinarySample(bool isBigEndian)
{
    ByteWriter bytes(plyHeader(isBigEndian ? "binary_big_endian" : "binary_little_endian"),
                     isBigEndian);
    for (int i = 0; i < 40; ++i)
        bytes.PutAll<float>({static_cast<float>(i), static_cast<float>(i * i % 17), 0.5f, 0, 0, 1})
            .PutAll<std::uint8_t>({255, 128, 7});
    for (std::int32_t i = 0; i < 38; ++i)
        bytes.Put<std::uint8_t>(3)
            .PutAll<std::int32_t>({i, i + 1, i + 2})
            .PutAll<std::uint8_t>({1, 2, 3});
    bytes.PutAll<std::int32_t>({5, 0, 1, 2, 3, 4});
    return bytes.Bytes();
}

std::string OffTextSample()
{
    std::string text = "CNOFF\n40 38 0\n";
    for (int i = 0; i < 40; ++i)
        text += std::to_string(i) + " " + std::to_string(i * i % 17) + " 0.5 0 0 1 255 128 " +
                std::to_string(i) + " 255\n";
    for (int i = 0; i < 38; ++i)
        text += "3 " + std::to_string(i) + " " + std::to_string(i + 1) + " " +
                std::to_string(i + 2) + " 10 20 " + std::to_string(i) + "\n";
    return text;
}

std::string OffBinarySample()
{
    ByteWriter bytes("OFF BINARY\n", true);
    bytes.PutAll<std::int32_t>({40, 38, 0});
    for (int i = 0; i < 40; ++i)
        bytes.PutAll<float>({static_cast<float>(i), static_cast<float>(i * i % 17), 0.5f});
    for (std::int32_t i = 0; i < 38; ++i)
        bytes.PutAll<std::int32_t>({3, i, i + 1, i + 2, 3}).PutAll<float>({1, 0.5f, 0});
    return bytes.Bytes();
}

std::string PointTextSample()
{
    std::string text = "40\n";
    for (int i = 0; i < 40; ++i)
        text += std::to_string(i) + " " + std::to_string(i * i % 17) + " 0.5 7 255 128 " +
                std::to_string(i) + "\n";
    return text;
}

std::string PcdTextSample()
{
    std::string text = pcdHeader("ascii");
    for (int i = 0; i < 40; ++i)
        text += std::to_string(i) + " " + std::to_string(i * i % 17) + " 0.5 16711680 0 0 1\n";
    return text;
}

std::string PcdBinarySample()
{
    ByteWriter bytes(pcdHeader("binary"));
    for (int i = 0; i < 40; ++i)
        bytes.PutAll<float>({static_cast<float>(i), static_cast<float>(i * i % 17), 0.5f})
            .Put<std::uint32_t>(0x00FF8000)
            .PutAll<float>({0, 0, 1});
    return bytes.Bytes();
}

/// Runs of plain bytes and copies of what stands just before.
std::string PcdCompressedSample()
{
    ByteWriter packed;
    std::size_t unpacked = 0;
    while (unpacked < 40 * 28) {
        packed.PutAll<std::uint8_t>({3, 0, 0, 128, 63});
        unpacked += 4;
        if (unpacked + 12 <= 40 * 28) {
            packed.PutAll<std::uint8_t>({7 << 5, 3, 3});
            unpacked += 12;
        }
    }
    ByteWriter bytes(pcdHeader("binary_compressed"));
    bytes.Put(static_cast<std::uint32_t>(packed.Bytes().size())).Put<std::uint32_t>(40 * 28);
    return bytes.Bytes() + packed.Bytes();
}
