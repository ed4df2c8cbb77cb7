#ifndef ORVIKCAD_PLUGIN_CADLOADER_H
#define ORVIKCAD_PLUGIN_CADLOADER_H

#include "interface/ICadKernel.h"

#include "OrvikCore/AContentLoader.h"

#include <OrvikModel/Model.h>

#include <memory>
#include <string>

namespace OrvikCad {

/// The name under which the renderer factories for CAD models are registered.
inline constexpr char kCadTypeName[] = "Cad";

/// @return the extensions of a format in upper case, each with the format's name.
OrvikCore::AContentLoader::Extensions ExtensionsOf(CadFormat format);

/// Reads STEP, IGES or BREP files into a document, as loader or as importer. There is one for each
/// format and mode; the kernel's library is loaded when the first file is read.
///
/// The file is read on the calling thread; only adding the content crosses the call gate. The
/// running job can cancel it. What goes wrong is told by GetErrorMessage() and
/// GetWarningMessages(), each with the file and, where there is one, the line or the entity.
///
/// With a host that is not in batch mode the spatial indexes of all bodies are made before the
/// content is added, so that the window's first hover finds them.
///
/// What is made of a file follows OrvikCore::LoadModes. Of the product structure alone only STEP
/// files are loaded.
///
/// @thread  As AContentLoader.
class CadLoader final : public OrvikCore::AContentLoader
{
public:
    enum class Mode
    {
        Load,
        Import,
    };

    CadLoader(CadFormat format, Mode mode);
    ~CadLoader() override;

private:
    bool canLoad(const std::wstring& extension) const override;
    void load(const std::wstring& fileName, OrvikCore::Document& document) override;

    std::shared_ptr<OrvikModel::Model> readModel(const std::wstring& fileName);

    CadFormat m_format;
};

} // namespace OrvikCad

#endif
