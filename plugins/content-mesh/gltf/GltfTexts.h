#ifndef ORVIKMESH_GLTF_GLTFTEXTS_H
#define ORVIKMESH_GLTF_GLTFTEXTS_H

namespace OrvikMesh {

// The reasons that the glTF reader gives, after file and place; %1, %2 and so on are filled in.

// The file as a whole.
inline constexpr wchar_t kGltfNotGltf[] =
    L"this is no glTF file: it begins neither with \"glTF\" nor with a brace";
inline constexpr wchar_t kGltfBinaryVersion[] =
    L"binary glTF of version %1 is not supported, only version 2";
inline constexpr wchar_t kGltfVersion[] = L"glTF of version %1 is not supported, only version 2";
inline constexpr wchar_t kGltfNoVersion[] = L"the file does not say which version of glTF it has";
inline constexpr wchar_t kGltfNoJson[] = L"the first chunk of a binary glTF file must be JSON";
inline constexpr wchar_t kGltfCutHeader[] = L"the file ends in its header";
inline constexpr wchar_t kGltfCutJson[] =
    L"the header announces %1 bytes of JSON, the file ends after %2";
inline constexpr wchar_t kGltfCutBinary[] =
    L"the header announces %1 bytes of data, the file ends after %2; what is whole was read";
inline constexpr wchar_t kGltfCutChunk[] = L"the file ends in the header of a chunk";
inline constexpr wchar_t kGltfBadJson[] = L"this is not JSON: %1";
inline constexpr wchar_t kGltfTooDeep[] = L"brackets are nested more than %1 deep";
inline constexpr wchar_t kGltfTooMuchJson[] = L"the JSON text is larger than %1 bytes";
inline constexpr wchar_t kGltfExtension[] = L"the required extension \"%1\" is not supported";
inline constexpr wchar_t kGltfNoGeometry[] = L"the file holds no geometry";
inline constexpr wchar_t kGltfNotList[] = L"\"%1\" is not a list";

// What stands in the JSON text.
inline constexpr wchar_t kGltfNoSuch[] = L"there is no %1 %2";
inline constexpr wchar_t kGltfBadValue[] = L"%1 %2: \"%3\" is missing or has no good value";

// Buffers.
inline constexpr wchar_t kGltfNoData[] = L"buffer %1 has no data";
inline constexpr wchar_t kGltfForeignFile[] =
    L"the side file \"%1\" lies outside the folder of the file and was not read";
inline constexpr wchar_t kGltfNoFile[] = L"the side file \"%1\" cannot be read: %2";
inline constexpr wchar_t kGltfBadDataUri[] = L"buffer %1: the data URI cannot be read";
inline constexpr wchar_t kGltfBadBase64[] =
    L"buffer %1: character %2 of the data is none of base64";
inline constexpr wchar_t kGltfShortBuffer[] =
    L"buffer %1 has %2 bytes of the %3 that are announced";
inline constexpr wchar_t kGltfCompressed[] =
    L"the data are compressed with \"%1\", which is not supported";

// Buffer views and accessors.
inline constexpr wchar_t kGltfViewOutside[] =
    L"buffer view %1 reaches beyond the %2 bytes of buffer %3";
inline constexpr wchar_t kGltfAccessorOutside[] =
    L"accessor %1 reaches beyond the %2 bytes of buffer view %3";
inline constexpr wchar_t kGltfTooMany[] = L"accessor %1 has more elements than can be numbered";
inline constexpr wchar_t kGltfBadIndices[] =
    L"accessor %1 holds no indices: they are single whole numbers without sign";
inline constexpr wchar_t kGltfBadComponents[] = L"accessor %1 has %2 components, but %3 takes %4";
inline constexpr wchar_t kGltfSparseIndex[] =
    L"accessor %1: a sparse index is out of range; values left out: %2";

// Primitives.
inline constexpr wchar_t kGltfPrimitive[] = L"mesh %1%2, primitive %3: %4";
inline constexpr wchar_t kGltfLeftOut[] = L"%1; it was left out";
inline constexpr wchar_t kGltfNoPositions[] = L"it has no positions";
inline constexpr wchar_t kGltfBadMode[] = L"its mode %1 is not known";
inline constexpr wchar_t kGltfAttributeCount[] =
    L"%1 of %2 elements does not fit the %3 positions and was left out";
inline constexpr wchar_t kGltfAttribute[] = L"%1 was left out: %2";
inline constexpr wchar_t kGltfIndexOutside[] =
    L"index %1 is out of range, there are %2 vertices; %3 left out: %4";
inline constexpr wchar_t kGltfNonFinite[] = L"a coordinate is not a finite number; %1 left out: %2";
inline constexpr wchar_t kGltfNothingLeft[] = L"nothing of it can be shown";
inline constexpr wchar_t kGltfRemainder[] = L"the number of indices is no multiple of %1";
inline constexpr wchar_t kGltfTooMuch[] =
    L"it would unfold to more memory than a file of this size honestly needs";
inline constexpr wchar_t kGltfMoreWarnings[] = L"further warnings of this kind: %1";

// Scenes and nodes.
inline constexpr wchar_t kGltfCycle[] = L"node %1 contains itself";
inline constexpr wchar_t kGltfTooDeepNodes[] = L"nodes are nested more than %1 deep";
inline constexpr wchar_t kGltfTwoParents[] =
    L"node %1 has more than one parent; only the first one was kept";
inline constexpr wchar_t kGltfTwoScenes[] = L"the file has %1 scenes; scene %2 was read";
inline constexpr wchar_t kGltfBadTransform[] =
    L"node %1: the transform is not made of numbers that place anything and was left out";
inline constexpr wchar_t kGltfNoChild[] = L"node %1 names a child %2, which does not exist";
inline constexpr wchar_t kGltfNoMesh[] = L"node %1 names a mesh %2, which does not exist";
inline constexpr wchar_t kGltfNoSceneNode[] = L"scene %1 names a node %2, which does not exist";
inline constexpr wchar_t kGltfNoScene[] =
    L"there is no scene %1; all nodes without a parent were read";
inline constexpr wchar_t kGltfSkin[] =
    L"skins are left out; such meshes are shown as they are stored";
inline constexpr wchar_t kGltfAnimations[] =
    L"animations are left out: %1; everything is shown where the nodes place it";
inline constexpr wchar_t kGltfTextures[] =
    L"pictures on surfaces are left out; materials shown in their plain base colour: %1";
inline constexpr wchar_t kGltfMorphs[] =
    L"morph targets are left out; meshes shown in their basic shape: %1";

// What a message calls the pieces of a shape.
inline constexpr wchar_t kGltfTriangles[] = L"triangles";
inline constexpr wchar_t kGltfSegments[] = L"segments";
inline constexpr wchar_t kGltfPoints[] = L"points";

} // namespace OrvikMesh

#endif
