#ifndef ORVIKCAD_KERNEL_CADDOCUMENT_H
#define ORVIKCAD_KERNEL_CADDOCUMENT_H

#include <OrvikModel/Model.h>
#include <TDF_Label.hxx>
#include <TDocStd_Document.hxx>

#include <string>

namespace OrvikCad {

/// The kernel's document behind a model: shapes in millimetres, names, colours, layers, structure.
/// Kept by the model for saving; shapes of the model share its topology.
///
/// @thread  One thread at a time. Read only once the model is in a document.
class CadDocument final : public OrvikModel::ModelSource
{
public:
    /// Makes an empty document with its tools.
    CadDocument();
    ~CadDocument() override;

    const Handle(TDocStd_Document) & Document() const { return m_document; }

    /// The label below which the tools of XCAFDoc_DocumentTool are found.
    TDF_Label Main() const { return m_document->Main(); }

private:
    Handle(TDocStd_Document) m_document;
};

/// @return the name of a label; empty when it has none.
std::wstring NameOf(const TDF_Label& label);

} // namespace OrvikCad

#endif
