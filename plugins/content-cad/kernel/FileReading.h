#ifndef ORVIKCAD_KERNEL_FILEREADING_H
#define ORVIKCAD_KERNEL_FILEREADING_H

#include "interface/CadMessages.h"
#include "interface/ICadKernel.h"
#include "kernel/CadDocument.h"

#include <string>
#include <string_view>

namespace OrvikCad {

/// A file that is read: its name, and its bytes in memory.
struct CadFile
{
    std::wstring path;
    std::string_view text;

    std::wstring Name() const; ///< Without the folder.
    std::wstring Stem() const; ///< Without the extension either.
};

// Each reads a file into an empty document, in millimetres, under RunGuarded of the caller, and
// reports its phases. False with an error in @p messages when nothing was read.

/// Of the product structure alone, shapes are empty.
bool ReadStep(const CadFile& file, OrvikCore::LoadMode mode, CadDocument& document,
              CadMessages& messages);
bool ReadIges(const CadFile& file, CadDocument& document, CadMessages& messages);
bool ReadBrep(const CadFile& file, CadDocument& document, CadMessages& messages);

/// Names the phase of reading that begins now, for progress; throws where the job was cancelled.
void BeginReadingPhase(const wchar_t* what, const CadFile& file);

} // namespace OrvikCad

#endif
