#ifndef ORVIKMESH_TESTS_MODELS_H
#define ORVIKMESH_TESTS_MODELS_H

#include "MeshFiles.h"
#include "content/MeshBodies.h"
#include "content/MeshModel.h"

#include <memory>
#include <string>
#include <vector>

/// A geometry of welded triangles, without faces, edges and vertices.
inline std::shared_ptr<const TambVizCore::Geometry>
PlainGeometry(const std::vector<Triangle>& triangles)
{
    OrvikMesh::ReadMessages messages(L"test");
    ReadResult read = ReadStlBytes(BinaryStl(triangles));
    return OrvikMesh::MakeBodies(std::move(read.mesh), L"test", messages).front()->Present();
}

/// What a loader would make of an OBJ text.
inline std::vector<std::unique_ptr<OrvikMesh::MeshBody>> BodiesOfObj(const std::string& text,
                                                                     ReadResult& read)
{
    OrvikMesh::ReadMessages messages(L"test");
    read = ReadObjText(text);
    auto bodies = OrvikMesh::MakeBodies(std::move(read.mesh), L"test", messages);
    read.warnings.insert(read.warnings.end(), messages.Warnings().begin(),
                         messages.Warnings().end());
    return bodies;
}

/// A model of one or two unit cubes beside each other.
inline std::shared_ptr<OrvikMesh::MeshModel> CubeModel(int cubes = 1)
{
    auto model = std::make_shared<OrvikMesh::MeshModel>();
    model->path = L"/models/cubes.stl";
    for (int i = 0; i < cubes; ++i) {
        model->bodies.push_back(std::make_unique<OrvikMesh::MeshBody>(
            L"cube " + std::to_wstring(i), PlainGeometry(Cube(2.0f * static_cast<float>(i))),
            std::nullopt));
        model->box.Add(model->bodies.back()->BoundingBox());
    }
    return model;
}

#endif
