#include "kernel/CadDocument.h"

#include "kernel/KernelText.h"

#include <TDataStd_Name.hxx>
#include <XCAFDoc_DocumentTool.hxx>

namespace OrvikCad {

namespace {

/// Only a document that an application opened needs to be a known format; this one is never stored
/// as a document.
constexpr char kStorageFormat[] = "BinXCAF";

} // namespace

CadDocument::CadDocument() : m_document(new TDocStd_Document(kStorageFormat))
{
    XCAFDoc_DocumentTool::Set(m_document->Main());
}

CadDocument::~CadDocument() = default;

std::wstring NameOf(const TDF_Label& label)
{
    Handle(TDataStd_Name) name;
    if (!label.FindAttribute(TDataStd_Name::GetID(), name))
        return {};
    return ToWide(name->Get());
}

} // namespace OrvikCad
