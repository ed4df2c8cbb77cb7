#include "OrvikModel/ModelContent.h"

#include "OrvikModel/ModelRenderer3D.h"
#include "content/ModelPicker.h"
#include "content/PartBoxes.h"
#include "content/Visibility.h"

#include "OrvikCore/Document.h"

#include <TambCommandsInfra/CallGate.h>
#include <TambVizCore/EntityId.h>

#include <algorithm>
#include <utility>

namespace OrvikModel {

using OrvikCore::Document;
using OrvikCore::IEntityProperties;
using TambVizCore::EntityId;
using TambVizCore::PartKind;

namespace {

/// @return a number that no content of the document has.
std::uint64_t freeContentNumber(const Document& document)
{
    std::uint64_t highest = 0;
    for (const OrvikCore::AContent* content : document.GetContentList())
        if (const auto* numbered = dynamic_cast<const IEntityProperties*>(content))
            highest = std::max(highest, numbered->GetContentNumber());
    return SkipReservedNumbers(highest + 1);
}

} // namespace

ModelContent::ModelContent(Document& owner, std::shared_ptr<const Model> model,
                           std::string typeName)
    : AContent(owner),
      m_model(std::move(model)),
      m_typeName(std::move(typeName)),
      m_link(std::make_shared<SceneLink>()),
      m_picker(std::make_unique<ModelPicker>(m_model, m_link)),
      m_partBoxes(std::make_unique<PartBoxes>())
{
}

ModelContent::~ModelContent() = default;

std::wstring ModelContent::GetShortId()
{
    return m_model->FileName();
}

std::wstring ModelContent::GetLongId()
{
    return m_model->path;
}

void ModelContent::NoteState() {}

void ModelContent::Undo() {}

void ModelContent::Redo() {}

std::string ModelContent::GetTypeName() const
{
    return m_typeName;
}

bool ModelContent::GetBoundingBox(TambVizCore::VizBox& box) const
{
    if (m_model->bodyBox.IsEmpty())
        return false;
    box = m_model->bodyBox;
    return true;
}

void ModelContent::ClearSelection() {}

bool ModelContent::TryHighlight(const TambVizCore::RenderId& id)
{
    return TambCommandsInfra::CallGate::Call(
        [&] { return m_link->renderer && m_link->renderer->HighlightAlike(id); });
}

bool ModelContent::RayPick(const TambVizCore::Ray& ray, EntityId& hit)
{
    return m_picker->Pick(ray, TambVizCore::kAllPartKinds, hit);
}

bool ModelContent::RayPickKind(const TambVizCore::Ray& ray, PartKind kind, EntityId& hit)
{
    return kind != PartKind::None && m_picker->Pick(ray, TambVizCore::ToPartKinds(kind), hit);
}

ModelContent& AddModel(Document& document, std::shared_ptr<Model> model,
                       const std::string& typeName)
{
    return TambCommandsInfra::CallGate::Call([&]() -> ModelContent& {
        model->number = freeContentNumber(document);
        auto content = std::make_unique<ModelContent>(document, std::move(model), typeName);
        ModelContent& added = *content;
        document.AddContent(*content.release()); // The document owns it now.
        return added;
    });
}

} // namespace OrvikModel
