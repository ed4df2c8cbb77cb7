#ifndef ORVIKCAD_PLUGIN_CADSAVER_H
#define ORVIKCAD_PLUGIN_CADSAVER_H

#include "interface/ICadKernel.h"

#include "OrvikCore/AContentSaver.h"

namespace OrvikCad {

/// Writes contents that came from the CAD kernel to STEP, IGES or BREP files, from the kernel's own
/// document: exact shapes, not triangles. There is one saver for each format.
///
/// A file is written whole or not at all: on failure one that was there is as it was. The running
/// job can cancel it. What goes wrong is told by GetErrorMessage() and GetWarningMessages(), each
/// with the file.
///
/// @thread  As AContentSaver.
class CadSaver final : public OrvikCore::AContentSaver
{
public:
    explicit CadSaver(CadFormat format);
    ~CadSaver() override;

private:
    bool save(const std::wstring& fileName, OrvikCore::AContent* content) override;

    /// @return true for a content with a document of the kernel, whatever the extension.
    bool canSave(OrvikCore::AContent* content, const std::wstring& extension) override;

    CadFormat m_format;
};

} // namespace OrvikCad

#endif
