#ifndef ORVIKCAD_INTERFACE_ICADKERNEL_H
#define ORVIKCAD_INTERFACE_ICADKERNEL_H

#include <OrvikCore/LoadModes.h>

#include <string>

namespace OrvikModel {
struct Model;
}

namespace OrvikCad {

class CadMessages;

enum class CadFormat
{
    Step,
    Iges,
    Brep,
};

/// How finely shapes are cut into triangles.
struct CadTessellation
{
    double sag = 0.0;             ///< Millimetres; 0 for a thousandth of the model's diagonal.
    double maxAngleDegrees = 0.0; ///< Between neighbouring chords; 0 for 0.35 radians.
};

/// What is to be made of a file.
struct CadOptions
{
    CadTessellation tessellation;
    OrvikCore::LoadMode mode = OrvikCore::LoadMode::Everything;
};

/// Reads and writes CAD files: the side of the kernel that the plugin sees. It lives in a library
/// of its own, which is loaded on first use and stays; this interface names nothing of the kernel.
///
/// @thread  One document at a time, on the worker. Reading polls the process's CancelToken and
///          reports to its Progress.
class ICadKernel
{
public:
    // Virtual operations in slot order; append only.
    virtual ~ICadKernel() = default;

    /// Reads a file into an empty model and numbers its nodes. Lengths become millimetres.
    ///
    /// In the graphical mode the model has triangles alone; it cannot be written. In that of the
    /// product structure nothing of it is drawn, and there are no annotations and views; only of
    /// STEP files this saves time.
    ///
    /// @return false when nothing was read; @p messages then has an error, and @p model is empty.
    virtual bool Read(const std::wstring& fileName, CadFormat format, const CadOptions& options,
                      OrvikModel::Model& model, CadMessages& messages) = 0;

    /// Tells whether a model came from this kernel, so that it can be written.
    virtual bool CanWrite(const OrvikModel::Model& model) const = 0;

    /// Writes a model whole or not at all: on failure a file that was there is as it was.
    ///
    /// @return false when it was not written; @p messages then has an error.
    virtual bool Write(const std::wstring& fileName, CadFormat format,
                       const OrvikModel::Model& model, CadMessages& messages) = 0;
};

/// Name and type of the one function that the kernel's library exports. The kernel (transferred
/// out) is deleted by nobody before the process ends.
inline constexpr char kCreateCadKernel[] = "CreateCadKernel";
using CreateCadKernelFunction = ICadKernel* (*)();

} // namespace OrvikCad

#endif
