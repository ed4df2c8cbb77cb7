#include "plugin/CadLoader.h"

#include "interface/CadMessages.h"
#include "plugin/KernelLibrary.h"

#include "OrvikCore/IApplication.h"
#include "OrvikCore/IContentRenderer.h"
#include "OrvikCore/LoadModes.h"
#include "OrvikCore/SessionMgr.h"

#include <OrvikModel/ModelContent.h>

#include <string_view>
#include <utility>

namespace OrvikCad {

using OrvikCore::LoadMode;
using OrvikCore::LoadModes;
using OrvikModel::Model;
using OrvikModel::ModelNode;

namespace {

std::string typeNameOf(CadFormat format, CadLoader::Mode mode)
{
    std::string name = "OrvikCad::";
    name += format == CadFormat::Step ? "Step" : format == CadFormat::Iges ? "Iges" : "Brep";
    return name + (mode == CadLoader::Mode::Import ? "Importer" : "Loader");
}

/// Gives the tessellation parameters that all renderers share; they are protected there.
class SharedTessellation : public OrvikCore::IContentRenderer
{
public:
    static CadTessellation Get()
    {
        CadTessellation shared;
        if (!_useDefaultTessellationSag && _tessellationSag > 0.0)
            shared.sag = _tessellationSag;
        if (!_useDefaultTessellationMaxAngle && _tessellationMaxAngle > 0.0)
            shared.maxAngleDegrees = _tessellationMaxAngle;
        return shared;
    }
};

/// Whether somebody may hover over the model as soon as it is shown.
bool hasWindow()
{
    const OrvikCore::IApplication* application = OrvikCore::SessionMgr::Instance().GetApplication();
    return application && !application->IsBatchMode();
}

void makeIndexes(const ModelNode& node)
{
    if (node.shape)
        node.shape->WithParts();
    for (const auto& child : node.children)
        makeIndexes(*child);
}

} // namespace

OrvikCore::AContentLoader::Extensions ExtensionsOf(CadFormat format)
{
    switch (format) {
    case CadFormat::Step:
        return {{L"STEP", L"STEP"}, {L"STP", L"STEP"}, {L"P21", L"STEP"}};
    case CadFormat::Iges:
        return {{L"IGES", L"IGES"}, {L"IGS", L"IGES"}};
    case CadFormat::Brep:
        return {{L"BREP", L"Open CASCADE BREP"}, {L"BRP", L"Open CASCADE BREP"}};
    }
    return {};
}

CadLoader::CadLoader(CadFormat format, Mode mode) : m_format(format)
{
    typeName = typeNameOf(format, mode);
    isImporter = mode == Mode::Import;
    validExtensions = ExtensionsOf(format);
}

CadLoader::~CadLoader() = default;

bool CadLoader::canLoad(const std::wstring& /*extension*/) const
{
    // The groups of IGES files come only with their shapes, BREP files have no names.
    return m_format == CadFormat::Step || LoadModes::Present() != LoadMode::ProductStructure;
}

std::shared_ptr<Model> CadLoader::readModel(const std::wstring& fileName)
{
    CadMessages messages(fileName);
    std::wstring reason;
    ICadKernel* kernel = LoadKernel(kKernelLibrary, reason);
    auto model = std::make_shared<Model>();
    bool isRead = false;
    if (kernel)
        isRead = kernel->Read(fileName, m_format, {SharedTessellation::Get(), LoadModes::Present()},
                              *model, messages);
    else
        messages.Fail(reason);
    for (const std::wstring& warning : messages.Warnings())
        addWarningMessage(warning);
    if (isRead)
        return model;
    setErrorMessage(messages.Error());
    return nullptr;
}

void CadLoader::load(const std::wstring& fileName, OrvikCore::Document& document)
{
    std::shared_ptr<Model> model = readModel(fileName);
    if (!model)
        return;
    if (hasWindow())
        for (const auto& node : model->nodes)
            makeIndexes(*node);
    OrvikModel::AddModel(document, std::move(model), kCadTypeName);
}

} // namespace OrvikCad
