#ifndef ORVIKMESH_READERS_MESHREADER_H
#define ORVIKMESH_READERS_MESHREADER_H

#include "readers/MeshData.h"
#include "readers/ReadMessages.h"

#include <atomic>
#include <cstddef>
#include <functional>
#include <string>
#include <string_view>

namespace OrvikMesh {

/// What the caller of a reader may ask for; empty functions are never called.
struct ReadOptions
{
    /// Asked every few milliseconds, on several threads at a time; true ends the reading.
    std::function<bool()> isCancelled;
    /// Told the share that is done, from 0 to 1, now and then, on several threads at a time; of
    /// two calls at a time the later may tell less.
    std::function<void(double)> progress;
};

/// Thrown inside a reader when isCancelled() says so; ReadGuarded() catches it.
struct ReadCancelled
{
};

/// Throws ReadCancelled when the caller wants to stop.
void PollCancel(const ReadOptions& options);

/// Tells the caller how far reading has come.
void ReportProgress(const ReadOptions& options, double share);

/// Counts what several threads have done and tells the caller.
class SharedProgress
{
public:
    /// @param total  What there is to do, in any unit.
    /// @param share  What it is of the whole reading, from 0 to 1.
    SharedProgress(const ReadOptions& options, std::size_t total, double share);

    /// Any thread.
    void Add(std::size_t done);

private:
    const ReadOptions& m_options;
    const double m_sharePerUnit;
    std::atomic<std::size_t> m_done = 0; ///< Written by all; only the count matters.
};

/// Reads a file of one format from memory.
///
/// @param content  The whole file; it may fault while it is read.
/// @return false with an error in @p messages, and @p mesh then holds anything.
using ContentReader = std::function<bool(std::string_view content, const ReadOptions& options,
                                         MeshData& mesh, ReadMessages& messages)>;

/// Runs @p work with floating-point traps masked and machine faults made into errors.
///
/// @return what @p work returns; false with an error in @p messages when it was cancelled, ran out
///         of memory or faulted. A half-read result must then be thrown away.
bool ReadGuarded(const std::function<bool()>& work, ReadMessages& messages);

/// Maps the file and reads it under ReadGuarded(). A missing or unreadable file, a folder and an
/// empty file are errors.
bool ReadMappedFile(const std::wstring& path, const ContentReader& reader,
                    const ReadOptions& options, MeshData& mesh, ReadMessages& messages);

} // namespace OrvikMesh

#endif
