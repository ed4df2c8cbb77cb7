#ifndef ORVIKCAD_TESTS_CADTEST_H
#define ORVIKCAD_TESTS_CADTEST_H

#include "interface/CadMessages.h"
#include "interface/ICadKernel.h"
#include "kernel/KernelWatch.h"

#include <OrvikModel/Model.h>

#include <string>
#include <string_view>
#include <vector>

namespace OrvikCad {

/// For hostile files: less patience than files of users get, so that many of them can be tried.
inline constexpr KernelLimits kHostileLimits{.silentMs = 1'000, .silentMsPerMegabyte = 1'000};

/// What came of reading one file.
struct ReadResult
{
    bool isRead = false;
    OrvikModel::Model model;
    std::wstring error;
    std::vector<std::wstring> warnings;

    /// @return whether a warning holds that text.
    bool WarnsOf(std::wstring_view text) const;
};

/// Reads one of the models that were written for tests, by its name, or any file by its whole path.
/// The ending decides about the format. Runs on a thread with a guarded stack, as the worker is, as
/// a job that can be cancelled unless one runs already.
ReadResult ReadCad(const std::wstring& file, const CadOptions& options = {},
                   const KernelLimits& limits = {});

/// Writes a text to a file of a temporary folder and reads it.
ReadResult ReadCadText(std::string_view text, const std::string& fileName,
                       const KernelLimits& limits = {});

/// @return the text of one of the models that were written for tests.
std::string TestModelText(const std::string& name);

/// @return all nodes of a kind, in the order of the tree.
std::vector<const OrvikModel::ModelNode*> NodesOf(const OrvikModel::Model& model,
                                                  OrvikModel::NodeKind kind);

} // namespace OrvikCad

#endif
