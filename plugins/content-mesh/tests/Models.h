#ifndef ORVIKMESH_TESTS_MODELS_H
#define ORVIKMESH_TESTS_MODELS_H

#include "MeshFiles.h"
#include "content/MeshBodies.h"
#include "content/MeshShape.h"

#include <OrvikModel/Model.h>

#include <memory>
#include <string>
#include <vector>

/// A geometry of welded triangles, without faces, edges and vertices.
inline std::shared_ptr<const TambVizCore::Geometry>
PlainGeometry(const std::vector<Triangle>& triangles)
{
    OrvikMesh::ReadMessages messages(L"test");
    ReadResult read = ReadStlBytes(BinaryStl(triangles));
    return OrvikMesh::MakeBodies(std::move(read.mesh), L"test", messages).front()->shape->Present();
}

/// What a loader would make of an OBJ text.
inline std::vector<std::unique_ptr<OrvikModel::ModelNode>> BodiesOfObj(const std::string& text,
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
inline std::shared_ptr<OrvikModel::Model> CubeModel(int cubes = 1)
{
    auto model = std::make_shared<OrvikModel::Model>();
    model->path = L"/models/cubes.stl";
    model->number = 1;
    for (int i = 0; i < cubes; ++i) {
        auto node = std::make_unique<OrvikModel::ModelNode>();
        node->kind = OrvikModel::NodeKind::PolyBody;
        node->name = L"cube " + std::to_wstring(i);
        node->shape = std::make_shared<OrvikMesh::MeshShape>(
            PlainGeometry(Cube(2.0f * static_cast<float>(i))));
        model->nodes.push_back(std::move(node));
    }
    model->NumberNodes();
    return model;
}

#endif
